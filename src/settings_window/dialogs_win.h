// SettingsDialogs on Windows: see dialogs.h.
#pragma once

#include "settings_window/dialogs.h"
#include "settings_window/view_win.h"

namespace mrl {

class SettingsDialogsWin : public SettingsDialogs {
 public:
  /// `owner` must outlive this object.
  explicit SettingsDialogsWin(const SettingsViewWin& owner) : view(owner) {}

  bool askYesNo(const std::u16string& text, const std::u16string& title, DialogIcon icon) override;
  void inform(const std::u16string& text, const std::u16string& title, DialogIcon icon) override;
  std::u16string pickFolder() override;
  std::u16string pickFile(FileFilter filter) override;
  bool pickColour(uint32_t& colour, CustomColours& custom) override;
  bool copyText(const std::u16string& text) override;

 private:
  const SettingsViewWin& view;
};

}  // namespace mrl
