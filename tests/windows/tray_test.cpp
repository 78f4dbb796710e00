// The tray icon, seen from the shell: a window of the test's own stands in for the taskbar, under
// the name by which programs find it.
#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "core/command_ids.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class ShellStandIn {
 public:
  struct Request {
    ULONG_PTR kind;
    HWND sender;
    std::string bytes;
  };

  ShellStandIn() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"Shell_TrayWnd";
    RegisterClassExW(&windowClass);
    // Programs take the first one they find, so it must lie above a real taskbar.
    window =
        CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, L"Shell_TrayWnd", L"",
                        WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, windowClass.hInstance, this);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  ShellStandIn(const ShellStandIn&) = delete;
  ~ShellStandIn() {
    DestroyWindow(window);
    UnregisterClassW(L"Shell_TrayWnd", GetModuleHandleW(nullptr));
  }

  int count(ULONG_PTR kind) const {
    int found = 0;
    for (const Request& request : requests) found += request.kind == kind ? 1 : 0;
    return found;
  }

  bool accepts = true;
  std::vector<Request> requests;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
      const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      SetWindowLongPtrW(window, GWLP_USERDATA,
                        reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    if (message != WM_COPYDATA) return DefWindowProcW(window, message, wParam, lParam);
    auto* self = reinterpret_cast<ShellStandIn*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    self->requests.push_back({data->dwData,
                              reinterpret_cast<HWND>(wParam),
                              {static_cast<const char*>(data->lpData), data->cbData}});
    return self->accepts ? TRUE : FALSE;
  }

  HWND window = nullptr;
};

class TrayTest : public testing::Test {
 protected:
  bool additions(int number) {
    return waitUntil([&] { return shell.count(NIM_ADD) == number; });
  }

  ShellStandIn shell;
  Program program;
};

TEST_F(TrayTest, TheIconIsAddedAtStartUpWithItsTip) {
  ASSERT_TRUE(program.start());
  ASSERT_EQ(shell.count(NIM_ADD), 1);
  EXPECT_EQ(shell.requests.front().sender, program.clock());
  const std::wstring tip = L"Marlune · 单击设置";
  const std::string tipBytes(reinterpret_cast<const char*>(tip.c_str()),
                             (tip.size() + 1) * sizeof(wchar_t));
  EXPECT_NE(shell.requests.front().bytes.find(tipBytes), std::string::npos);
}

TEST_F(TrayTest, AShellThatComesLateGetsTheIconByItself) {
  shell.accepts = false;
  ASSERT_TRUE(program.start());
  ASSERT_EQ(shell.count(NIM_ADD), 1);
  const ULONGLONG start = GetTickCount64();
  shell.accepts = true;
  EXPECT_TRUE(additions(2));
  EXPECT_LT(GetTickCount64() - start, 8000u);
}

TEST_F(TrayTest, AShellThatRestartsGetsTheIconAgain) {
  ASSERT_TRUE(program.start());
  PostMessageW(program.clock(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  EXPECT_TRUE(additions(2));
}

TEST_F(TrayTest, TheIconGoesWithTheProgram) {
  ASSERT_TRUE(program.start());
  PostMessageW(program.clock(), WM_COMMAND, kCommandExit, 0);
  EXPECT_TRUE(waitUntil([&] { return shell.count(NIM_DELETE) == 1; }));
  DWORD exitCode = 99;
  EXPECT_TRUE(program.waitForEnd(exitCode));
}

}  // namespace
}  // namespace mrl
