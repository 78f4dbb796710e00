#include "settings_window/presentation_page.h"

#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "presentation/catalogue.h"
#include "presentation/documents.h"
#include "presentation/show_control.h"
#include "settings/path_rules.h"
#include "settings_window/auto_apply.h"
#include "settings_window/control_ids.h"
#include "settings_window/form_sync.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr char16_t kChooseFile[] = u"请先选择演示文稿。";
constexpr char16_t kChooseFolder[] = u"请选择 PPT 文件夹";
constexpr char16_t kNoFiles[] = u"文件夹不存在、不可访问或没有演示文稿";

/// Empty without a selected row.
std::u16string selectedPath(App& app) {
  const int row = app.platform.settingsView.row(kFileList);
  const auto& paths = app.form.filePaths;
  return row >= 0 && static_cast<size_t>(row) < paths.size() ? paths[row] : std::u16string();
}

std::vector<std::u16string> listRows(App& app) {
  std::vector<std::u16string> rows;
  for (const std::u16string& path : app.form.filePaths) {
    const PresentationFile file = presentationFile(app.form.settings, path);
    rows.push_back((file.skip ? kSkippedRow : kTimedRow) + file.name);
  }
  return rows;
}

std::u16string countLine(const App& app) {
  if (app.form.settings.pptFolder.empty()) return kChooseFolder;
  if (app.form.filePaths.empty()) return kNoFiles;
  return u"共 " + decimal(static_cast<int64_t>(app.form.filePaths.size())) +
         u" 个文件 · 勾选后立即生效";
}

bool runFileButton(App& app, int id, const std::u16string& path, std::u16string& error) {
  const PresentationAccess access = app.platform.presentation();
  if (id == kCloseFileButton) return closeDocument(access, app.automation, path, error);
  return tryOpenDocument(access, app.automation, path, id == kPlayFileButton, error);
}

void onFileButton(App& app, int id) {
  const std::u16string path = selectedPath(app);
  std::u16string error;
  if (path.empty()) {
    setStatus(app, kChooseFile);
  } else if (!runFileButton(app, id, path, error)) {
    setStatus(app, error);
  }
}

struct ShowButton {
  int id;
  std::string_view word;
};
constexpr ShowButton kShowButtons[] = {
    {kBeginShowButton, "begin"},        {kCurrentSlideButton, "current"},
    {kPreviousSlideButton, "previous"}, {kNextSlideButton, "next"},
    {kExitShowButton, "exit"},
};

void onShowButton(App& app, std::string_view word) {
  std::u16string error;
  if (!sendShowCommand(app.platform.presentation(), app.automation, word, error)) {
    setStatus(app, error);
  }
}

}  // namespace

void reloadFileList(App& app) {
  if (!app.form.isOpen) return;
  SettingsView& view = app.platform.settingsView;
  const std::u16string selected = selectedPath(app);
  const int top = view.topRow(kFileList);
  auto& paths = app.form.filePaths;
  paths = listPresentations(app.platform.files, app.form.settings.pptFolder);
  view.setListRows(kFileList, listRows(app));
  const auto same = std::ranges::find_if(
      paths, [&](const std::u16string& path) { return samePath(path, selected); });
  if (!selected.empty() && same != paths.end()) {
    view.setRow(kFileList, static_cast<int>(same - paths.begin()));
  }
  if (top > 0 && !paths.empty()) {
    view.setTopRow(kFileList, std::min(top, static_cast<int>(paths.size()) - 1));
  }
  setTextIfChanged(app, kFileCount, countLine(app));
}

void toggleSelectedExclusion(App& app) {
  SettingsView& view = app.platform.settingsView;
  const std::u16string path = selectedPath(app);
  if (path.empty()) return setStatus(app, kChooseFile);
  const int row = view.row(kFileList);
  toggleSkip(app.platform.files, app.form.settings, path);
  queueEdit(app, kToggleExclusion, 0);
  applyEdit(app, kToggleExclusion);
  view.setRow(kFileList, row);
  refreshEnableStates(app);
}

bool onPresentationButton(App& app, int id) {
  switch (id) {
    case kReloadListButton:
      syncForm(app);
      reloadFileList(app);
      return true;
    case kOpenFileButton:
    case kPlayFileButton:
    case kCloseFileButton: onFileButton(app, id); return true;
    default: break;
  }
  const auto* button = std::ranges::find(kShowButtons, id, &ShowButton::id);
  if (button == std::end(kShowButtons)) return false;
  onShowButton(app, button->word);
  return true;
}

bool handsWheelOn(const ListWheel& wheel) {
  if (!wheel.isInside) return true;
  const int visible = std::max(wheel.height / std::max(wheel.rowHeight, 1), 1);
  const int last = std::max(wheel.rows - visible, 0);
  return wheel.delta > 0 ? wheel.topRow == 0 : wheel.topRow >= last;
}

}  // namespace mrl
