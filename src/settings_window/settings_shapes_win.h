// The shapes and texts that the settings window is painted with. Pixels; colours are 0xRRGGBB.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace mrl {

/// The program's icon, at this size; shared, not to be destroyed.
HICON programIcon(int size);

COLORREF systemColour(uint32_t rgb);
void fillRect(HDC dc, const RECT& rect, uint32_t colour);

inline constexpr uint32_t kNoOutline = ~uint32_t{0};
/// Smooth; keeps to the clip region of `dc`. REQUIRES: GDI+ runs.
void roundRect(HDC dc, const RECT& rect, int radius, uint32_t fill, uint32_t outline,
               float outlineWidth);
/// A smooth circle; a fill or an outline of kNoOutline is left out. REQUIRES: GDI+ runs.
void drawCircle(HDC dc, POINT topLeft, int diameter, uint32_t fill, uint32_t outline,
                float outlineWidth);
/// The sign of section 0 to 4. REQUIRES: GDI+ runs.
void drawGlyph(HDC dc, const RECT& square, int index, uint32_t colour);
void drawLine(HDC dc, POINT from, POINT to, uint32_t colour, int width);
/// `format` as for DrawTextW.
void drawText(HDC dc, const std::wstring& text, RECT rect, HFONT font, uint32_t colour,
              UINT format);
inline constexpr UINT kOneLine = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;

}  // namespace mrl
