// The settings window of the real program, seen from outside: its controls by their ids, its pages
// by a click. Windows only.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "base/geometry.h"
#include "base/window_classes_win.h"
#include "settings_window/control_table.h"
#include "windows/picture.h"
#include "windows/program.h"

namespace mrl {

/// Of any process's window. The text of an edit box too, which only its own process may read
/// without asking it.
std::wstring classOf(HWND window);
std::wstring textOf(HWND window);
/// In pixels of the parent's client area.
Rect placeInParent(HWND window);
/// Handles of another process's window answer as its own do; 0 when it does not answer at all.
LRESULT ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// A program with its settings window open. Every wait has a limit.
class SettingsScreen : public testing::Test {
 protected:
  /// Starts the program over `settings`, but for the clock's place: it stands at the right edge of
  /// the screen, where it hides nothing. To be called first, within ASSERT_NO_FATAL_FAILURE.
  void open(Settings settings = {});
  /// Over what program.prepare...() has put there.
  void openAsItIs();

  HWND window() const { return program.settingsWindow(); }
  HWND pane() const { return FindWindowExW(window(), nullptr, kContentClass, nullptr); }
  /// How many of them the program shows.
  int settingsWindows() const;
  /// Anywhere below the window; null where there is none.
  HWND control(int id) const;

  std::wstring text(int id) const { return textOf(control(id)); }
  Rect rect(int id) const { return placeInParent(control(id)); }
  /// Shown itself, whatever its parents are.
  bool isVisible(int id) const;
  bool isEnabled(int id) const { return IsWindowEnabled(control(id)) != FALSE; }
  bool isChecked(int id) const { return ask(control(id), BM_GETCHECK) == BST_CHECKED; }
  /// Of a combo, -1 for none.
  int row(int id) const { return static_cast<int>(ask(control(id), CB_GETCURSEL)); }
  bool isMarked(int id, const wchar_t* property) const;
  /// Which control of the program has the keyboard; 0 for none of ours.
  int focusedId() const;
  /// 0 to 4, as the tab control has it, which nobody sees.
  int page() const;
  /// Told by where the page's title stands: only the program itself can ask its scroll bar.
  int scrollPosition() const;
  int dpi() const { return static_cast<int>(GetDpiForWindow(window())); }
  Size clientSize() const;

  /// On the screen.
  POINT middleOf(int id) const;
  /// With the mouse, in its middle. REQUIRES: it lies within what can be seen.
  void click(int id) const { clickAt(middleOf(id)); }
  /// Clicks on the section in the sidebar and waits until its page stands there alone.
  [[nodiscard]] bool openPage(int index) const;
  /// The page's controls are visible, those of the other pages are not.
  bool showsOnly(int index) const;
  /// What the window looks like, with the mouse out of its way.
  Picture settledShot() const;
  /// As the frame's edge would do it.
  void resize(Size outer) const;

  Program program;
};

}  // namespace mrl
