// When the screens are black, what they cover, and what a key on them means. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

inline constexpr char16_t kNoShowToBlack[] = u"当前没有可控制的放映，黑屏不适用于已排除的文稿。";

/// Blacks out every monitor, or ends that. Without a running show that is timed it refuses with
/// that message.
void setBlack(App& app, bool on);

/// A black window came to the top, as it does when it is activated: the overtime stays readable.
void onBlackRaised(App& app);

/// The monitors are arranged anew, or one of them has another resolution: each black window covers
/// its own again. A monitor that was not covered stays as it is.
void onScreensChanged(App& app);

/// A key on a black window. True when it meant something.
bool onBlackKey(App& app, int virtualKey);

}  // namespace mrl
