// Document control: opens a deck and starts its show on the right slide, closes a deck, brings a
// show to the foreground. A running show is replaced only if automation can end it and knows its
// document; otherwise it is left alone.
//
// All on the UI thread. Opening a deck and starting a show may take the application seconds.
#pragma once

#include <string>

#include "presentation/automation_access.h"

namespace mrl {

/// Opens the deck at `path` if it isn't open; with `play` also runs its show. A running show of
/// this deck is raised, not restarted; a show of another deck is ended first. Starts an application
/// if none is running. On failure returns false and fills `error` with a message for the user.
/// Throws std::filesystem::filesystem_error if the file system can't determine what `path` is.
[[nodiscard]] bool openDocument(const PresentationAccess& access, AutomationState& automation,
                                const std::u16string& path, bool play, std::u16string& error);

/// Like openDocument, but reports a file system error through `error` as well: a failing drive must
/// not end the program in the middle of a talk.
[[nodiscard]] bool tryOpenDocument(const PresentationAccess& access, AutomationState& automation,
                                   const std::u16string& path, bool play, std::u16string& error);

/// Closes the deck in the first running application that has it open; what happens to its show is
/// up to that application. On failure returns false and fills `error` with a message for the user.
[[nodiscard]] bool closeDocument(const PresentationAccess& access,
                                 const AutomationState& automation, const std::u16string& path,
                                 std::u16string& error);

/// Does one full poll and raises the show window if it shows `path`. True if the window then is in
/// the foreground, which the system may refuse.
bool raiseDocumentShow(const PresentationAccess& access, AutomationState& automation,
                       const std::u16string& path);

}  // namespace mrl
