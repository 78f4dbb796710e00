// Paints a Drawing of the settings window with GDI and GDI+. UI thread.
#pragma once

#include <windows.h>

#include <array>

#include "base/gdi_win.h"
#include "settings_window/control_look.h"

namespace mrl {

/// The program's icon in this size, pixels; shared, must not be destroyed.
HICON programIcon(int size);

COLORREF systemColour(uint32_t rgb);

/// In the order of Face.
using Fonts = std::array<Font, std::size(kTypefaces)>;
Fonts makeFonts(int dpi);

/// Respects the clip region of `dc`. REQUIRES: GDI+ is started.
void paint(HDC dc, const Drawing& drawing, const Fonts& fonts);

}  // namespace mrl
