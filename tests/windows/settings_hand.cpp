#include "windows/settings_hand.h"

#include <algorithm>
#include <vector>

#include "windows/top_windows.h"

namespace mrl {

using standin::waitUntil;

namespace {

void send(std::vector<INPUT>& inputs) {
  EXPECT_EQ(SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)),
            inputs.size());
}

/// Keys that exist twice: without the extended flag they are those of the number pad.
bool isExtended(WORD key) {
  return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
}

INPUT keyInput(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags | (isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
  return input;
}

INPUT characterInput(wchar_t unit, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
  return input;
}

/// Converts pixels to absolute mouse coordinates: 65536 across the screen.
LONG absolute(LONG pixel, int extent) { return (pixel * 65536 + 32768) / extent; }

INPUT mouseInput(POINT point, DWORD flags, int data = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = absolute(point.x, GetSystemMetrics(SM_CXSCREEN));
  input.mi.dy = absolute(point.y, GetSystemMetrics(SM_CYSCREEN));
  input.mi.mouseData = static_cast<DWORD>(data);
  input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
  return input;
}

/// The open list of a combo on the window's thread; null if there is none.
HWND droppedList(HWND window) {
  return visibleTopWindow(L"ComboLBox", GetWindowThreadProcessId(window, nullptr));
}

}  // namespace

void pressKeys(WORD key, std::initializer_list<WORD> held) {
  std::vector<INPUT> inputs;
  for (const WORD holder : held) inputs.push_back(keyInput(holder, 0));
  inputs.push_back(keyInput(key, 0));
  inputs.push_back(keyInput(key, KEYEVENTF_KEYUP));
  // In reverse: an Alt key released last would open a menu.
  for (const WORD holder : std::vector(std::rbegin(held), std::rend(held))) {
    inputs.push_back(keyInput(holder, KEYEVENTF_KEYUP));
  }
  send(inputs);
}

void typeText(std::wstring_view text) {
  std::vector<INPUT> inputs;
  for (const wchar_t unit : text) {
    inputs.push_back(characterInput(unit, 0));
    inputs.push_back(characterInput(unit, KEYEVENTF_KEYUP));
  }
  send(inputs);
}

void clickMouse(POINT point, int times) {
  std::vector<INPUT> inputs{mouseInput(point, 0)};
  for (int i = 0; i < times; ++i) {
    inputs.push_back(mouseInput(point, MOUSEEVENTF_LEFTDOWN));
    inputs.push_back(mouseInput(point, MOUSEEVENTF_LEFTUP));
  }
  send(inputs);
}

void turnWheelAt(POINT point, int delta, std::initializer_list<WORD> held) {
  std::vector<INPUT> inputs{mouseInput(point, 0)};
  for (const WORD holder : held) inputs.push_back(keyInput(holder, 0));
  inputs.push_back(mouseInput(point, MOUSEEVENTF_WHEEL, delta));
  for (const WORD holder : held) inputs.push_back(keyInput(holder, KEYEVENTF_KEYUP));
  send(inputs);
}

bool putOnClipboard(std::wstring_view text) {
  if (!waitUntil([] { return OpenClipboard(nullptr) != FALSE; })) return false;
  EmptyClipboard();
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  auto* target = static_cast<wchar_t*>(GlobalLock(block));
  *std::ranges::copy(text, target).out = L'\0';
  GlobalUnlock(block);
  const bool done = SetClipboardData(CF_UNICODETEXT, block) != nullptr;
  CloseClipboard();
  return done;
}

std::wstring clipboardText() {
  if (!waitUntil([] { return OpenClipboard(nullptr) != FALSE; })) return {};
  const HANDLE block = GetClipboardData(CF_UNICODETEXT);
  std::wstring text;
  if (block != nullptr) {
    text = static_cast<const wchar_t*>(GlobalLock(block));
    GlobalUnlock(block);
  }
  CloseClipboard();
  return text;
}

Settings SettingsHand::quiet() {
  Settings settings;
  settings.remoteAutoStart = false;
  return settings;
}

bool SettingsHand::says(const std::wstring& expected) const {
  if (waitUntil([&] { return status() == expected; })) return true;
  ADD_FAILURE() << "it says: " << testing::PrintToString(status());
  return false;
}

