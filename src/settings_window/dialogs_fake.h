// SettingsDialogs whose answers a test chooses.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "settings_window/dialogs.h"
#include "settings_window/view_fake.h"

namespace mrl {

class SettingsDialogsFake : public SettingsDialogs {
 public:
  /// `owner` must outlive this object; a question takes the focus from its controls.
  explicit SettingsDialogsFake(SettingsViewFake& owner) : view(owner) {}

  bool askYesNo(const std::u16string& text, const std::u16string& title, DialogIcon icon) override {
    questions.push_back({text, title, icon});
    const int before = view.focused;
    view.leave(before);  // the message box has the focus meanwhile
    view.focus(before);
    return answersYes;
  }
  void inform(const std::u16string& text, const std::u16string& title, DialogIcon icon) override {
    information.push_back({text, title, icon});
  }
  std::u16string pickFolder() override {
    meanwhile();
    return picked;
  }
  std::u16string pickFile(FileFilter filter) override {
    filters.push_back(filter);
    meanwhile();
    return picked;
  }
  bool pickColour(uint32_t& colour, CustomColours& custom) override {
    offeredColours.push_back(colour);
    meanwhile();
    if (!pickedColour) return false;
    colour = *pickedColour;
    custom[0] = colour;
    return true;
  }
  bool copyText(const std::u16string& text) override {
    if (copyFails) return false;
    clipboard = text;
    return true;
  }

  struct Message {
    std::u16string text;
    std::u16string title;
    DialogIcon icon;
    bool operator==(const Message&) const = default;
  };

  // Settings for a test.
  bool answersYes = false;
  bool copyFails = false;
  std::u16string picked;                    // empty: the user cancels
  std::optional<uint32_t> pickedColour;     // empty: the user cancels
  std::function<void()> meanwhile = [] {};  // while something is being picked

  // What was recorded.
  std::vector<Message> questions;
  std::vector<Message> information;
  std::vector<FileFilter> filters;
  std::vector<uint32_t> offeredColours;
  std::u16string clipboard;

 private:
  SettingsViewFake& view;
};

}  // namespace mrl
