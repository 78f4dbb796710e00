// The file system as the logic sees it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mrl {

enum class FileKind { Missing, Regular, Directory, Other };

/// What a folder holds under one name.
struct FolderEntry {
  std::u16string name;
  FileKind kind = FileKind::Missing;  // links followed; Missing also when it can't be told

  bool operator==(const FolderEntry&) const = default;
};

enum class CanonicalResult { Found, Missing, Failed };

/// A file that is being written. Destroying it closes it.
class FileWriter {
 public:
  virtual ~FileWriter() = default;
  /// One write of all bytes; false when fewer went in.
  [[nodiscard]] virtual bool write(std::string_view bytes) = 0;
  /// True when the bytes are on the disk.
  [[nodiscard]] virtual bool flush() = 0;
};

/// UI thread only. Paths are those of the platform.
class Files {
 public:
  virtual ~Files() = default;

  /// What stands at `path`, links followed. Any trouble but absence returns false and fills `error`
  /// with the system's words.
  [[nodiscard]] virtual bool status(const std::u16string& path, FileKind& kind,
                                    std::u16string& error) = 0;
  /// The whole file, shared with other readers and writers. On failure `bytes` is untouched.
  [[nodiscard]] virtual bool read(const std::u16string& path, std::string& bytes) = 0;
  /// A new, empty file that nobody else can open until the writer is gone; an old one is truncated.
  /// Null on failure.
  [[nodiscard]] virtual std::unique_ptr<FileWriter> create(const std::u16string& path) = 0;
  /// Moves `from` over `to` in one step, through to the disk. On failure both stand as they were.
  [[nodiscard]] virtual bool replace(const std::u16string& from, const std::u16string& to) = 0;
  virtual void remove(const std::u16string& path) = 0;
  /// Makes the folder and those above it; one that exists is success.
  [[nodiscard]] virtual bool createFolders(const std::u16string& path, std::u16string& error) = 0;
  /// The entries of a folder, not those of its subfolders, in any order. Trouble on opening or on
  /// the way ends the list; what came before it counts. REQUIRES: `folder` is not empty.
  [[nodiscard]] virtual std::vector<FolderEntry> list(const std::u16string& folder) = 0;
  /// The final, absolute form of an existing path, links resolved and in the case found on disk.
  [[nodiscard]] virtual CanonicalResult canonical(const std::u16string& path,
                                                  std::u16string& result) = 0;
  /// The platform's preferred separator: '\\' or '/'.
  [[nodiscard]] virtual char16_t separator() const = 0;
};

}  // namespace mrl
