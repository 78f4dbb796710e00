// The real program's settings window seen from outside: finds controls by id, opens pages by click.
// Windows only.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/window_classes_win.h"
#include "settings_window/control_table.h"
#include "windows/picture.h"
#include "windows/program.h"

namespace mrl {

/// For windows of any process. textOf() sends a message, because only the owning process can read
/// an edit box's text directly.
std::wstring classOf(HWND window);
std::wstring textOf(HWND window);
/// On the screen, once the program has done what it is at: while a page is laid out, Wine makes
/// each combo as tall as its list for a moment.
RECT restingPlaceOf(HWND window);
/// The same, in client pixels of the parent.
Rect placeInParent(HWND window);
/// Sends a message to a window of any process; 0 if it doesn't respond.
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// A program with its settings window open. Every wait has a time limit.
class SettingsScreen : public testing::Test {
 protected:
  /// Starts the program with `settings`, but with the clock at the right edge of the screen, where
  /// it covers nothing, and with a random port in place of the default one. Call it first, in
  /// ASSERT_NO_FATAL_FAILURE.
  void open(Settings settings = {});
  /// Starts it with what program.prepare...() has written.
  void openAsItIs();

  HWND window() const { return program.settingsWindow(); }
  HWND pane() const { return FindWindowExW(window(), nullptr, kContentClass, nullptr); }
  /// Number of settings windows that are shown.
  int settingsWindows() const;
  /// Finds a control at any depth; null if there is none.
  HWND control(int id) const;

  std::wstring text(int id) const { return textOf(control(id)); }
  Rect rect(int id) const { return placeInParent(control(id)); }
  /// Its own visibility, regardless of its parents.
  bool isVisible(int id) const;
  bool isEnabled(int id) const { return IsWindowEnabled(control(id)) != FALSE; }
  bool isChecked(int id) const { return ask(control(id), BM_GETCHECK) == BST_CHECKED; }
  /// Selected row of a combo; -1 if none.
  int row(int id) const { return static_cast<int>(ask(control(id), CB_GETCURSEL)); }
  bool isMarked(int id, const wchar_t* property) const;
  /// Id of the program's focused control; 0 if there is none.
  int focusedId() const;
  /// 0 to 4, read from the hidden tab control.
  int page() const;
  /// Derived from the position of the page's title: only the program itself can query its scroll
  /// bar.
  int scrollPosition() const;
  int dpi() const { return static_cast<int>(GetDpiForWindow(window())); }
  Size clientSize() const;

  /// Screen pixels.
  POINT middleOf(int id) const;
  /// Clicks its middle. REQUIRES: that is visible.
  void click(int id) const { clickAt(middleOf(id)); }
  /// Clicks the section in the sidebar and waits until only its page is shown.
  [[nodiscard]] bool openPage(int index) const;
  /// True if the page's controls are visible and those of other pages are not.
  bool showsOnly(int index) const;
  /// A picture of the window, with the mouse moved away.
  Picture settledShot() const;
  /// Resizes the window as dragging its frame would.
  void resize(Size outer) const;

  Program program;

 private:
  // As last seen: each walk through them takes Wine hundreds of calls of its server.
  mutable std::map<int, HWND> controls;
};

}  // namespace mrl
