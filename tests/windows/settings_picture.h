// Compares the real program's settings window with what it should look like in its current state.
//
// The state is read from the controls: texts, checks, rows, marks, focus. What only the form knows
// is passed by the test. See expected_picture.h for what counts as equal. Each control is a region
// named by its id; so are the window around the controls and the pane with its cards. Excluded:
// title bar and frame, scroll bars, the clock in the preview, and the inside of the focused box,
// where the caret blinks.
#pragma once

#include <map>
#include <string>

#include "settings_window/control_look.h"
#include "windows/expected_picture.h"
#include "windows/settings_hand.h"

namespace mrl {

/// State that can't be read from the controls.
struct KnownState {
  bool isTextAlone = false;  // the preview has no background
  bool hasUnsavedInput = false;
  int boxInPieces = 0;  // id of a box whose text is drawn in overlapping pieces
};

class SettingsPicture : public SettingsHand {
 protected:
  /// Waits until the window looks as expected. A failure lists the regions that differ and saves
  /// both pictures beside those of the pages.
  void expectAsDrawn(const KnownState& known = {});
  /// The same for the open list of a combo.
  void expectDroppedAsDrawn(int combo);

  /// Sets the focus without a key or a click.
  void giveFocus(int id) const;
  /// Scrolls to the end of the page.
  void toEnd() const { ask(pane(), WM_VSCROLL, SB_BOTTOM); }

 private:
  struct Handles {
    HWND window = nullptr;
    HWND pane = nullptr;
    HWND focus = nullptr;
    int page = 0;
    std::map<int, HWND> controls;
  };
  Handles handlesNow() const;
  HWND handle(int id) const { return handles.controls.at(id); }

  void drawAll(ExpectedPicture& picture, const KnownState& known) const;
  void drawOne(ExpectedPicture& picture, const Control& row, const KnownState& known) const;
  void drawStatic(ExpectedPicture& picture, const Control& row) const;
  void drawBox(ExpectedPicture& picture, const Control& row, const KnownState& known) const;
  void writeInBox(ExpectedPicture& picture, const Control& row) const;
  void drawList(ExpectedPicture& picture) const;
  void drawHost(ExpectedPicture& picture, const KnownState& known) const;
  ControlState stateOf(int id) const;
  /// In client coordinates of the settings window.
  Rect outerRect(HWND child) const;
  Rect clientRect(HWND child) const;
  /// The part of `rect` that the pane doesn't clip.
  Rect seenOf(const Control& row, const Rect& rect) const;
  void enter(ExpectedPicture& picture, const Control& row, const Rect& rect) const;
  std::string differencesNow(const KnownState& known, bool keepPictures);

  Handles handles;
};

}  // namespace mrl
