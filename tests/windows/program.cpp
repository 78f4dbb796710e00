// The test's side of the timer.
#include "windows/program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/wide_win.h"
#include "core/window_classes_win.h"
#include "settings/files_win.h"
#include "settings/settings_file.h"
#include "windows/standin_client.h"

namespace mrl {

using standin::waitUntil;

namespace {

std::string bytesOf(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The clock of that process; null while it has none.
HWND clockOf(DWORD processId) {
  HWND found = nullptr;
  while ((found = FindWindowExW(nullptr, found, kTimerClass, L"Marlune")) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(found, &owner);
    if (owner == processId) return found;
  }
  return nullptr;
}

void sendMouse(DWORD flags, POINT point = {}) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  if (flags & MOUSEEVENTF_ABSOLUTE) {
    // The whole screen is 65536 steps wide; half a pixel more makes the rounding safe.
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = (point.x * 65536 + 32768) / width;
    input.mi.dy = (point.y * 65536 + 32768) / height;
  }
  SendInput(1, &input, sizeof input);
}

}  // namespace

TemporaryFolder::TemporaryFolder(const std::wstring& name) {
  wchar_t base[MAX_PATH];
  GetTempPathW(MAX_PATH, base);
  static int count = 0;
  folder =
      base + name + L" " + std::to_wstring(GetCurrentProcessId()) + L"." + std::to_wstring(++count);
  std::filesystem::create_directories(folder);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

Program::~Program() {
  if (process == nullptr) return;
  TerminateProcess(process, 0);
  WaitForSingleObject(process, 10'000);
  CloseHandle(process);
}

void Program::prepare(const Settings& settings) const {
  FilesWin files;
  std::u16string error;
  ASSERT_TRUE(saveSettings(files, u16From(settingsPath()), settings, error));
}

void Program::prepareBytes(const std::string& bytes) const {
  std::ofstream(std::filesystem::path(settingsPath()), std::ios::binary) << bytes;
}

bool Program::start(const std::wstring& arguments) {
  std::wstring line = L"\"" + standin::executableFolder() + L"marlune.exe\" " + arguments +
                      L" \"--test-root=" + root.path() + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &started))
    return false;
  CloseHandle(started.hThread);
  process = started.hProcess;
  const std::string id = std::to_string(started.dwProcessId);
  if (!waitUntil([&] { return bytesOf(root.path() + L"\\ready.txt") == id; }, 30'000)) return false;
  window = clockOf(started.dwProcessId);
  return window != nullptr && waitUntil([&] { return !text().empty(); });
}

RECT Program::rect() const {
  RECT rect{};
  GetWindowRect(window, &rect);
  return rect;
}

bool Program::isHeldByMouse() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  return GetGUIThreadInfo(thread, &info) &&
         (info.hwndCapture != nullptr || (info.flags & GUI_INMOVESIZE) != 0);
}

std::wstring Program::text() const {
  const auto atom =
      static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(window, L"Marlune.Text")));
  wchar_t name[256];
  const UINT length = atom == 0 ? 0 : GlobalGetAtomNameW(atom, name, std::size(name));
  return {name, length};
}

bool Program::isCounting() const {
  for (int changes = 0; changes < 2; ++changes) {
    const std::wstring before = text();
    // Between two texts there may be none for a moment.
    if (!waitUntil([&] { return !text().empty() && text() != before; }, 4000)) return false;
  }
  return true;
}

bool Program::standsStill() const {
  std::wstring last = text();
  ULONGLONG since = GetTickCount64();
  return waitUntil(
      [&] {
        const std::wstring now = text();
        if (!now.empty() && now != last) {
          last = now;
          since = GetTickCount64();
        }
        return GetTickCount64() - since > 2200;
      },
      12'000);
}

bool Program::waitForText(const std::wstring& expected) const {
  return waitUntil([&] { return text() == expected; });
}

void Program::command(int number) const {
  DWORD_PTR result = 0;
  ASSERT_TRUE(SendMessageTimeoutW(window, WM_COMMAND, static_cast<WPARAM>(number), 0, SMTO_NORMAL,
                                  10'000, &result));
}

bool Program::waitForEnd(DWORD& exitCode) {
  return WaitForSingleObject(process, 10'000) == WAIT_OBJECT_0 &&
         GetExitCodeProcess(process, &exitCode);
}

std::string Program::settingsBytes() const { return bytesOf(settingsPath()); }

Settings Program::settings() const {
  FilesWin files;
  Settings record;
  std::u16string error;
  EXPECT_TRUE(loadSettings(files, u16From(settingsPath()), record, error));
  return record;
}

void pressAt(POINT point) {
  moveTo(point);
  sendMouse(MOUSEEVENTF_LEFTDOWN);
}

void moveTo(POINT point) {
  sendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, point);
  (void)waitUntil([&] {
    POINT now{};
    GetCursorPos(&now);
    return now.x == point.x && now.y == point.y;
  });
}

void release() { sendMouse(MOUSEEVENTF_LEFTUP); }

void clickAt(POINT point) {
  pressAt(point);
  release();
}

void rightClickAt(POINT point) {
  moveTo(point);
  sendMouse(MOUSEEVENTF_RIGHTDOWN);
  sendMouse(MOUSEEVENTF_RIGHTUP);
}

void pressKey(WORD virtualKey) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  SendInput(1, &input, sizeof input);
  input.ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(1, &input, sizeof input);
}

int scaled(int units) { return MulDiv(units, static_cast<int>(GetDpiForSystem()), 96); }

}  // namespace mrl
