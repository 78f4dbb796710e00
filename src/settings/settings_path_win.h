// The location of settings.dat on this machine.
#pragma once

#include <string>

namespace mrl {

/// Full path of the file in the user's local application data; empty on failure.
std::u16string settingsPath();

}  // namespace mrl
