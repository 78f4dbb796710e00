// The presentations page of the settings window: the decks of a folder, and the running show.
// reloadFileList() is in form.h. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

// Prefixes of the list's rows; the file's name follows.
inline constexpr char16_t kSkippedRow[] = u"[跳过计时] ";
inline constexpr char16_t kTimedRow[] = u"[正常计时] ";

/// Toggles whether the selected deck is excluded from timing; saved at once.
void toggleSelectedExclusion(App& app);

/// Runs one of the page's buttons by its id. False if it is not one of them.
bool onPresentationButton(App& app, int id);

/// A wheel message that arrives at the list of files.
struct ListWheel {
  bool isInside = true;  // the cursor is in the list's client area
  int delta = 0;         // positive is away from the user
  int topRow = 0;
  int rows = 0;
  int height = 0;  // of the client area
  int rowHeight = 0;
};
/// Whether the page scrolls instead: the cursor is outside the list, or the list can't scroll on.
bool handsWheelOn(const ListWheel& wheel);

}  // namespace mrl
