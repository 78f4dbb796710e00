// Starts the stand-in presentation program from a test, and steers it. Windows only.
#pragma once

#include <windows.h>

#include <string>

namespace mrl::standin {

/// The folder of the test's own executable, where the stand-ins and the timer are built as well.
std::wstring executableFolder();

/// One stand-in process. Belongs to the thread that made it. Every wait has a limit.
class Client {
 public:
  Client();
  Client(const Client&) = delete;
  /// Ends the process, and waits until it is gone.
  ~Client();

  /// Starts `image` ("powerpnt.exe", "wpp.exe") of executableFolder() and waits until it is ready.
  /// REQUIRES: not started or attached yet.
  [[nodiscard]] bool start(const std::wstring& image, const std::wstring& arguments = L"");
  /// Takes over the stand-in that somebody else started under this ProgID, as COM does, and from
  /// then on owns its process. Waits for it.
  [[nodiscard]] bool attach(const std::wstring& progId);

  /// The reply, or "error: no answer" when the stand-in is gone or takes too long.
  std::wstring command(const std::wstring& text);

  /// False while a call holds it. Waits for half a second.
  bool answers() const;

  DWORD processId() const { return process ? GetProcessId(process) : 0; }
  /// True once the process has ended; waits for that for a while.
  [[nodiscard]] bool waitForEnd();
  /// The process crashes. Waits until it is gone.
  void kill();

 private:
  [[nodiscard]] bool waitForControl(const std::wstring& progId);
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HANDLE process = nullptr;
  HWND control = nullptr;      // the stand-in's
  HWND replyWindow = nullptr;  // ours
  std::wstring reply;
};

/// Handles messages until `condition` holds; false when it doesn't within a few seconds.
template <typename Condition>
[[nodiscard]] bool waitUntil(Condition&& condition, DWORD limitMs = 10'000) {
  const ULONGLONG endMs = GetTickCount64() + limitMs;
  while (!condition()) {
    if (GetTickCount64() > endMs) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  return true;
}

}  // namespace mrl::standin
