#include "settings/file_kind.h"

#include <filesystem>

#include "base/text.h"

namespace mrl {

void throwFileError(std::u16string operation, const std::u16string& words,
                    const std::u16string& path) {
  operation += u": " + words + u" [" + path + u"]";
  throw std::filesystem::filesystem_error(utf8From(operation),
                                          std::make_error_code(std::errc::io_error));
}

bool meansMissing(uint32_t systemCode) {
  switch (systemCode) {
    case 2:    // file not found
    case 3:    // path not found
    case 53:   // network path not found
    case 64:   // network name gone
    case 123:  // invalid name
    case 267:  // a parent is not a folder
      return true;
    default: return false;
  }
}

FileKind fileKindOf(Files& files, const std::u16string& path, const std::u16string& operation) {
  FileKind kind = FileKind::Missing;
  std::u16string words;
  if (!files.status(path, kind, words)) throwFileError(operation, words, path);
  return kind;
}

}  // namespace mrl
