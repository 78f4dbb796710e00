// Carries out what the settings window is to paint. UI thread.
#pragma once

#include <windows.h>

#include <array>

#include "base/gdi_win.h"
#include "settings_window/control_look.h"

namespace mrl {

/// The program's icon, at this size; shared, not to be destroyed.
HICON programIcon(int size);

COLORREF systemColour(uint32_t rgb);

/// In the order of Face.
using Fonts = std::array<Font, std::size(kTypefaces)>;
Fonts makeFonts(int dpi);

/// Keeps to the clip region of `dc`. REQUIRES: GDI+ runs.
void paint(HDC dc, const Drawing& drawing, const Fonts& fonts);

}  // namespace mrl
