#include "presentation/window_system_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <functional>

#include "base/geometry_win.h"
#include "base/replaced_import_win.h"
#include "base/unique_handle.h"
#include "presentation/raise_window.h"

namespace mrl {
namespace {

struct WindowTraits {
  static HWND none() { return nullptr; }
  static void close(HWND window) { DestroyWindow(window); }
};

/// A window of this process that records the keys it receives.
class TestWindow {
 public:
  explicit TestWindow(const std::wstring& title, std::wstring classNameIn = L"Marlune.Test.Window")
      : className(std::move(classNameIn)) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className.c_str();
    RegisterClassW(&windowClass);
    window.reset(CreateWindowExW(0, className.c_str(), title.c_str(), WS_POPUP, 100, 110, 300, 200,
                                 nullptr, nullptr, windowClass.hInstance, nullptr));
    SetWindowLongPtrW(window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  TestWindow(const TestWindow&) = delete;
  ~TestWindow() {
    window.reset();
    UnregisterClassW(className.c_str(), GetModuleHandleW(nullptr));
  }
  [[nodiscard]] HWND hwnd() const { return window.get(); }
  [[nodiscard]] WindowHandle handle() const { return handleFrom(window.get()); }
  void destroy() { window.reset(); }

  std::vector<WindowSystem::KeyEvent> keys;
  bool gotExtendedKey = false;  // one of two keys with the same code

 private:
  static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wide, LPARAM narrow) {
    auto* self = reinterpret_cast<TestWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    const bool isKey = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    if (isKey && (HIWORD(narrow) & KF_EXTENDED)) self->gotExtendedKey = true;
    switch (message) {
      case WM_KEYDOWN:
      case WM_SYSKEYDOWN: self->keys.push_back({static_cast<uint16_t>(wide), false}); return 0;
      case WM_KEYUP:
      case WM_SYSKEYUP: self->keys.push_back({static_cast<uint16_t>(wide), true}); return 0;
    }
    return DefWindowProcW(hwnd, message, wide, narrow);
  }

  std::wstring className;
  UniqueHandle<WindowTraits> window;
};

/// Dispatches messages until the condition holds; false on time-out.
bool pumpUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  return true;
}

class WindowSystemWinTest : public testing::Test {
 protected:
  WindowSystemWin system;

