#include "settings_window/field_check.h"

#include <algorithm>

#include "base/text.h"
#include "settings_window/field_values.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr char16_t kNumberBefore[] = u"请输入有效数值（";
constexpr char16_t kNumberAfter[] = u"）。";
constexpr char16_t kNoColour[] = u"颜色请输入 #RRGGBB 格式。";
constexpr char16_t kNoFont[] = u"请输入字体名称。";
constexpr char16_t kNoFolder[] = u"文件夹不存在或无法访问。";
constexpr char16_t kNoFile[] = u"文件不存在或无法访问。";
constexpr char16_t kNoStageSound[] = u"提示音文件不存在或无法访问。";

void setError(FieldCheck& check, int id, const std::u16string& error) {
  check.valid = false;
  check.errorId = id;
  check.error = error;
}

uint32_t readNumberBox(App& app, int id, const Range& range, FieldCheck& check) {
  SettingsView& view = app.platform.settingsView;
  if (view.text(id).empty()) {
    if (view.hasFocus(id)) {
      check.typing = true;
      return 0;
    }
    const SuppressControls quiet(app);
    view.setText(id, u"0");
  }
  const auto number = numberFrom(view.text(id));
  if (number && *number >= range.lowest && *number <= range.highest) return *number;
  setError(check, id,
           kNumberBefore + decimal(range.lowest) + u"–" + decimal(range.highest) + kNumberAfter);
  return 0;
}

void readPath(App& app, const Field& field, FileKind wanted, const char16_t* error,
              Settings& candidate, FieldCheck& check) {
  const std::u16string path = app.platform.settingsView.text(field.id);
  FileKind kind = FileKind::Missing;
  std::u16string reason;
  const bool fits =
      path.empty() || (app.platform.files.status(path, kind, reason) && kind == wanted);
  if (fits) {
    field.text().in(candidate) = path;
  } else {
    setError(check, field.id, error);
  }
}

/// The selected row of a combo, clamped to an index below `count`.
size_t validRow(App& app, int id, size_t count) {
  const int row = std::max(app.platform.settingsView.row(id), 0);
  return std::min(static_cast<size_t>(row), count - 1);
}

}  // namespace

FieldCheck takeField(App& app, const Field& field, Settings& candidate) {
  SettingsView& view = app.platform.settingsView;
  FieldCheck check{.errorId = field.id};
  switch (field.kind) {
    case FieldKind::Flag: field.flag().in(candidate) = view.isChecked(field.id); break;
    case FieldKind::DownRadio: field.flag().in(candidate) = view.isChecked(kDownRadio); break;
    case FieldKind::Number: {
      const uint32_t value = readNumberBox(app, field.id, rangeOf(field.number()), check);
      if (check.valid && !check.typing) field.number().in(candidate) = value;
      break;
    }
    case FieldKind::Time: {
      const uint32_t minutes = readNumberBox(app, field.id, {0, kMostMinutes}, check);
      const uint32_t seconds = readNumberBox(app, field.secondsId, {0, kMostSeconds}, check);
      if (check.valid && !check.typing) field.number().in(candidate) = minutes * 60 + seconds;
      break;
    }
    case FieldKind::Colour:
      if (const auto colour = colourFromText(view.text(field.id))) {
        field.number().in(candidate) = *colour;
      } else {
        setError(check, field.id, kNoColour);
      }
      break;
    case FieldKind::ShapeRow:
      field.number().in(candidate) = static_cast<uint32_t>(validRow(app, field.id, kShapeCount));
      break;
    case FieldKind::FontWeight:
      field.number().in(candidate) = kFontWeights[validRow(app, field.id, std::size(kFontWeights))];
      break;
    case FieldKind::FontName:
      if (view.text(field.id).empty()) {
        setError(check, field.id, kNoFont);
      } else {
        field.text().in(candidate) = view.text(field.id);
      }
      break;
    case FieldKind::Folder:
      readPath(app, field, FileKind::Directory, kNoFolder, candidate, check);
      break;
    case FieldKind::File: readPath(app, field, FileKind::Regular, kNoFile, candidate, check); break;
    case FieldKind::StageSound:
      readPath(app, field, FileKind::Regular, kNoStageSound, candidate, check);
      break;
    case FieldKind::SkipList: candidate.skipList = app.form.settings.skipList; break;
  }
  return check;
}

}  // namespace mrl
