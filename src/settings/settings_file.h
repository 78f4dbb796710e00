// Reads and writes settings.dat. UI thread only.
#pragma once

#include <string>

#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// Returns true if the record was read, or if there is no file (`record` is then unchanged). On
/// failure `error` holds the message for the user, and `record` and the file are unchanged. Throws
/// std::filesystem::filesystem_error if the status of the file can't be determined.
[[nodiscard]] bool loadSettings(Files& files, const std::u16string& path, Settings& record,
                                std::u16string& error);

/// Replaces the file atomically. On failure `error` names the step that failed, and the old file,
/// if any, is intact. Never throws.
[[nodiscard]] bool saveSettings(Files& files, const std::u16string& path, const Settings& record,
                                std::u16string& error);

}  // namespace mrl
