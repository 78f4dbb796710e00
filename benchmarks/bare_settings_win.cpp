#include "bare_settings_win.h"

// Must come after <windows.h>.
#include <commctrl.h>

#include <map>

#include "base/geometry_win.h"
#include "base/wide_win.h"
#include "settings_window/control_table.h"
#include "settings_window/layout.h"

namespace mrl {
namespace {

struct Bare {
  HWND window = nullptr;
  HWND pane = nullptr;
  std::map<int, HWND> controls;
  HFONT font = nullptr;
} bare;

struct SystemClass {
  const wchar_t* name;
  DWORD style;
};

SystemClass systemClass(ControlKind kind) {
  switch (kind) {
    case ControlKind::Tabs: return {WC_TABCONTROLW, 0};
    case ControlKind::Section:
    case ControlKind::Button: return {L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP};
    case ControlKind::Check: return {L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP};
    case ControlKind::Radio: return {L"BUTTON", BS_AUTORADIOBUTTON | WS_TABSTOP};
    case ControlKind::NumberBox:
    case ControlKind::TextBox:
    case ControlKind::AddressBox: return {L"EDIT", WS_BORDER | WS_TABSTOP};
    case ControlKind::Combo: return {L"ComboBox", CBS_DROPDOWNLIST | WS_TABSTOP};
    case ControlKind::List: return {L"LISTBOX", WS_BORDER | WS_TABSTOP};
    default: return {L"STATIC", 0};
  }
}

void place(const std::vector<Placement>& placements) {
  for (const auto& [id, rect] : placements) {
    const auto found = bare.controls.find(id);
    if (found == bare.controls.end()) continue;
    SetWindowPos(found->second, nullptr, rect.left, rect.top, rect.width(), rect.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

void turn(int page) {
  const PageLayout layout =
      layOut(clientSizeOf(bare.window), static_cast<int>(GetDpiForWindow(bare.window)), page, 0);
  place(layout.frame);
  place(layout.page);
  for (const Control& control : allControls()) {
    const bool shown = control.page == kEveryPage || control.page == page;
    ShowWindow(bare.controls[control.id], shown ? SW_SHOWNA : SW_HIDE);
  }
}

void open(Size size) {
  bare.window = CreateWindowExW(WS_EX_CONTROLPARENT, L"MarluneBenchmark.Pane", L"",
                                WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, size.width,
                                size.height, nullptr, nullptr, nullptr, nullptr);
  bare.pane = CreateWindowExW(WS_EX_CONTROLPARENT, L"MarluneBenchmark.Pane", L"",
                              WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0, bare.window,
                              nullptr, nullptr, nullptr);
  bare.controls[kContentPane] = bare.pane;
  for (const Control& row : allControls()) {
    const auto [name, style] = systemClass(row.kind);
    const HWND made =
        CreateWindowExW(0, name, wideFrom(row.text).c_str(), WS_CHILD | style, 0, 0, 0, 0,
                        isOnPane(row) ? bare.pane : bare.window, nullptr, nullptr, nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(bare.font), FALSE);
    bare.controls[row.id] = made;
  }
  turn(0);
  ShowWindow(bare.window, SW_SHOW);
}

LRESULT CALLBACK onHostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kBareOpen: open({LOWORD(lParam), HIWORD(lParam)}); return 0;
    case kBareTurn: turn(static_cast<int>(wParam)); return 0;
    case kBareClose: DestroyWindow(bare.window); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

void registerClass(const wchar_t* name, WNDPROC procedure) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = procedure;
  windowClass.lpszClassName = name;
  windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  RegisterClassW(&windowClass);
}

}  // namespace

int runBareSettings() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  bare.font = CreateFontIndirectW(&metrics.lfMessageFont);
  registerClass(L"MarluneBenchmark.Pane", DefWindowProcW);
  registerClass(kBareHostClass, onHostMessage);
  CreateWindowExW(0, kBareHostClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace mrl
