// Show control: moves a running show, starts one, closes the document. By automation where that
// works, otherwise by key presses aimed at the show's window.
#pragma once

#include <string>
#include <string_view>

#include "presentation/automation_access.h"

namespace mrl {

/// Runs "begin", "current", "next", "previous", "exit" or "close", spelled exactly so. UI thread;
/// may block while a presentation program is busy. On failure returns false and fills `error` with
/// the text for the user. Key presses that repair a failed call make it a success.
[[nodiscard]] bool sendShowCommand(const PresentationAccess& access, AutomationState& automation,
                                   std::string_view command, std::u16string& error);

/// The key presses alone; needs no automation. False when no window can take them.
[[nodiscard]] bool sendShowKeys(WindowSystem& windows, std::string_view command);

}  // namespace mrl
