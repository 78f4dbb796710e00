// Show control: moves a running show, starts one, closes the document. Uses automation where it
// works, otherwise key presses sent to the show's window.
#pragma once

#include <string>
#include <string_view>

#include "presentation/automation_access.h"

namespace mrl {

/// Runs "begin", "current", "next", "previous", "exit" or "close" (exact spelling). UI thread; may
/// block while a presentation program is busy. If automation fails but the key presses succeed,
/// that is success. On failure returns false and fills `error` with a message for the user.
[[nodiscard]] bool sendShowCommand(const PresentationAccess& access, AutomationState& automation,
                                   std::string_view command, std::u16string& error);

/// The key presses only, without automation. False if no window can take them.
[[nodiscard]] bool sendShowKeys(WindowSystem& windows, std::string_view command);

}  // namespace mrl