bool SettingsHand::isFocused(int id) const {
  return waitUntil([&] { return focusedId() == id; });
}

bool SettingsHand::reads(int id, const std::wstring& expected, DWORD limitMs) const {
  return waitUntil([&] { return text(id) == expected; }, limitMs);
}

bool SettingsHand::becomesChecked(int id, bool expected) const {
  return waitUntil([&] { return isChecked(id) == expected; });
}

bool SettingsHand::becomesRed(int id, bool expected) const {
  return waitUntil([&] { return isRed(id) == expected; });
}

void SettingsHand::turnTo(int index) const {
  clickMouse(middleOf(kFirstSection + index));
  ASSERT_TRUE(waitUntil([&] { return page() == index && showsOnly(index); }));
}

void SettingsHand::reveal(int id) const {
  if (!IsChild(pane(), control(id))) return;
  RECT seen{};
  GetWindowRect(pane(), &seen);
  const POINT margin{seen.left + 8, (seen.top + seen.bottom) / 2};
  for (int turns = 0; turns < 40; ++turns) {
    const POINT middle = middleOf(id);
    if (middle.y > seen.top + 20 && middle.y < seen.bottom - 20) return;
    turnWheelAt(margin, middle.y >= seen.bottom - 20 ? -WHEEL_DELTA : WHEEL_DELTA);
    ASSERT_TRUE(waitUntil([&] { return middleOf(id).y != middle.y; }));
  }
  FAIL() << id << " does not come into sight";
}

void SettingsHand::press(int id) const {
  reveal(id);
  POINT point = middleOf(id);
  POINT last{};
  GetCursorPos(&last);
  // Two clicks on one point would count as a double click.
  if (last.x == point.x && last.y == point.y) point.x += 2 * GetSystemMetrics(SM_CXDOUBLECLK);
  clickMouse(point);
}

void SettingsHand::selectAll(int id) const {
  press(id);
  ASSERT_TRUE(isFocused(id));
  pressKeys(VK_HOME);
  pressKeys(VK_END, {VK_SHIFT});
}

void SettingsHand::retype(int id, std::wstring_view text) const {
  selectAll(id);
  if (text.empty()) {
    pressKeys(VK_DELETE);
  } else {
    typeText(text);
  }
}

void SettingsHand::choose(int id, int row) const {
  press(id);
  ASSERT_TRUE(waitUntil([&] { return ask(control(id), CB_GETDROPPEDSTATE) != 0; }));
  const HWND list = droppedList(window());
  RECT rows{};
  ASSERT_TRUE(GetWindowRect(list, &rows));
  const auto height = static_cast<LONG>(ask(control(id), CB_GETITEMHEIGHT));
  clickMouse({(rows.left + rows.right) / 2, rows.top + height * row + height / 2});
  ASSERT_TRUE(waitUntil([&] { return ask(control(id), CB_GETDROPPEDSTATE) == 0; }));
}

void SettingsHand::paste(int id, std::wstring_view text) const {
  ASSERT_TRUE(putOnClipboard(text));
  selectAll(id);
  pressKeys('V', {VK_CONTROL});
}

HWND SettingsHand::question() const {
  const HWND found =
      visibleTopWindow(L"#32770", GetWindowThreadProcessId(program.clock(), nullptr));
  return textOf(found) == L"Marlune" ? found : nullptr;
}

bool SettingsHand::asks() const {
  return waitUntil([&] { return question() != nullptr && question() == GetForegroundWindow(); });
}

std::wstring SettingsHand::questionText() const {
  std::wstring all;
  HWND line = nullptr;
  while ((line = FindWindowExW(question(), line, L"Static", nullptr)) != nullptr) {
    all += textOf(line);
  }
  return all;
}

void SettingsHand::answer(int button) const {
  RECT place{};
  ASSERT_TRUE(GetWindowRect(GetDlgItem(question(), button), &place));
  clickMouse({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
  ASSERT_TRUE(waitUntil([&] { return question() == nullptr; }));
}

void SettingsHand::comeToFront() const {
  SetForegroundWindow(window());
  ASSERT_TRUE(waitUntil([&] { return GetForegroundWindow() == window(); }));
}

bool SettingsHand::closes() const {
  return waitUntil([&] { return window() == nullptr && question() == nullptr; });
}

}  // namespace mrl
