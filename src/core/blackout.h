// The black screen: when it is on, what it covers and which keys it takes. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

inline constexpr char16_t kNoShowToBlack[] = u"当前没有可控制的放映，黑屏不适用于已排除的文稿。";

/// Turns the black screen on every monitor on or off. Without a running show that is timed it
/// refuses with that message.
void setBlack(App& app, bool on);

/// A black window came to the top, as on activation: raises the clock, so that the overtime stays
/// readable.
void onBlackRaised(App& app);

/// The monitors were rearranged or changed resolution: moves each black window back over its
/// monitor. A monitor that was not covered stays uncovered.
void onScreensChanged(App& app);

/// Handles a key on a black window. Returns true if the key was used.
bool onBlackKey(App& app, int virtualKey);

}  // namespace mrl
