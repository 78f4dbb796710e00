// How the settings window and its controls look: fonts, brushes and every paint. UI thread.
#pragma once

#include <windows.h>

#include <string>

#include "base/unique_handle.h"
#include "settings_window/settings_form.h"
#include "settings_window/settings_shapes_win.h"

namespace mrl {

struct BrushTraits {
  static HBRUSH none() { return nullptr; }
  static void close(HBRUSH brush) { DeleteObject(brush); }
};

/// What a control says about itself by window properties of these names.
inline constexpr wchar_t kHoverProperty[] = L"Marlune.Hover";
inline constexpr wchar_t kActiveProperty[] = L"Marlune.Active";
inline constexpr wchar_t kInvalidProperty[] = L"Marlune.Invalid";

bool isWindowClass(HWND window, const wchar_t* name);
/// Empty without a window.
std::u16string windowText(HWND window);

/// What painting needs for as long as the window lives. Everything else comes from the form.
class SettingsLook {
 public:
  explicit SettingsLook(const SettingsForm& form) : form(form) {}
  ~SettingsLook() { release(); }
  SettingsLook(const SettingsLook&) = delete;
  SettingsLook& operator=(const SettingsLook&) = delete;

  /// Fonts, brushes and GDI+; a later call only makes the fonts for another DPI.
  void prepare(int dpi);
  void release();
  /// REQUIRES: it is prepared.
  [[nodiscard]] HFONT fontOf(int id) const { return fonts[static_cast<size_t>(faceOf(id))].get(); }
  [[nodiscard]] int scale(int units) const { return toPixels(units, dpi); }

  /// REQUIRES: a WM_PAINT of that window is being handled. They answer it.
  void paintWindow(HWND window) const;
  void paintPane(HWND window) const;
  void paintPreviewHost(HWND window) const;
  void paintQrCode(HWND window) const;
  /// A button, a check, a radio, a section or a combo.
  void paintControl(HWND window) const;
  /// Around an edit box; REQUIRES: its WM_NCPAINT.
  void paintEditFrame(HWND window) const;
  /// Answers its WM_NCCALCSIZE: `client` is what the system leaves.
  void narrowToFrame(RECT& client) const;
  /// Over a list without rows.
  void paintEmptyList(HWND window) const;
  /// WM_DRAWITEM of a combo's rows, the list of files and the status line; false for anything else.
  bool drawItem(const DRAWITEMSTRUCT& item) const;
  /// WM_MEASUREITEM; false for anything else.
  bool measureItem(MEASUREITEMSTRUCT& item) const;
  /// Answers the WM_CTLCOLOR messages.
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
