// The program's one sound: of a stage or of the end of the time. UI thread.
#pragma once

#include <cstdint>
#include <string>

#include "core/app.h"

namespace mrl {

/// Plays `path` for `seconds`, or to its end if that is 0 or less; an empty path beeps. Stops the
/// previous sound. A failure is reported in the status line and plays nothing.
void playAudio(App& app, const std::u16string& path, int32_t seconds);

/// Stops the sound and cancels its deadline.
void closeAudio(App& app);

}  // namespace mrl
