#include "core/tray_win.h"

#include <shellapi.h>

#include <algorithm>
#include <iterator>

#include "resources/resource_ids.h"

namespace mrl {
namespace {

constexpr UINT kIconId = 1;
constexpr wchar_t kTip[] = L"Marlune · 单击设置";

static_assert(sizeof(NOTIFYICONDATAW) == 976);

NOTIFYICONDATAW iconOf(HWND window) {
  NOTIFYICONDATAW data{};
  data.cbSize = sizeof data;
  data.hWnd = window;
  data.uID = kIconId;
  return data;
}

HICON trayIcon(HINSTANCE instance) {
  const HANDLE icon =
      LoadImageW(instance, MAKEINTRESOURCEW(MARLUNE_ICON), IMAGE_ICON,
                 GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED);
  return icon != nullptr ? static_cast<HICON>(icon) : LoadIconW(nullptr, IDI_APPLICATION);
}

}  // namespace

TrayWin::TrayWin(HINSTANCE programInstance, const ClockWindowWin& clockWindow)
    : instance(programInstance),
      clock(clockWindow),
      shellStarted(RegisterWindowMessageW(L"TaskbarCreated")) {}

bool TrayWin::add() {
  // The shell has fewer rights than the program, so its message would be blocked.
  ChangeWindowMessageFilterEx(clock.window(), shellStarted, MSGFLT_ALLOW, nullptr);
  return send(NIM_ADD);
}

bool TrayWin::refresh() { return send(NIM_MODIFY); }

bool TrayWin::send(DWORD request) const {
  NOTIFYICONDATAW data = iconOf(clock.window());
  data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
  data.uCallbackMessage = kTrayNotify;
  data.hIcon = trayIcon(instance);
  std::copy(std::begin(kTip), std::end(kTip), data.szTip);
  return Shell_NotifyIconW(request, &data) != FALSE;
}

void TrayWin::remove() {
  NOTIFYICONDATAW data = iconOf(clock.window());
  Shell_NotifyIconW(NIM_DELETE, &data);
}

}  // namespace mrl
