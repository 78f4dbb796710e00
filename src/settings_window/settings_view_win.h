// The window itself is still to come: until then it can't be opened.
#pragma once

#include "settings_window/settings_view.h"

namespace mrl {

class SettingsViewWin : public SettingsView {
 public:
  bool create(const Rect& /*rect*/) override { return false; }
  bool isOpen() const override { return false; }
  WindowHandle handle() const override { return {}; }
  void destroy() override {}
  void show() override {}
  void restore() override {}
  std::u16string text(int /*id*/) override { return {}; }
  void setText(int /*id*/, const std::u16string& /*text*/) override {}
  bool isChecked(int /*id*/) override { return false; }
  void setChecked(int /*id*/, bool /*checked*/) override {}
  int row(int /*id*/) override { return -1; }
  void setRow(int /*id*/, int /*row*/) override {}
  void setListRows(int /*id*/, const std::vector<std::u16string>& /*rows*/) override {}
  int topRow(int /*id*/) override { return 0; }
  void setTopRow(int /*id*/, int /*row*/) override {}
  bool hasFocus(int /*id*/) override { return false; }
  void focus(int /*id*/) override {}
  void enable(int /*id*/, bool /*enabled*/) override {}
  bool mark(int /*id*/, Mark /*mark*/) override { return false; }
  void setMark(int /*id*/, Mark /*mark*/, bool /*on*/) override {}
  void redrawFrame(int /*id*/) override {}
  void invalidate(int /*id*/) override {}
  int dpi() const override { return kUnitsPerInch; }
  Size clientSize() const override { return {}; }
  Rect rectOf(int /*id*/) override { return {}; }
  void place(std::span<const Placement> /*placements*/) override {}
  void setVisible(int /*id*/, bool /*visible*/) override {}
  ScrollInfo scrollInfo(Bar /*bar*/) override { return {}; }
  void setScrollInfo(Bar /*bar*/, const ScrollInfo& /*info*/) override {}
  void redrawAll() override {}
  void redrawPane() override {}
  Size previewHostSize() override { return {}; }
  void placePreview(const Rect& /*rect*/) override {}
  bool askYesNo(const std::u16string& /*text*/, const std::u16string& /*title*/,
                DialogIcon /*icon*/) override {
    return false;
  }
  void inform(const std::u16string& /*text*/, const std::u16string& /*title*/,
              DialogIcon /*icon*/) override {}
  std::u16string pickFolder() override { return {}; }
  std::u16string pickFile(FileFilter /*filter*/) override { return {}; }
  bool pickColour(uint32_t& /*colour*/, CustomColours& /*custom*/) override { return false; }
  bool copyText(const std::u16string& /*text*/) override { return false; }
};

}  // namespace mrl
