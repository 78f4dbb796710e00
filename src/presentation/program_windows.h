// The presentation programs by what the desktop shows of them: whose windows are whose, and which
// of them lead to the object model of their program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/window_handle.h"
#include "presentation/window_system.h"

namespace mrl {

/// The ProgID by whose name the program with that image is reached; empty for any program that
/// shows no presentations. Only the last part of the path counts, in any case.
std::u16string_view providerOfImage(const std::u16string& imagePath);

/// The other ProgID of the same program; empty when it has none.
std::u16string_view otherProviderOf(std::u16string_view progId);

/// The windows of the provider's program that may lead to its object model, each followed by those
/// inside it that may; the topmost window comes first. None for a ProgID that is only the other
/// name of a program. UI thread.
std::vector<WindowHandle> objectModelWindows(WindowSystem& windows, std::u16string_view progId);

}  // namespace mrl
