// Recognises presentation programs by their windows: which program owns a window, and which windows
// lead to its object model.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/window_handle.h"
#include "presentation/window_system.h"

namespace mrl {

/// The ProgID of the program with that image path; empty if it is not a presentation program. Only
/// the file name counts, case-insensitively.
std::u16string_view providerOfImage(const std::u16string& imagePath);

/// The other ProgID of the same program; empty if it has only one.
std::u16string_view otherProviderOf(std::u16string_view progId);

/// The windows of the provider's program that may lead to its object model, topmost first, each
/// followed by its candidate child windows. Empty for a ProgID that is only the second name of a
/// program. UI thread.
std::vector<WindowHandle> objectModelWindows(WindowSystem& windows, std::u16string_view progId);

}  // namespace mrl
