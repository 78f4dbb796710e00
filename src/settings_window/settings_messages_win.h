// What the messages of the settings window and of its own kinds of children mean. UI thread.
#pragma once

#include <windows.h>

#include <optional>

#include "core/app.h"
#include "overlay/clock_painter_win.h"
#include "settings_window/settings_view_win.h"

namespace mrl {

class SettingsMessagesWin {
 public:
  SettingsMessagesWin(App& program, SettingsViewWin& settingsView, ClockPainterWin& clockPainter)
      : app(program), view(settingsView), painter(clockPainter) {}

  /// A message of a window of one of the program's classes; empty when it is none of this window's
  /// or is left to the system.
  std::optional<LRESULT> handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  /// A message of the loop, before anything else sees it. True when it goes no further.
  bool takesFromLoop(MSG& message);

 private:
  std::optional<LRESULT> onFrame(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> onShared(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> onPane(HWND window, UINT message);
  std::optional<LRESULT> onHost(HWND window, UINT message, WPARAM wParam);
  std::optional<LRESULT> onPreview(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void onWheel(WPARAM wParam, LPARAM lParam);
  void keepFocus(HWND window);
  [[nodiscard]] bool giveFocusBack(HWND window) const;

  App& app;
  SettingsViewWin& view;
  ClockPainterWin& painter;
  bool listHasWheel = false;   // a turn of the wheel is with the list of files
  HWND focusBefore = nullptr;  // the control that had the keyboard when another window took it
};

}  // namespace mrl
