// The format of settings.dat: the record to bytes and back, without file access.
#pragma once

#include <cstdint>
#include <string>

#include "settings/settings.h"

namespace mrl {

/// A file with more entries in the skip list is refused.
inline constexpr uint32_t kMaxSkipped = 10000;

/// The whole file, in the current version.
std::string composeSettings(const Settings& settings);

/// Reads the current version and the one before it, whose missing fields take their defaults. On
/// false `error` holds the message for the user and `record` is untouched.
[[nodiscard]] bool parseSettings(const std::string& bytes, Settings& record, std::u16string& error);

}  // namespace mrl
