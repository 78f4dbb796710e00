// Document control: opens a deck and starts its show from the right slide, closes a deck, gets a
// show in front of the audience. A running show is replaced only when automation can end it and
// knows its document; otherwise it is left alone.
//
// All on the UI thread. Opening a deck and starting a show may take the application seconds.
#pragma once

#include <string>

#include "presentation/automation_access.h"

namespace mrl {

/// Makes sure that the deck at `path` is open; with `play` its show runs as well. A running show of
/// the deck is raised and not restarted, one of another deck gives way. Starts an application when
/// none runs. On failure returns false and fills `error` with the text for the user.
/// Throws std::filesystem::filesystem_error when the file system can't tell what stands at `path`.
[[nodiscard]] bool openDocument(const PresentationAccess& access, AutomationState& automation,
                                const std::u16string& path, bool play, std::u16string& error);

/// The same, but with a failure of the file system told like any other: a drive that fails in the
/// middle of a talk must not end the program.
[[nodiscard]] bool tryOpenDocument(const PresentationAccess& access, AutomationState& automation,
                                   const std::u16string& path, bool play, std::u16string& error);

/// Closes the deck in whichever running application holds it; what becomes of its show is up to
/// that application. On failure returns false and fills `error` with the text for the user.
[[nodiscard]] bool closeDocument(const PresentationAccess& access,
                                 const AutomationState& automation, const std::u16string& path,
                                 std::u16string& error);

/// One full poll; if the show on screen is that of `path`, its window is raised. True when it ends
/// up in the foreground, which the system may refuse.
bool raiseDocumentShow(const PresentationAccess& access, AutomationState& automation,
                       const std::u16string& path);

}  // namespace mrl
