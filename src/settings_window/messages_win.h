// Message handling of the settings window and of those of its children whose class is ours. UI
// thread.
#pragma once

#include <windows.h>

#include <optional>

#include "core/app.h"
#include "overlay/clock_painter_win.h"
#include "settings_window/view_win.h"

namespace mrl {

class SettingsMessagesWin {
 public:
  SettingsMessagesWin(App& program, SettingsViewWin& settingsView, ClockPainterWin& clockPainter)
      : app(program), view(settingsView), painter(clockPainter) {}

  /// Handles a message of a window of one of the program's classes. Empty if the window is none of
  /// these, or the message is left to the system.
  std::optional<LRESULT> handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  /// Filters a message before the message loop dispatches it: shortcuts and dialog keys. True if it
  /// was handled and must not be dispatched.
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
  bool listHasWheel = false;   // a wheel message has been sent to the list of files
  HWND focusBefore = nullptr;  // the control with the focus when the window was deactivated
};

}  // namespace mrl
