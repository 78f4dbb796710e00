#include "settings/file_kind.h"

#include <filesystem>

#include "core/text.h"

namespace mrl {

FileKind fileKindOf(Files& files, const std::u16string& path) {
  FileKind kind = FileKind::Missing;
  std::u16string words;
  if (!files.status(path, kind, words)) {
    throw std::filesystem::filesystem_error(utf8From(u"status: " + words + u" [" + path + u"]"),
                                            std::make_error_code(std::errc::io_error));
  }
  return kind;
}

}  // namespace mrl
