// What stands at a path, for those who have no use for an answer other than that.
#pragma once

#include <cstdint>
#include <string>

#include "settings/files.h"

namespace mrl {

/// A std::filesystem::filesystem_error that tells what was tried, on what, and the system's words.
[[noreturn]] void throwFileError(std::u16string operation, const std::u16string& words,
                                 const std::u16string& path);

/// Whether Windows' error code means that nothing stands there: the name, a folder on the way, or
/// the server or share that holds it is not to be found.
bool meansMissing(uint32_t systemCode);

/// Links are followed. Throws as above on any trouble but absence.
FileKind fileKindOf(Files& files, const std::u16string& path,
                    const std::u16string& operation = u"status");

}  // namespace mrl
