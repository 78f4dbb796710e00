// SettingsView on Windows: see view.h. SettingsLook paints it; messages_win.h
// handles its messages.
#pragma once

#include <windows.h>

#include <map>

#include "settings_window/control_table.h"
#include "settings_window/paint_win.h"
#include "settings_window/view.h"

namespace mrl {

class SettingsViewWin : public SettingsView {
 public:
  /// `owner` is the creation parameter that the window procedure expects. `form` must outlive this.
  SettingsViewWin(HINSTANCE programInstance, void* owner, const SettingsForm& form)
      : look(form), instance(programInstance), creationParameter(owner) {}

  bool create(const Rect& rect) override;
  bool isOpen() const override { return window != nullptr; }
  WindowHandle handle() const override;
  void destroy() override;
  void show() override;
  void restore() override;
  void standAboveAll(bool on) override;
  std::u16string text(int id) override;
  void setText(int id, const std::u16string& text) override;
  bool isChecked(int id) override;
  void setChecked(int id, bool checked) override;
  int row(int id) override;
  void setRow(int id, int row) override;
  void setListRows(int id, const std::vector<std::u16string>& rows) override;
  int topRow(int id) override;
  void setTopRow(int id, int row) override;
  bool hasFocus(int id) override;
  void focus(int id) override;
  void enable(int id, bool enabled) override;
  bool mark(int id, Mark mark) override;
  void setMark(int id, Mark mark, bool on) override;
  void redrawFrame(int id) override;
  void invalidate(int id) override;
  int dpi() const override { return isOpen() ? windowDpi : kUnitsPerInch; }
  void adoptDpi(int dpi, const Rect& rect) override;
  Size clientSize() const override;
  Rect rectOf(int id) override;
  void place(std::span<const Placement> placements) override;
  void setVisible(int id, bool visible) override;
  ScrollInfo scrollInfo() override;
  void setScrollInfo(const ScrollInfo& info) override;
  void redrawAll() override;
  void redrawPane() override;

  /// Null without a window or for an unknown id; the pane for kContentPane.
  [[nodiscard]] HWND control(int id) const;
  [[nodiscard]] HWND topWindow() const { return window; }
  [[nodiscard]] bool standsAboveAll() const { return aboveAll; }
  [[nodiscard]] const SettingsLook& painter() const { return look; }
  /// Call on WM_DESTROY, while the controls still exist.
  void onDestroying() const;
  /// Call on WM_NCDESTROY: forgets the handles and releases what painting needed.
  void onDestroyed();

 private:
  void comeUp(int how);
  bool createControl(const Control& row);
  void adorn(HWND made, const Control& row) const;
  void fitToDpi(HWND made, const Control& row) const;
  void placeOne(const Placement& placement) const;
  LRESULT send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  SettingsLook look;
  HINSTANCE instance;
  void* creationParameter;
  HWND window = nullptr;
  bool aboveAll = false;
  int windowDpi = kUnitsPerInch;  // as last reported by the system
  std::map<int, HWND> controls;   // including the pane
};

}  // namespace mrl
