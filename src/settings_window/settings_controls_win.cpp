// The buttons and combos of the settings window: see settings_paint_win.h.
#include <algorithm>
#include <array>
#include <iterator>

#include "core/wide_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/settings_paint_win.h"
#include "settings_window/settings_palette.h"
#include "settings_window/settings_shapes_win.h"

namespace mrl {
namespace {

constexpr uint32_t kDisabledFill = 0xF5F7FA;
constexpr uint32_t kDisabledLine = 0xE8ECF2;
constexpr uint32_t kDisabledText = 0xA5AEBB;

struct ButtonLook {
  uint32_t rest, hover, pressed, outline, text;
  bool strong;
};
/// The outline is the fill's colour.
constexpr uint32_t kAsFill = kNoOutline;
constexpr ButtonLook kGreen{0x0D806A, 0x0B705E, 0x095D4E, kAsFill, kWhite, true};
constexpr ButtonLook kPrimary{kAccent, kAccentHover, kAccentDown, kAsFill, kWhite, true};
constexpr ButtonLook kDanger{0xFFF8F8, 0xFCEFEF, 0xF7E0E0, 0xE1BEBE, 0x9C343A, false};
constexpr ButtonLook kCaution{0xFFFAF0, 0xFDF5E5, 0xF6E8CF, 0xDEC9A0, 0x7E5314, false};
constexpr ButtonLook kNormal{kWhite, 0xF5F8FD, 0xE8EEF7, kHairline, kInk, false};

const ButtonLook& lookOf(int id, bool active) {
  switch (id) {
    case kToggleButton: return active ? kCaution : kGreen;
    case kServiceButton: return active ? kDanger : kPrimary;
    case kApplyPortButton:
    case kPlayFileButton:
    case kBeginShowButton:
    case kCurrentSlideButton: return kPrimary;
    case kCloseFileButton:
    case kExitShowButton: return kDanger;
    case kResetButton: return kCaution;
    default: return kNormal;
  }
}

bool isOn(HWND window) { return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED; }
bool isHovered(HWND window) { return GetPropW(window, kHoverProperty) != nullptr; }
bool isPressed(HWND window) { return (SendMessageW(window, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0; }

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace

void SettingsLook::paintButton(HWND window, HDC dc, const RECT& client) const {
  const int id = GetDlgCtrlID(window);
  const bool enabled = IsWindowEnabled(window) != FALSE;
  const ButtonLook& look = lookOf(id, GetPropW(window, kActiveProperty) != nullptr);
  uint32_t fill = isPressed(window) ? look.pressed : isHovered(window) ? look.hover : look.rest;
  if (!enabled) fill = kDisabledFill;
  uint32_t outline = look.outline == kAsFill ? fill : look.outline;
  if (!enabled) outline = kDisabledLine;
  const bool focused = GetFocus() == window;
  if (focused) outline = kAccent;

  fillRect(dc, client, kWhite);
  RECT shape = client;
  InflateRect(&shape, -1, -1);
  roundRect(dc, shape, scale(7), fill, outline, focused ? static_cast<float>(scale(2)) : 1);
  if (id >= kPickForegroundButton && id <= kPickAlertButton) {
    return paintSwatch(dc, window, id, client);
  }
  drawText(dc, textOf(window), {scale(8), 0, client.right - scale(8), client.bottom},
           (look.strong ? bodyStrong : body).get(), enabled ? look.text : kDisabledText,
           kOneLine | DT_CENTER);
}

void SettingsLook::paintSwatch(HDC dc, HWND window, int id, const RECT& client) const {
  const int box = kForegroundBox + id - kPickForegroundButton;
  const std::wstring text = textOf(GetDlgItem(GetParent(window), box));
  // Also what is half typed has a colour.
  const auto colour = text.empty() ? 0 : std::wcstoul(text.c_str() + 1, nullptr, 16) & 0xFFFFFF;
  RECT swatch = client;
  InflateRect(&swatch, -scale(9), -scale(9));
  roundRect(dc, swatch, scale(4), static_cast<uint32_t>(colour), kHairline, 1);
}

void SettingsLook::paintRadio(HWND window, HDC dc, const RECT& client) const {
  const bool on = isOn(window);
  const bool enabled = IsWindowEnabled(window) != FALSE;
  fillRect(dc, client, kWhite);
  const uint32_t fill = on ? kSelectFill : isHovered(window) ? 0xF8FAFD : kWhite;
  roundRect(dc, client, scale(7), fill, on ? kAccent : kHairline, 1);
  const int top = (client.bottom - scale(16)) / 2;
  const uint32_t ring = !enabled ? kHairline : on ? kAccent : kMuted;
  drawCircle(dc, {scale(12), top}, scale(16), kNoOutline, ring, static_cast<float>(scale(1)));
  if (on) {
    const POINT dot{scale(12) + (scale(16) - scale(8)) / 2, (client.bottom - scale(8)) / 2};
    drawCircle(dc, dot, scale(8), enabled ? kAccent : kMuted, kNoOutline, 0);
  }
  drawText(dc, textOf(window), {scale(38), 0, client.right, client.bottom}, body.get(),
           enabled ? kInk : kMuted, kOneLine);
}

void SettingsLook::paintCheck(HWND window, HDC dc, const RECT& client) const {
  const bool on = isOn(window);
  const bool enabled = IsWindowEnabled(window) != FALSE;
  fillRect(dc, client, kWhite);
  const int right = client.right - scale(2);
  const int left = right - scale(34);
  const int top = (client.bottom - scale(20)) / 2;
  const uint32_t track = !enabled ? 0xE9EDF3 : on ? kAccent : 0xD7DFEB;
  roundRect(dc, {left, top, right, top + scale(20)}, scale(20) / 2, track, kNoOutline, 0);
  drawCircle(dc, {left + scale(on ? 17 : 3), top + scale(3)}, scale(14), kWhite, kNoOutline, 0);
  drawText(dc, textOf(window), {0, 0, left - scale(12), client.bottom}, body.get(),
           enabled ? kInk : 0x9EA8B8, kOneLine);
  if (GetFocus() != window) return;
  RECT focus = client;
  InflateRect(&focus, -scale(2), -scale(2));
  DrawFocusRect(dc, &focus);
}

void SettingsLook::paintSection(HWND window, HDC dc, const RECT& client) const {
  const int index = GetDlgCtrlID(window) - kFirstSection;
  const bool active = index == form.page;
  fillRect(dc, client, kWhite);
  const uint32_t fill = active ? kSelectFill : isHovered(window) ? 0xF3F6FB : kWhite;
  roundRect(dc, client, scale(8), fill, GetFocus() == window ? kAccent : kNoOutline, 1);
  drawGlyph(dc, {scale(14), scale(12), scale(36), scale(34)}, index, active ? kAccent : kMuted);
  drawText(dc, textOf(window), {scale(48), 0, client.right - scale(10), client.bottom},
           (active ? bodyStrong : body).get(), active ? kAccent : 0x4E5E75, kOneLine);
}

void SettingsLook::paintCombo(HWND window, HDC dc, const RECT& client) const {
  const bool focused = GetFocus() == window;
  fillRect(dc, client, kWhite);
  roundRect(dc, client, scale(7), kWhite, focused ? kAccent : kHairline,
            focused ? static_cast<float>(scale(2)) : 1);
  drawText(dc, textOf(window), {scale(12), 0, client.right - scale(32), client.bottom}, body.get(),
           IsWindowEnabled(window) ? kInk : kMuted, kOneLine);
  const int x = client.right - scale(18);
  const int middle = client.bottom / 2;
  const POINT tip{x, middle + scale(2)};
  drawLine(dc, {x - scale(4), middle - scale(2)}, tip, kMuted, scale(1));
  drawLine(dc, tip, {x + scale(4), middle - scale(2)}, kMuted, scale(1));
}

}  // namespace mrl
