// Where the controls of the current page stand, and how the page scrolls. UI thread.
#pragma once

#include "core/app.h"

namespace mrl {

/// A page laid out for one window; all in pixels.
struct PageLayout {
  std::vector<Placement> frame;  // on the window, the pane among them
  std::vector<Placement> page;   // on the pane, scrolled
  Cards cards;                   // on the pane, scrolled
  int extent = 0;                // the height of the whole page
  int paneHeight = 0;
  int scroll = 0;  // what was asked for, within the range
};

/// `page` is 0 to 4, `client` the window's. Pure.
PageLayout layOut(Size client, int dpi, int page, int scroll);

/// Places everything anew for the window's present size and DPI.
void layoutPage(App& app);

/// Scrolls the page; a position outside the range counts as its nearer end. Pixels.
void scrollTo(App& app, int position);

/// Where a step leads along `bar`, unless it names a place; lines and pages in pixels.
int positionAfter(ScrollStep step, const ScrollInfo& bar, int line, int page);
/// The page's scroll bar; `dropped` is where a Drop happened.
void scrollPage(App& app, ScrollStep step, int dropped = 0);
/// The mouse wheel; 120 is a notch, positive is away from the user. Parts of a pixel add up.
void turnWheel(App& app, int delta);

/// The keyboard came to the control: the page scrolls as far as it takes to see all of it.
void bringIntoSight(App& app, int id);

/// The window came to a monitor of another DPI, where the system suggests `rect` for it.
void onSettingsDpiChanged(App& app, int dpi, const Rect& rect);

}  // namespace mrl
