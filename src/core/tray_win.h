#pragma once

#include <windows.h>

#include "core/tray.h"
#include "overlay/clock_window_win.h"

namespace mrl {

/// What the icon sends to the clock's window; the lParam is the mouse message.
inline constexpr UINT kTrayNotify = WM_APP + 1;
/// The same, posted on to oneself. The shell's message is sent, so it can come while a call into a
/// presentation program waits; a menu's own loop must not run below that call.
inline constexpr UINT kTrayAction = WM_APP + 2;

class TrayWin : public Tray {
 public:
  /// `instance` holds the icon; `clock` must outlive this object.
  TrayWin(HINSTANCE instance, const ClockWindowWin& clock);

  bool add() override;
  bool refresh() override;
  void remove() override;

  /// The message by which a new shell makes itself known.
  UINT shellStartedMessage() const { return shellStarted; }

 private:
  bool send(DWORD request) const;

  HINSTANCE instance;
  const ClockWindowWin& clock;
  UINT shellStarted;
};

}  // namespace mrl
