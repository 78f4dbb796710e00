// Subclasses the buttons, boxes, combos and the list of the settings window: painting, mouse and
// keys. UI thread.
#pragma once

#include <windows.h>

#include "settings_window/paint_win.h"

namespace mrl {

/// Takes over a control's painting, of an edit box or list only parts. `look` must outlive it.
void adoptControl(HWND control, const SettingsLook& look);
/// Adds the switch, wheel and empty text of the list of files. `look` must outlive it.
void adoptFileList(HWND list, const SettingsLook& look);

/// Sent to the pane to scroll the page; the parameters are those of WM_MOUSEWHEEL.
inline constexpr UINT kPageWheel = 0x8049;

}  // namespace mrl
