// Paints the settings window and its controls, and owns their fonts and brushes. UI thread.
#pragma once

#include <windows.h>

#include <string>

#include "base/unique_handle.h"
#include "settings_window/form.h"
#include "settings_window/shapes_win.h"

namespace mrl {

struct BrushTraits {
  static HBRUSH none() { return nullptr; }
  static void close(HBRUSH brush) { DeleteObject(brush); }
};

/// The window properties that hold a control's marks: see Mark.
inline constexpr wchar_t kHoverProperty[] = L"Marlune.Hover";
inline constexpr wchar_t kActiveProperty[] = L"Marlune.Active";
inline constexpr wchar_t kInvalidProperty[] = L"Marlune.Invalid";

/// Empty without a window.
std::u16string windowText(HWND window);

/// Holds what painting needs while the window exists; everything else comes from the form.
class SettingsLook {
 public:
  explicit SettingsLook(const SettingsForm& form) : form(form) {}
  ~SettingsLook() { release(); }
  SettingsLook(const SettingsLook&) = delete;
  SettingsLook& operator=(const SettingsLook&) = delete;

  /// Creates fonts and brushes and starts GDI+; a later call only recreates the fonts for its DPI.
  void prepare(int dpi);
  void release();
  /// REQUIRES: prepare() was called.
  [[nodiscard]] HFONT fontOf(int id) const { return fonts[static_cast<size_t>(faceOf(id))].get(); }
  [[nodiscard]] int scale(int units) const { return toPixels(units, dpi); }

  /// Handle the WM_PAINT of `window`. REQUIRES: called while it is being handled.
  void paintWindow(HWND window) const;
  void paintPane(HWND window) const;
  void paintPreviewHost(HWND window) const;
  void paintQrCode(HWND window) const;
  /// A button, a check, a radio, a section or a combo.
  void paintControl(HWND window) const;
  /// The frame of an edit box. REQUIRES: its WM_NCPAINT is being handled.
  void paintEditFrame(HWND window) const;
  /// For an edit box's WM_NCCALCSIZE: narrows the system's client area to what our frame leaves.
  void narrowToFrame(RECT& client) const;
  /// Over a list without rows.
  void paintEmptyList(HWND window) const;
  /// WM_DRAWITEM of a combo's rows, the list of files and the status line; false for anything else.
  bool drawItem(const DRAWITEMSTRUCT& item) const;
  /// WM_MEASUREITEM; false for a menu.
  bool measureItem(MEASUREITEMSTRUCT& item) const;
  /// For the WM_CTLCOLOR messages. The brush remains ours.
  HBRUSH controlColours(UINT message, HDC dc, HWND control) const;

 private:
  using Brush = UniqueHandle<BrushTraits>;

  void paintClient(HWND window, const Drawing& drawing) const;

  const SettingsForm& form;
  int dpi = kUnitsPerInch;
  ULONG_PTR gdiplus = 0;
  Fonts fonts;
  Brush page, white, readOnly;
};

}  // namespace mrl
