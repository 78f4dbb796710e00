// Reading and writing settings.dat. UI thread only.
#pragma once

#include <string>

#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// True when the record was read or when there is no file (the record then stays as it is). On
/// false `error` holds the message for the user, and `record` and the file are untouched.
/// Throws std::filesystem::filesystem_error when the file's status can't be told.
[[nodiscard]] bool loadSettings(Files& files, const std::u16string& path, Settings& record,
                                std::u16string& error);

/// Replaces the file in one step. On false `error` tells which step failed and the old file, if
/// any, is whole. No exception leaves it.
[[nodiscard]] bool saveSettings(Files& files, const std::u16string& path, const Settings& record,
                                std::u16string& error);

}  // namespace mrl
