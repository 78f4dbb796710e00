// The tests see the screen as the program does: in pixels, whatever its resolution.
#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "windows/shell_standin.h"

namespace {

/// Takes the icons of all programs. Wine would show them in a window of its own, which comes and
/// goes under the mouse and takes the focus.
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
  testing::AddGlobalTestEnvironment(new Taskbar);  // GoogleTest owns it
  return RUN_ALL_TESTS();
}
