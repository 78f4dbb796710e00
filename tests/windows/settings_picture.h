// The settings window of the real program beside what it should look like in its present state.
//
// The state is asked of the controls themselves: texts, checks, rows, marks, who has the keyboard.
// What only the form knows is told by the test. See expected_picture.h for what counts as equal.
// Every control is a region of its own, by its number; so are the window around the controls and
// the pane with its cards. Not looked at: title bar and frame, scroll bars, what the preview shows
// of the clock, and the inside of the box that has the keyboard, where the caret blinks.
#pragma once

#include <map>
#include <string>

#include "settings_window/control_look.h"
#include "windows/expected_picture.h"
#include "windows/settings_hand.h"

namespace mrl {

/// What no control tells.
struct KnownState {
  bool isTextAlone = false;  // the preview shows no background of its own
  bool hasUnsavedInput = false;
  int boxInPieces = 0;  // whose text the system writes in pieces that cover each other's edges
};

class SettingsPicture : public SettingsHand {
 protected:
  /// Waits until the screen shows the window as drawn. A failure names the regions that differ, and
  /// leaves both pictures beside those of the pages.
  void expectAsDrawn(const KnownState& known = {});
  /// The same for the list that the combo has dropped down.
  void expectDroppedAsDrawn(int combo);

  /// Gives it the keyboard without a key or a click.
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
  /// In the window's client area.
  Rect outerRect(HWND child) const;
  Rect clientRect(HWND child) const;
  /// Of it, what the pane does not cut off.
  Rect seenOf(const Control& row, const Rect& rect) const;
  void enter(ExpectedPicture& picture, const Control& row, const Rect& rect) const;
  std::string differencesNow(const KnownState& known, bool keepPictures);

  Handles handles;
};

}  // namespace mrl
