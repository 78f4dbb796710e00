#include "windows/shell_standin.h"

#include <shellapi.h>

#include <algorithm>
#include <cstring>

namespace mrl {
namespace {

constexpr wchar_t kClass[] = L"Shell_TrayWnd";

/// The structure with which Wine passes an icon.
struct IconData {
  LONG window;
  UINT id;
  UINT flags;
  UINT callbackMessage;
  WCHAR tip[128];
  DWORD state;
  DWORD stateMask;
  WCHAR info[256];
  UINT timeout;
  WCHAR infoTitle[64];
  DWORD infoFlags;
  GUID item;
  UINT width;
  UINT height;
};

ShellStandIn::Request requestFrom(const COPYDATASTRUCT& data, HWND sender) {
  IconData icon{};
  std::memcpy(&icon, data.lpData, std::min<size_t>(sizeof icon, data.cbData));
  return {data.dwData,
          sender,
          icon.id,
          icon.flags,
          icon.callbackMessage,
          icon.tip,
          {static_cast<int>(icon.width), static_cast<int>(icon.height)}};
}

}  // namespace

ShellStandIn::ShellStandIn() {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kClass;
  RegisterClassExW(&windowClass);  // fails if already registered: harmless
  // Programs use the first one they find, so it must be above a real taskbar.
  window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, kClass, L"",
                           WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, windowClass.hInstance, this);
  SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

ShellStandIn::~ShellStandIn() { DestroyWindow(window); }

int ShellStandIn::count(ULONG_PTR kind) const {
  int found = 0;
  for (const Request& request : requests) found += request.kind == kind ? 1 : 0;
  return found;
}

LRESULT CALLBACK ShellStandIn::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  if (message != WM_COPYDATA) return DefWindowProcW(window, message, wParam, lParam);
  auto* self = reinterpret_cast<ShellStandIn*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  self->requests.push_back(requestFrom(*data, reinterpret_cast<HWND>(wParam)));
  return self->take(self->requests.back()) ? TRUE : FALSE;
}

bool ShellStandIn::take(const Request& request) {
  const bool adds = request.kind == NIM_ADD;
  if (!accepts || adds == hasIcon) return false;
  hasIcon = request.kind != NIM_DELETE;
  return true;
}

}  // namespace mrl
