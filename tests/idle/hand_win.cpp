// The hand that tests/idle/measure has inside Windows.
//   settle wait|run              waits for the program's windows, closes its settings window, and
//                                for "run" starts the clock
//   starts COUNT CLASS FILE LINE starts a program again and again and prints, one line a start, the
//                                milliseconds until it has a window of that class and until it has
//                                written that file ("-": it writes none); LINE is its command line
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>

#include "base/command_ids.h"
#include "base/window_classes_win.h"

namespace mrl {
namespace {

constexpr DWORD kLimitMs = 60'000;

bool waitUntil(const std::function<bool()>& isSo) {
  const ULONGLONG from = GetTickCount64();
  while (!isSo()) {
    if (GetTickCount64() - from > kLimitMs) return false;
    Sleep(1);
  }
  return true;
}

bool isShown(const wchar_t* windowClass) {
  return IsWindowVisible(FindWindowW(windowClass, nullptr)) != FALSE;
}

int settle(bool run) {
  if (!waitUntil([] { return isShown(kTimerClass) && isShown(kSettingsClass); })) return 1;
  PostMessageW(FindWindowW(kSettingsClass, nullptr), WM_CLOSE, 0, 0);
  if (!waitUntil([] { return !isShown(kSettingsClass); })) return 1;
  if (!run) return 0;
  DWORD_PTR ignored = 0;
  return SendMessageTimeoutW(FindWindowW(kTimerClass, nullptr), WM_COMMAND, kCommandToggleTimer, 0,
                             SMTO_NORMAL, kLimitMs, &ignored)
             ? 0
             : 1;
}

double nowMs() {
  LARGE_INTEGER count;
  LARGE_INTEGER perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<double>(count.QuadPart) * 1000 / static_cast<double>(perSecond.QuadPart);
}

bool hasBytes(const wchar_t* file) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  return GetFileAttributesExW(file, GetFileExInfoStandard, &data) && data.nFileSizeLow > 0;
}

bool printStart(const wchar_t* windowClass, const wchar_t* file, std::wstring line) {
  const bool writesFile = std::wstring_view(file) != L"-";
  if (writesFile) DeleteFileW(file);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  const double from = nowMs();
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &started)) {
    return false;
  }
  // The bare program's window is never shown.
  const bool hasWindow = waitUntil([&] {
    return writesFile ? isShown(windowClass) : FindWindowW(windowClass, nullptr) != nullptr;
  });
  const double windowMs = nowMs() - from;
  const bool isReady = !writesFile || waitUntil([&] { return hasBytes(file); });
  std::printf("%.1f %.1f\n", windowMs, nowMs() - from);
  TerminateProcess(started.hProcess, 0);
  WaitForSingleObject(started.hProcess, kLimitMs);
  return hasWindow && isReady;
}

}  // namespace
}  // namespace mrl

int wmain(int count, wchar_t** arguments) {
  const std::wstring_view word = count > 1 ? arguments[1] : L"";
  if (word == L"settle")
    return mrl::settle(count == 3 && std::wstring_view(arguments[2]) == L"run");
  if (word != L"starts" || count != 6) return 2;
  for (int left = std::wcstol(arguments[2], nullptr, 10); left > 0; --left) {
    if (!mrl::printStart(arguments[3], arguments[4], arguments[5])) return 1;
  }
  return 0;
}
