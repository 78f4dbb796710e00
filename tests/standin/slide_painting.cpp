// GDI painting of slides. All sizes are relative to the area, so it works at any size.
#include "standin/slide_painting.h"

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>

namespace mrl::standin {
namespace {

constexpr COLORREF kSlideColour = RGB(0, 0, 0);
constexpr COLORREF kTextColour = RGB(255, 255, 255);
constexpr COLORREF kFaintColour = RGB(150, 156, 166);
constexpr COLORREF kAccentColour = RGB(208, 104, 58);
constexpr COLORREF kDeskColour = RGB(226, 228, 232);
constexpr COLORREF kStripColour = RGB(246, 247, 249);

struct DeleteObjectOf {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteObjectOf>;
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteObjectOf>;

void fill(HDC target, const RECT& area, COLORREF colour) {
  const Brush brush(CreateSolidBrush(colour));
  FillRect(target, &area, brush.get());
}

void write(HDC target, RECT area, const std::wstring& text, int height, int weight, COLORREF colour,
           UINT format) {
  const Font font(CreateFontW(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                              OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                              DEFAULT_PITCH | FF_SWISS, L"Segoe UI"));
  const HGDIOBJ before = SelectObject(target, font.get());
  SetTextColor(target, colour);
  SetBkMode(target, TRANSPARENT);
  DrawTextW(target, text.c_str(), -1, &area,
            format | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(target, before);
}

/// The largest 16:9 rectangle centred in `area`.
RECT slideWithin(const RECT& area) {
  const int width = std::min<int>(area.right - area.left, (area.bottom - area.top) * 16 / 9);
  const int height = width * 9 / 16;
  const int left = (area.left + area.right - width) / 2;
  const int top = (area.top + area.bottom - height) / 2;
  return {left, top, left + width, top + height};
}

}  // namespace

void paintSlide(HDC target, const RECT& area, const Deck& deck, int slide) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  const int margin = width / 16;
  const auto band = [&](int fromPercent, int toPercent) {
    return RECT{area.left + margin, area.top + height * fromPercent / 100, area.right - margin,
                area.top + height * toPercent / 100};
  };
  const std::wstring file = fileName(deck.path);

  fill(target, area, kSlideColour);
  write(target, band(7, 17), file.substr(0, file.rfind(L'.')), height / 15, FW_SEMIBOLD,
        kTextColour, DT_LEFT);
  RECT rule = band(19, 19);
  rule.right = rule.left + width / 8;
  rule.bottom = rule.top + std::max(1, height / 120);
  fill(target, rule, kAccentColour);
  write(target, band(25, 85), std::to_wstring(slide), height * 2 / 5, FW_BOLD, kTextColour,
        DT_CENTER);
  write(target, band(89, 96), file, height / 36, FW_NORMAL, kFaintColour, DT_LEFT);
  write(target, band(89, 96),
        L"Slide " + std::to_wstring(slide) + L" of " + std::to_wstring(deck.slides), height / 36,
        FW_NORMAL, kFaintColour, DT_RIGHT);
}

void paintEnd(HDC target, const RECT& area) {
  fill(target, area, kSlideColour);
  write(target, {area.left, area.top, area.right, area.top + (area.bottom - area.top) / 10},
        L"End of slide show, click to exit.", (area.bottom - area.top) / 36, FW_NORMAL, kTextColour,
        DT_CENTER);
}

void paintEditing(HDC target, const RECT& area, const Deck& deck) {
  const int stripWidth = std::min<int>(200, area.right / 4);
  const RECT strip{area.left, area.top, area.left + stripWidth, area.bottom};
  const RECT desk{strip.right, area.top, area.right, area.bottom};
  fill(target, strip, kStripColour);
  fill(target, desk, kDeskColour);

  RECT stage = desk;
  InflateRect(&stage, -stripWidth / 6, -stripWidth / 6);
  paintSlide(target, slideWithin(stage), deck, deck.selected);

  const int margin = stripWidth / 10;
  const int rowHeight = (stripWidth - 2 * margin) * 9 / 16 + margin;
  const int rows = std::max<int>(1, (area.bottom - area.top - margin) / rowHeight);
  const int first = std::max(1, deck.selected - rows + 1);  // keeps the selected one visible
  for (int row = 0; row < rows && first + row <= deck.slides; ++row) {
    const int top = strip.top + margin + row * rowHeight;
    const RECT small{strip.left + margin, top, strip.right - margin, top + rowHeight - margin};
    RECT frame = small;
    InflateRect(&frame, 3, 3);
    if (first + row == deck.selected) fill(target, frame, kAccentColour);
    paintSlide(target, small, deck, first + row);
  }
}

}  // namespace mrl::standin
