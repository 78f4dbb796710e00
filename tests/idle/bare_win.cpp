// The least that a program with a clock's heartbeat can be: one hidden window, one timer of 100 ms
// that does nothing, a plain message loop. The measure of what waiting costs. Told "still" it has
// no timer, so that what the Wine server does by itself can be seen.
#include <windows.h>

#include <string_view>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* arguments, int) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = L"Marlune.Bare";
  RegisterClassExW(&windowClass);
  const HWND window = CreateWindowExW(0, L"Marlune.Bare", L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                                      nullptr, instance, nullptr);
  if (window == nullptr) return 1;
  if (!std::wstring_view(arguments).starts_with(L"still")) SetTimer(window, 1, 100, nullptr);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
