// The page of the presentations: a folder's decks, and the show. reloadFileList() is in
// settings_form.h. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

// What a row of the list begins with; its file's name follows.
inline constexpr char16_t kSkippedRow[] = u"[跳过计时] ";
inline constexpr char16_t kTimedRow[] = u"[正常计时] ";

/// The selected deck is excluded from timing, or no longer; saved at once.
void toggleSelectedExclusion(App& app);

/// Carries out one of the page's buttons by its id. False when it is none of them.
bool onPresentationButton(App& app, int id);

/// A turn of the wheel that reaches the list of files.
struct ListWheel {
  bool isInside = true;  // the cursor, in the list's client area
  int delta = 0;         // positive is away from the user
  int topRow = 0;
  int rows = 0;
  int height = 0;  // of the client area
  int rowHeight = 0;
};
/// Whether the list has nothing to scroll for it, so that the page takes it.
bool handsWheelOn(const ListWheel& wheel);

}  // namespace mrl
