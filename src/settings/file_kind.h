// What stands at a path, for those who have no use for an answer other than that.
#pragma once

#include <string>

#include "settings/files.h"

namespace mrl {

/// Links are followed. Throws std::filesystem::filesystem_error, with the operation "status" and
/// the system's words, on any trouble but absence.
FileKind fileKindOf(Files& files, const std::u16string& path);

}  // namespace mrl
