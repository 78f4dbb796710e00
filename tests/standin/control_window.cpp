// Commands in, replies out.
#include "standin/control_window.h"

#include <string>

#include "standin/commands.h"
#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* standIn = reinterpret_cast<StandIn*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message != WM_COPYDATA || !standIn) return DefWindowProcW(window, message, wParam, lParam);
  const auto* request = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  std::wstring reply = runCommand(*standIn, std::wstring(static_cast<wchar_t*>(request->lpData),
                                                         request->cbData / sizeof(wchar_t)));
  COPYDATASTRUCT answer{0, static_cast<DWORD>(reply.size() * sizeof(wchar_t)), reply.data()};
  SendMessageW(reinterpret_cast<HWND>(wParam), WM_COPYDATA, reinterpret_cast<WPARAM>(window),
               reinterpret_cast<LPARAM>(&answer));
  return TRUE;
}

}  // namespace

ControlWindow::ControlWindow(StandIn& standIn) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kControlClass;
  RegisterClassExW(&windowClass);
  std::wstring title;
  for (const std::wstring& progId : standIn.options.progIds)
    title += (title.empty() ? L"" : L" ") + progId;
  window = CreateWindowExW(0, kControlClass, title.c_str(), 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                           windowClass.hInstance, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&standIn));
}

}  // namespace mrl::standin
