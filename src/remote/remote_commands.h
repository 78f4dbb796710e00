// Turns a command word of a remote control into an action.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// `command` is compared exactly; `argument` is a number of seconds or the id of a file, as the
/// client sent it. On failure returns false and fills `error` with the text for the user; a refusal
/// leaves no partial effect. UI thread; may block while a presentation program is busy.
[[nodiscard]] bool runRemoteCommand(App& app, const std::string& command,
                                    const std::string& argument, std::u16string& error);

}  // namespace mrl
