// The window through which tests talk to the stand-in.
#pragma once

#include <windows.h>

namespace mrl::standin {

struct StandIn;

inline constexpr wchar_t kControlClass[] = L"Marlune.StandIn.Control";

/// A message-only window. A command comes as WM_COPYDATA (UTF-16, no terminator) whose WPARAM is a
/// window of the asker, and the reply goes there the same way before the asker's send returns.
/// The window's title is the ProgIDs, parted by blanks. It comes last at start, so whoever finds it
/// finds the stand-in ready.
class ControlWindow {
 public:
  explicit ControlWindow(StandIn& standIn);
  ControlWindow(const ControlWindow&) = delete;
  ~ControlWindow() { DestroyWindow(window); }

 private:
  HWND window = nullptr;
};

}  // namespace mrl::standin
