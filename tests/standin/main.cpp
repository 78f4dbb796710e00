// The stand-in presentation program, used by tests and trial runs in place of a real one. Built as
// powerpnt.exe and wpp.exe, because presentation programs are recognised by their image name.
#include <windows.h>

#include "standin/commands.h"
#include "standin/control_window.h"
#include "standin/stand_in.h"

namespace {

/// Exit codes: 0 after "quit" or a registration, 1 if COM or the registry fails.
int run(const mrl::standin::Options& options) {
  using namespace mrl::standin;
  if (options.unregisterOnly) {
    unregisterProgIds(options.progIds);
    return 0;
  }
  if (!registerProgIds(options.progIds)) return 1;
  if (options.registerOnly) return 0;

  StandIn standIn(options);
  if (!standIn.server.announce(standIn)) return 1;
  const ControlWindow control(standIn);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!message.hwnd && message.message == kFreeze) Sleep(static_cast<DWORD>(message.wParam));
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR commandLine, int) {
  // A show must cover its monitor in physical pixels at any scale.
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const int code = run(mrl::standin::readOptions(mrl::standin::splitArguments(commandLine)));
  CoUninitialize();
  return code;
}
