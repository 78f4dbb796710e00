// Runs the tests with per-monitor DPI awareness, so that they see the same pixels as the program.
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "windows/shell_standin.h"

namespace {

/// Receives the icons of all programs. Otherwise Wine shows them in a window of its own, which
/// appears under the mouse and takes the focus.
class Taskbar : public testing::Environment {
 public:
  void SetUp() override {
    const HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    thread = std::thread([this, ready] {
      threadId = GetCurrentThreadId();
      const mrl::ShellStandIn shell;
      SetEvent(ready);
      MSG message;
      while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    });
    WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
  }
  void TearDown() override {
    PostThreadMessageW(threadId, WM_QUIT, 0, 0);
    thread.join();
  }

 private:
  std::thread thread;
  DWORD threadId = 0;
};

}  // namespace

int main(int count, char** arguments) {
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  testing::InitGoogleTest(&count, arguments);
  testing::AddGlobalTestEnvironment(new Taskbar);  // owned by GoogleTest
  return RUN_ALL_TESTS();
}
