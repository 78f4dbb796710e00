// Maps a remote client's command to an action.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// Runs a command (exact match). `argument` is a number of seconds or the id of a file, as sent by
/// the client. On failure returns false and fills `error` with a message for the user; no setting
/// has changed then, but a show command may have had part of its effect. UI thread; may block while
/// a presentation program is busy.
[[nodiscard]] bool runRemoteCommand(App& app, const std::string& command,
                                    const std::string& argument, std::u16string& error);

}  // namespace mrl
