// The one sound of the program: that of an alert, or of the end of the time. UI thread.
#pragma once

#include <cstdint>
#include <string>

#include "core/app.h"

namespace mrl {

/// Plays `path` for `seconds`, or to its end when that is 0 or less; without a path it beeps. What
/// sounded before is cut off. A failure is told, and nothing is heard.
void playAudio(App& app, const std::u16string& path, int32_t seconds);

/// Stops the sound and forgets when it was to be cut off.
void closeAudio(App& app);

}  // namespace mrl
