// The window through which tests control the stand-in.
#pragma once

#include <windows.h>

namespace mrl::standin {

struct StandIn;

inline constexpr wchar_t kControlClass[] = L"Marlune.StandIn.Control";

/// A message-only window. A command arrives as WM_COPYDATA (UTF-16, no terminator) whose WPARAM is
/// a window of the sender; the reply is sent there the same way before the sender's SendMessage
/// returns. The title lists the ProgIDs, separated by spaces. Created last at start-up, so once it
/// exists the stand-in is ready.
class ControlWindow {
 public:
  explicit ControlWindow(StandIn& standIn);
  ControlWindow(const ControlWindow&) = delete;
  ~ControlWindow() { DestroyWindow(window); }

 private:
  HWND window = nullptr;
};

}  // namespace mrl::standin
