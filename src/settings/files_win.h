// The real file system, on Windows.
#pragma once

#include "settings/files.h"

namespace mrl {

class FilesWin : public Files {
 public:
  bool status(const std::u16string& path, FileKind& kind, std::u16string& error) override;
  bool read(const std::u16string& path, std::string& bytes) override;
  std::unique_ptr<FileWriter> create(const std::u16string& path) override;
  bool replace(const std::u16string& from, const std::u16string& to) override;
  void remove(const std::u16string& path) override;
  bool createFolders(const std::u16string& path, std::u16string& error) override;
  std::vector<FolderEntry> list(const std::u16string& folder) override;
  CanonicalResult canonical(const std::u16string& path, std::u16string& result) override;
  char16_t separator() const override { return u'\\'; }
};

}  // namespace mrl
