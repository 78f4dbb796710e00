#pragma once

#include <windows.h>

#include "core/tray.h"
#include "overlay/clock_window_win.h"

namespace mrl {

/// Sent by the icon to the clock's window; the lParam is the mouse message.
inline constexpr UINT kTrayNotify = WM_APP + 1;
/// The same message, re-posted to ourselves. The shell sends kTrayNotify, so it can arrive inside a
/// blocking call into a presentation program, where a menu's own message loop must not run.
inline constexpr UINT kTrayAction = WM_APP + 2;

class TrayWin : public Tray {
 public:
  /// `instance` contains the icon resource; `clock` must outlive this object.
  TrayWin(HINSTANCE instance, const ClockWindowWin& clock);

  bool add() override;
  bool refresh() override;
  void remove() override;

  /// The message with which a shell announces itself.
  UINT shellStartedMessage() const { return shellStarted; }

 private:
  bool send(DWORD request) const;

  HINSTANCE instance;
  const ClockWindowWin& clock;
  UINT shellStarted;
};

}  // namespace mrl
