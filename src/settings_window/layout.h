// Positions the controls of the current page and scrolls it. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// A page laid out for one window size; all in pixels.
struct PageLayout {
  std::vector<Placement> frame;  // in the window, including the pane
  std::vector<Placement> page;   // in the pane, scrolled
  Cards cards;                   // in the pane, scrolled
  int extent = 0;                // the height of the whole page
  int paneHeight = 0;
  int scroll = 0;  // as requested, clamped to the range
};

/// Pure. `page` is 0 to 4, `client` the window's client size in pixels.
PageLayout layOut(Size client, int dpi, int page, int scroll);

/// Lays out the window for its current size and DPI, and shows the current page's controls.
void layoutPage(App& app);

/// Scrolls the page to a position in pixels, clamped to the range.
void scrollTo(App& app, int position);

/// The position after a step; Drop, Start and End are up to the caller and leave it unchanged.
/// `line` and `page` in pixels.
int positionAfter(ScrollStep step, const ScrollInfo& bar, int line, int page);
/// A step of the page's scroll bar; `dropped` is the position of a Drop.
void scrollPage(App& app, ScrollStep step, int dropped = 0);
/// The mouse wheel; 120 is a notch, positive is away from the user. Fractions of a pixel add up.
void turnWheel(App& app, int delta);

/// Scrolls just far enough to show the whole control, which got the focus by keyboard.
void bringIntoSight(App& app, int id);

/// The window's DPI changed; `rect` is what the system suggests for it. Scrolls to the top.
void onSettingsDpiChanged(App& app, int dpi, const Rect& rect);

}  // namespace mrl
