// The kind of a path, for callers to whom every error but absence is an exception.
#pragma once

#include <cstdint>
#include <string>

#include "settings/files.h"

namespace mrl {

/// Throws std::filesystem::filesystem_error with the operation, the system's message and the path.
[[noreturn]] void throwFileError(std::u16string operation, const std::u16string& words,
                                 const std::u16string& path);

/// Whether a Windows error code means that nothing exists at the path: the name, a parent folder,
/// the server or the share was not found.
bool meansMissing(uint32_t systemCode);

/// Follows links. Throws as above on any error but absence.
FileKind fileKindOf(Files& files, const std::u16string& path,
                    const std::u16string& operation = u"status");

}  // namespace mrl
