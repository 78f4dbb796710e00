// An App with its settings window open, and helpers that act as the user.
#pragma once

#include <algorithm>
#include <string>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "settings_window/auto_apply.h"
#include "settings_window/control_table.h"
#include "settings_window/window.h"

namespace mrl {

class SettingsFixture : public AppFixture {
 protected:
  static constexpr char16_t kApplied[] = u"设置已自动保存并生效。";
  static constexpr char16_t kEditing[] = u"正在编辑，输入有效后自动应用。";
  static constexpr char16_t kTyping[] = u"正在编辑，输入完成后自动应用。";
  static constexpr char16_t kOthersWait[] = u"设置已生效；另有输入尚未完成。";
  static constexpr char16_t kNotApplied[] = u" 此项尚未应用，其他设置可继续使用。";

  void SetUp() override { openWith(Settings{}); }

  /// Starts the program with `settings`, saved in C:\data, and opens the window.
  void openWith(const Settings& settings) {
    if (app.form.isOpen) destroySettingsWindow(app);
    clockWindow.exists = false;
    startWith(settings);
    runCommand(app, kCommandOpenSettings);
    ASSERT_TRUE(app.form.isOpen);
  }

  SettingsViewFake& view() { return settingsView; }
  SettingsDialogsFake& dialogs() { return settingsDialogs; }
  PreviewViewFake& preview() { return previewView; }
  std::u16string status() { return view().text(kStatusText); }
  bool isRed(int id) { return view().mark(id, Mark::Invalid); }
  bool isEnabled(int id) { return !view().disabled.contains(id); }
  bool isPending(int id) const { return app.form.pendingEdits.contains(id); }
  /// Types into a box and leaves it.
  void enter(int id, const std::u16string& text) {
    view().type(id, text);
    view().leave(id);
  }
  void failSaves() { files().failing = {FilesFake::Operation::Create}; }
  int saves() {
    const auto& done = files().done;
    return static_cast<int>(std::count_if(done.begin(), done.end(), [](const auto& step) {
      return step.operation == FilesFake::Operation::Replace;
    }));
  }
};

}  // namespace mrl
