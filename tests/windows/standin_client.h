// Starts and controls the stand-in presentation program from a test. Windows only.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>

namespace mrl::standin {

/// The folder of the test's executable, which also contains the stand-ins and the program.
std::wstring executableFolder();

/// One stand-in process. Owned by the thread that created it. Every wait has a time limit.
class Client {
 public:
  Client();
  Client(const Client&) = delete;
  /// Ends the process and waits until it is gone.
  ~Client();

  /// Starts `image` ("powerpnt.exe", "wpp.exe") of executableFolder() and waits until it is ready.
  /// REQUIRES: not started or attached yet.
  [[nodiscard]] bool start(const std::wstring& image, const std::wstring& arguments = L"");
  /// Waits for a stand-in that was started otherwise, e.g. by COM, under this ProgID, and takes
  /// ownership of its process.
  [[nodiscard]] bool attach(const std::wstring& progId);

  /// Returns the reply, or "error: no answer" if the stand-in is gone or takes too long.
  std::wstring command(const std::wstring& text);
  /// Whether a show of the deck at `path` runs.
  bool shows(const std::wstring& path);

  /// Whether it responds within half a second; false while it is inside a call.
  bool answers() const;

  DWORD processId() const { return process ? GetProcessId(process) : 0; }
  /// Waits for the process to exit; false on time-out.
  [[nodiscard]] bool waitForEnd();
  /// Kills the process, as in a crash, and waits until it is gone.
  void kill();

 private:
  [[nodiscard]] bool waitForControl(const std::wstring& progId);
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HANDLE process = nullptr;
  HWND control = nullptr;      // the stand-in's
  HWND replyWindow = nullptr;  // ours
  std::wstring reply;
};

/// Dispatches messages until `condition` holds; false on time-out. The longer it takes, the less
/// often it looks: each look costs the processor that the awaited program needs.
template <typename Condition>
[[nodiscard]] bool waitUntil(Condition&& condition, DWORD limitMs = 10'000) {
  const ULONGLONG startMs = GetTickCount64();
  while (!condition()) {
    const ULONGLONG elapsedMs = GetTickCount64() - startMs;
    if (elapsedMs > limitMs) return false;
    const auto pauseMs = static_cast<DWORD>(std::clamp<ULONGLONG>(elapsedMs / 8, 10, 50));
    MsgWaitForMultipleObjects(0, nullptr, FALSE, pauseMs, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  return true;
}

}  // namespace mrl::standin
