// Runs the whole program in this process, so that its paints can be counted.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "core/app_win.h"

namespace mrl {
namespace {

int paints = 0;

bool isClock(HWND window) {
  wchar_t name[80];
  GetClassNameW(window, name, 80);
  return std::wstring(name) == kTimerClass;
}

LRESULT CALLBACK countPaints(int code, WPARAM removed, LPARAM message) {
  const MSG& taken = *reinterpret_cast<const MSG*>(message);
  if (code == HC_ACTION && removed == PM_REMOVE && taken.message == WM_PAINT &&
      isClock(taken.hwnd)) {
    ++paints;
  }
  return CallNextHookEx(nullptr, code, removed, message);
}

std::wstring shownText(HWND clock) {
  const HANDLE atom = GetPropW(clock, L"Marlune.Text");
  wchar_t text[64] = L"";
  GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), text, 64);
  return text;
}

/// Starts the timer, and ends the program once ten seconds have been shown.
void CALLBACK watch(HWND, UINT, UINT_PTR, DWORD) {
  const HWND clock = FindWindowW(kTimerClass, L"Marlune");
  const std::wstring text = shownText(clock);
  static bool started = false;
  if (!started && text == L"15:00") {
    started = true;
    paints = 0;
    PostMessageW(clock, WM_COMMAND, kCommandToggleTimer, 0);
  }
  if (text == L"14:50") PostMessageW(clock, WM_COMMAND, kCommandExit, 0);
}

TEST(AppWinTest, ARunningClockIsPaintedOncePerSecond) {
  ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  const std::filesystem::path root =
      std::filesystem::temp_directory_path() / ("marlune " + std::to_string(GetCurrentProcessId()));
  const HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, countPaints, nullptr, GetCurrentThreadId());
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, watch);

  const HINSTANCE instance = GetModuleHandleW(nullptr);
  EXPECT_EQ(AppWin(instance).run({u"--test-root=" + root.u16string()}), kExitNormal);

  // One for the command and one for each of the ten seconds.
  EXPECT_GE(paints, 10);
  EXPECT_LE(paints, 11);
  std::printf("%d paints in ten seconds\n", paints);

  KillTimer(nullptr, timer);
  UnhookWindowsHookEx(hook);
  for (const wchar_t* name : {kTimerClass, kSettingsClass, kContentClass, kPreviewClass,
                              kPreviewHostClass, kResizeClass, kQrClass, kBlackClass}) {
    UnregisterClassW(name, instance);
  }
  std::filesystem::remove_all(root);
  CoUninitialize();
}

}  // namespace
}  // namespace mrl