  bool isTopmost(const TestWindow& window) {
    return GetWindowLongPtrW(window.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST;
  }
  bool bringForward(const TestWindow& window) {
    system.show(window.handle());
    system.setForeground(window.handle());
    return pumpUntil([&] { return system.foreground() == window.handle(); });
  }
};

TEST_F(WindowSystemWinTest, AllTopLevelWindowsAreListedTheTopmostFirst) {
  const TestWindow below(L"below");
  const TestWindow above(L"above");
  system.show(below.handle());
  system.show(above.handle());
  system.bringToTop(above.handle());
  const auto windows = system.topLevelWindows();
  const auto first = std::find(windows.begin(), windows.end(), above.handle());
  const auto second = std::find(windows.begin(), windows.end(), below.handle());
  ASSERT_NE(second, windows.end());
  EXPECT_LT(first, second);
}

TEST_F(WindowSystemWinTest, TheWindowsInsideAWindowAreListedAtAnyDepthAndNoOthers) {
  const TestWindow outer(L"outer");
  const TestWindow other(L"other");
  const auto addInside = [](HWND parent) {
    return CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 1, 1, parent, nullptr, nullptr,
                           nullptr);
  };
  const HWND inner = addInside(outer.hwnd());
  const HWND innermost = addInside(inner);
  addInside(other.hwnd());
  EXPECT_EQ(system.windowsInside(outer.handle()),
            (std::vector{handleFrom(inner), handleFrom(innermost)}));
}

BOOL CALLBACK oneWindowInside(HWND window, WNDENUMPROC visit, LPARAM list) {
  return visit(window ? window : GetDesktopWindow(), list);
}

// A null handle lists nothing on some systems and the whole desktop on others.
TEST_F(WindowSystemWinTest, InsideNoWindowTheSystemIsNotEvenAsked) {
  const ReplacedImport<decltype(oneWindowInside)> inside{"EnumChildWindows", oneWindowInside};
  const TestWindow window(L"a");
  EXPECT_EQ(system.windowsInside(window.handle()), std::vector{window.handle()});
  EXPECT_TRUE(system.windowsInside({}).empty());
}

TEST_F(WindowSystemWinTest, AWindowIsVisibleOnceShown) {
  const TestWindow window(L"a");
  EXPECT_FALSE(system.isVisible(window.handle()));
  system.show(window.handle());
  EXPECT_TRUE(system.isVisible(window.handle()));
}

TEST_F(WindowSystemWinTest, AMinimisedWindowIsIconicUntilRestored) {
  const TestWindow window(L"a");
  system.show(window.handle());
  ShowWindow(window.hwnd(), SW_MINIMIZE);
  EXPECT_TRUE(system.isIconic(window.handle()));
  system.restore(window.handle());
  EXPECT_FALSE(system.isIconic(window.handle()));
}

TEST_F(WindowSystemWinTest, AMinimisedWindowIsStillAVisibleOne) {
  const TestWindow window(L"a");
  system.show(window.handle());
  ShowWindow(window.hwnd(), SW_MINIMIZE);
  EXPECT_TRUE(system.isVisible(window.handle()));
}

TEST_F(WindowSystemWinTest, TheImageNameIsTheFullPathOfTheProgram) {
  const TestWindow window(L"a");
  wchar_t path[32768];
  const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
  EXPECT_EQ(system.imageName(window.handle()), std::u16string(path, path + length));
}

TEST_F(WindowSystemWinTest, ATitleComesBackAsItIs) {
  const TestWindow window(L"幻灯片放映 - A.pptx");
  EXPECT_EQ(system.title(window.handle()), u"幻灯片放映 - A.pptx");
}

TEST_F(WindowSystemWinTest, AWindowWithoutATitleHasAnEmptyOne) {
  const TestWindow window(L"");
  EXPECT_EQ(system.title(window.handle()), u"");
}

TEST_F(WindowSystemWinTest, ATitleIsCutAt2047Characters) {
  const TestWindow exact(std::wstring(2047, L'x'));
  EXPECT_EQ(system.title(exact.handle()), std::u16string(2047, u'x'));
  const TestWindow longer(std::wstring(2048, L'y'));
  EXPECT_EQ(system.title(longer.handle()), std::u16string(2047, u'y'));
}

TEST_F(WindowSystemWinTest, AClassNameComesBackAsItIs) {
  const TestWindow window(L"a", L"screenClass");
  EXPECT_EQ(system.className(window.handle()), u"screenClass");
}

TEST_F(WindowSystemWinTest, TheLongestClassNameComesBackWhole) {
  const std::wstring longest(255, L'c');
  const TestWindow window(L"a", longest);
  EXPECT_EQ(system.className(window.handle()), std::u16string(255, u'c'));
}

TEST_F(WindowSystemWinTest, AWindowHasItsRectangle) {
  const TestWindow window(L"a");
  EXPECT_EQ(system.rect(window.handle()), (Rect{100, 110, 400, 310}));
}

TEST_F(WindowSystemWinTest, TheMonitorRectangleIsThatOfTheWholeScreen) {
  const TestWindow window(L"a");
  EXPECT_EQ(system.monitorRect(window.handle()),
            (Rect{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}));
}

TEST_F(WindowSystemWinTest, AWindowOutsideAllMonitorsHasTheNearestOne) {
  const TestWindow window(L"a");
  SetWindowPos(window.hwnd(), nullptr, -9000, -9000, 10, 10, SWP_NOZORDER);
  EXPECT_EQ(system.monitorRect(window.handle()).right, GetSystemMetrics(SM_CXSCREEN));
}

TEST_F(WindowSystemWinTest, AWindowThatIsGoneGivesNothing) {
  TestWindow window(L"a");
  system.show(window.handle());
  const WindowHandle gone = window.handle();
  EXPECT_TRUE(system.isWindow(gone));
  window.destroy();
  EXPECT_FALSE(system.isWindow(gone));
  EXPECT_FALSE(system.isVisible(gone));
  EXPECT_FALSE(system.isIconic(gone));
  EXPECT_EQ(system.imageName(gone), u"");
  EXPECT_EQ(system.title(gone), u"");
  EXPECT_EQ(system.className(gone), u"");
  EXPECT_EQ(system.rect(gone), Rect{});
}

TEST_F(WindowSystemWinTest, NoWindowAndANegativeHandleAreNoWindows) {
  EXPECT_FALSE(system.isWindow({}));
  EXPECT_FALSE(system.isWindow({-2147483644}));
}

TEST_F(WindowSystemWinTest, ChangesToAWindowThatIsGoneDoNothing) {
  system.show({-4});
  system.restore({-4});
  system.setTopmost({-4}, true);
  system.bringToTop({-4});
  system.setForeground({-4});
  EXPECT_NE(system.foreground(), WindowHandle{-4});
}

TEST_F(WindowSystemWinTest, TheTopmostBandIsEnteredAndLeftWithoutAMove) {
  const TestWindow window(L"a");
  system.setTopmost(window.handle(), true);
  EXPECT_TRUE(isTopmost(window));
  EXPECT_TRUE(system.isVisible(window.handle()));
  EXPECT_EQ(system.rect(window.handle()), (Rect{100, 110, 400, 310}));
  system.setTopmost(window.handle(), false);
  EXPECT_FALSE(isTopmost(window));
  EXPECT_EQ(system.rect(window.handle()), (Rect{100, 110, 400, 310}));
}

TEST_F(WindowSystemWinTest, ShowingAWindowLeavesItMaximised) {
  const TestWindow window(L"a");
  ShowWindow(window.hwnd(), SW_MAXIMIZE);
  ASSERT_TRUE(IsZoomed(window.hwnd()));
  system.show(window.handle());
  EXPECT_TRUE(IsZoomed(window.hwnd()));
}

TEST_F(WindowSystemWinTest, EnteringAndLeavingTheTopmostBandActivatesTheWindow) {
  const TestWindow window(L"a");
  const TestWindow other(L"b");
  system.show(window.handle());
  for (const bool topmost : {true, false}) {
    ASSERT_TRUE(bringForward(other));
    ASSERT_EQ(GetActiveWindow(), other.hwnd());
    system.setTopmost(window.handle(), topmost);
    EXPECT_EQ(GetActiveWindow(), window.hwnd()) << topmost;
  }
}

TEST_F(WindowSystemWinTest, BringingAWindowToTheTopActivatesIt) {
  const TestWindow window(L"a");
  const TestWindow other(L"b");
  system.show(window.handle());
  ASSERT_TRUE(bringForward(other));
  system.bringToTop(window.handle());
  EXPECT_EQ(GetActiveWindow(), window.hwnd());
}

/// Limits the access rights to this process, as the system does for a more privileged program.
class GuardedProcess {
 public:
  explicit GuardedProcess(DWORD rights) {
    PSID everyone = nullptr;
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    EXPECT_TRUE(
        AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone));
    alignas(ACL) char room[256];
    auto* list = reinterpret_cast<ACL*>(room);
    EXPECT_TRUE(InitializeAcl(list, sizeof room, ACL_REVISION));
    EXPECT_TRUE(AddAccessAllowedAce(list, ACL_REVISION, rights, everyone));
    put(list);
    FreeSid(everyone);
  }
  GuardedProcess(const GuardedProcess&) = delete;
  ~GuardedProcess() { put(nullptr); }

