// What the buttons, boxes, combos and the list of the settings window do otherwise than the
// system's. UI thread.
#pragma once

#include <windows.h>

#include "settings_window/settings_paint_win.h"

namespace mrl {

/// Takes the control's painting over. `look` must outlive the control.
void adoptControl(HWND control, const SettingsLook& look);
/// The list of files: its switch, its wheel and its empty text.
void adoptFileList(HWND list, const SettingsLook& look);

/// The wheel, from a control to the pane; the parameters are those of WM_MOUSEWHEEL.
inline constexpr UINT kPageWheel = 0x8049;

}  // namespace mrl
