// The test's side of the real program.
#include "windows/program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "base/wide_win.h"
#include "base/window_classes_win.h"
#include "settings/files_win.h"
#include "settings/settings_file.h"
#include "windows/host_program.h"
#include "windows/standin_client.h"
#include "windows/start_process.h"
#include "windows/top_windows.h"

namespace mrl {

using standin::waitUntil;

namespace {

/// The window of that class and title in that process; null if there is none.
HWND windowOf(DWORD processId, const std::wstring& className, const std::wstring& title) {
  for (const HWND each : topWindows(className)) {
    DWORD owner = 0;
    GetWindowThreadProcessId(each, &owner);
    wchar_t text[64]{};
    GetWindowTextW(each, text, static_cast<int>(std::size(text)));
    if (owner == processId && (title.empty() || text == title)) return each;
  }
  return nullptr;
}

HWND clockOf(DWORD processId) { return windowOf(processId, kTimerClass, L"Marlune"); }

HWND settingsOf(DWORD processId) {
  const HWND found = windowOf(processId, kSettingsClass, L"");
  return IsWindowVisible(found) ? found : nullptr;
}

/// Uses the X server's mouse: Wine releases a button pressed by SendInput alone as soon as it sees
/// the X server's own mouse state.
void moveRealMouse(const std::wstring& actions) {
  ASSERT_TRUE(startOnHost(LR"(Z:\usr\bin\xdotool )" + actions));
}

std::wstring moveAction(POINT point) {
  return L"mousemove " + std::to_wstring(point.x) + L" " + std::to_wstring(point.y);
}

}  // namespace

std::string bytesOf(const std::wstring& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

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

Program::~Program() { kill(); }

void Program::kill() {
  if (process == nullptr) return;
  TerminateProcess(process, 0);
  WaitForSingleObject(process, 10'000);
  CloseHandle(process);
  process = nullptr;
  // The next one may get the same id, and would count as ready too early.
  DeleteFileW((root.path() + L"\\ready.txt").c_str());
}

void Program::prepare(const Settings& settings) const {
  FilesWin files;
  std::u16string error;
  ASSERT_TRUE(saveSettings(files, u16From(settingsPath()), settings, error));
}

void Program::prepareBytes(const std::string& bytes) const {
  std::ofstream(std::filesystem::path(settingsPath()), std::ios::binary) << bytes;
}

bool Program::launch(const std::wstring& arguments) {
  process = startProcess(L"\"" + standin::executableFolder() + L"marlune.exe\" " + arguments);
  if (process == nullptr) return false;
  processId = GetProcessId(process);
  return true;
}

bool Program::startForUser() {
  if (!launch(L"")) return false;
  if (!waitUntil([&] { return settingsWindow() != nullptr; }, 30'000)) return false;
  return waitUntil([&] { return (window = clockOf(processId)) != nullptr; });
}

bool Program::startInVain(DWORD& exitCode) { return launch(L"") && waitForEnd(exitCode); }

bool Program::start(const std::wstring& arguments, Opening opening) {
  if (!launch(arguments + L" \"--test-root=" + root.path() + L"\"")) return false;
  const std::string id = std::to_string(processId);
  if (!waitUntil([&] { return bytesOf(root.path() + L"\\ready.txt") == id; }, 30'000)) return false;
  // Polled: enumerating windows stops early if the current one is destroyed.
  if (!waitUntil([&] { return (window = clockOf(processId)) != nullptr; })) return false;
  if (!waitUntil([&] { return settingsWindow() != nullptr; })) return false;
  if (opening == Opening::Closed && !closeSettings()) return false;
  if (!waitUntil([&] { return !text().empty(); })) return false;
  lookAtSettings();
  return true;
}

HWND Program::settingsWindow() const {
  if (!IsWindowVisible(knownSettings)) knownSettings = settingsOf(processId);
  return knownSettings;
}

bool Program::closeSettings() const {
  PostMessageW(settingsWindow(), WM_CLOSE, 0, 0);
  return waitUntil([&] { return settingsWindow() == nullptr; });
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
    // The text may be empty for a moment between two values.
    if (!waitUntil([&] { return !text().empty() && text() != before; })) return false;
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
  const FILETIME now = settingsChangedAt();
  if (CompareFileTime(&now, &lastLook.changedAt) != 0) lookAtSettings();
  EXPECT_TRUE(lastLook.isReadable);
  return lastLook.record;
}

FILETIME Program::settingsChangedAt() const {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExW(settingsPath().c_str(), GetFileExInfoStandard, &data);
  return data.ftLastWriteTime;
}

void Program::lookAtSettings() const {
  // Waits for the program's thread: it may save several times in a row.
  SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 10'000, nullptr);
  lastLook = {.changedAt = settingsChangedAt()};
  FilesWin files;
  std::u16string error;
  lastLook.isReadable = loadSettings(files, u16From(settingsPath()), lastLook.record, error);
}

uint32_t somePort() {
  std::random_device source;
  // Below the system's range of ephemeral ports.
  return std::uniform_int_distribution<uint32_t>(20000, 32000)(source);
}

void pressAt(POINT point) { moveRealMouse(moveAction(point) + L" mousedown 1"); }

void moveTo(POINT point) {
  moveRealMouse(moveAction(point));
  EXPECT_TRUE(waitUntil([&] {
    POINT now{};
    GetCursorPos(&now);
    return now.x == point.x && now.y == point.y;
  }));
}

void release() { moveRealMouse(L"mouseup 1"); }

void clickAt(POINT point) { moveRealMouse(moveAction(point) + L" click 1"); }

void rightClickAt(POINT point) { moveRealMouse(moveAction(point) + L" click 3"); }

void pressKey(WORD virtualKey) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  SendInput(1, &input, sizeof input);
  input.ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(1, &input, sizeof input);
}

void sendDpiChanged(HWND window, int dpi, const RECT& suggested) {
  // The rectangle must be in the other process's memory during the call.
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  const HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, id);
  ASSERT_NE(process, nullptr);
  void* there = VirtualAllocEx(process, nullptr, sizeof suggested, MEM_COMMIT, PAGE_READWRITE);
  ASSERT_TRUE(WriteProcessMemory(process, there, &suggested, sizeof suggested, nullptr));
  SendMessageW(window, WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
               reinterpret_cast<LPARAM>(there));
  VirtualFreeEx(process, there, 0, MEM_RELEASE);
  CloseHandle(process);
}

int scaled(int units) { return MulDiv(units, static_cast<int>(GetDpiForSystem()), 96); }

}  // namespace mrl