 private:
  static void put(ACL* list) {
    SECURITY_DESCRIPTOR descriptor;
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    EXPECT_TRUE(
        SetKernelObjectSecurity(GetCurrentProcess(), DACL_SECURITY_INFORMATION, &descriptor));
  }
};

TEST_F(WindowSystemWinTest, TheImageNameNeedsNoMoreRightsThanToAskForIt) {
  const TestWindow window(L"a");
  const std::u16string name = system.imageName(window.handle());
  const GuardedProcess guarded(PROCESS_QUERY_LIMITED_INFORMATION);
  ASSERT_EQ(OpenProcess(PROCESS_ALL_ACCESS, FALSE, GetCurrentProcessId()), nullptr);
  EXPECT_EQ(system.imageName(window.handle()), name);
}

TEST_F(WindowSystemWinTest, RaisingLiftsAWindowAboveTheOthersAndToTheForeground) {
  const TestWindow below(L"below");
  const TestWindow above(L"above");
  ASSERT_TRUE(bringForward(below));
  ASSERT_TRUE(bringForward(above));
  raiseWindow(system, below.handle());
  EXPECT_TRUE(pumpUntil([&] { return system.foreground() == below.handle(); }));
  EXPECT_FALSE(isTopmost(below));
  const auto windows = system.topLevelWindows();
  EXPECT_LT(std::find(windows.begin(), windows.end(), below.handle()),
            std::find(windows.begin(), windows.end(), above.handle()));
}

TEST_F(WindowSystemWinTest, KeysReachTheForegroundWindowInTheirOrder) {
  TestWindow window(L"a");
  ASSERT_TRUE(bringForward(window));
  const std::vector<WindowSystem::KeyEvent> events{
      {VK_SHIFT, false}, {VK_F5, false}, {VK_F5, true}, {VK_SHIFT, true}};
  EXPECT_EQ(system.sendKeys(events), 4u);
  EXPECT_TRUE(pumpUntil([&] { return window.keys.size() >= 4; }));
  EXPECT_EQ(window.keys, events);
}

TEST_F(WindowSystemWinTest, TheArrowKeyArrivesWithTheVirtualKeyThatWasSent) {
  TestWindow window(L"a");
  ASSERT_TRUE(bringForward(window));
  const std::vector<WindowSystem::KeyEvent> events{{VK_RIGHT, false}, {VK_RIGHT, true}};
  EXPECT_EQ(system.sendKeys(events), 2u);
  EXPECT_TRUE(pumpUntil([&] { return window.keys.size() >= 2; }));
  EXPECT_EQ(window.keys, events);
  EXPECT_FALSE(window.gotExtendedKey);
}

TEST_F(WindowSystemWinTest, NoKeysAreSentForAnEmptyList) { EXPECT_EQ(system.sendKeys({}), 0u); }

}  // namespace
}  // namespace mrl
