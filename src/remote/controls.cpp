#include "remote/controls.h"

#include <charconv>
#include <cstdio>
#include <map>
#include <string_view>

#include "base/fnv1a.h"
#include "core/clock_behaviour.h"
#include "http/json_text.h"
#include "settings/settings_file.h"

namespace mrl {
namespace {

constexpr char16_t kMalformed[] = u"设置格式无效。";
constexpr char16_t kStale[] = u"电脑设置已更新。遥控端草稿已保留，请重新加载后确认。";
constexpr char16_t kIncomplete[] = u"设置字段不完整。";
constexpr char16_t kNoBoolean[] = u"开关字段无效。";
constexpr char16_t kOutOfRange[] = u"数值超出范围：";
constexpr char16_t kUnknownField[] = u"请求包含不支持的字段，未修改任何设置。";
constexpr char16_t kBlackConflict[] = u"全屏黑屏不能与退出放映或播放指定文稿同时开启。";
constexpr char16_t kUnfinished[] = u"电脑有尚未完成的输入，请先修正或完成输入。";
constexpr char16_t kControlsApplied[] = u"遥控参数已保存并应用。";

constexpr size_t remoteCount(const auto& rows) {
  size_t count = 0;
  for (const auto& row : rows) count += row.remote.name != nullptr;
  return count;
}

template <typename Record>
ControlField fieldOf(const std::string& prefix, const Setting<Record>& row, Record& record) {
  ControlField field{.name = prefix + row.remote.name};
  if (const auto* const flag = std::get_if<bool Record::*>(&row.member)) {
    field.target = &(record.*(*flag));
    return field;
  }
  field.target = &(record.*std::get<uint32_t Record::*>(row.member));
  const Range range = row.remoteRange.value_or(row.range);
  field.minimum = static_cast<int32_t>(range.lowest);
  field.maximum = static_cast<int32_t>(range.highest);
  return field;
}

/// Fills the fields from `first` on, each at its place in the form.
template <typename Record>
void fillFields(ControlField* first, const std::string& prefix, const auto& rows, Record& record) {
  for (const Setting<Record>& row : rows) {
    if (row.remote.name) first[row.remote.place] = fieldOf(prefix, row, record);
  }
}

using Form = std::map<std::string, std::string, std::less<>>;

/// Accepts a trailing "&"; rejects anything else that is not key=value, and duplicate keys.
bool splitForm(std::string_view text, Form& form) {
  while (!text.empty()) {
    const size_t end = text.find('&');
    const std::string_view pair = text.substr(0, end);
    const size_t equals = pair.find('=');
    if (equals == pair.npos) return false;
    if (!form.emplace(pair.substr(0, equals), pair.substr(equals + 1)).second) return false;
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
  }
  return true;
}

bool storeValue(bool& target, const std::string& value, const ControlField& /*field*/,
                std::u16string& error) {
  if (value != "0" && value != "1") {
    error = kNoBoolean;
    return false;
  }
  target = value == "1";
  return true;
}

bool storeValue(uint32_t& target, const std::string& value, const ControlField& field,
                std::u16string& error) {
  int32_t number = 0;
  const char* const end = value.data() + value.size();
  const auto [stop, failure] = std::from_chars(value.data(), end, number);
  if (failure != std::errc() || stop != end || number < field.minimum || number > field.maximum) {
    error = kOutOfRange + std::u16string(field.name.begin(), field.name.end());
    return false;
  }
  target = static_cast<uint32_t>(number);
  return true;
}

/// Stores every field of the form in the Settings that `fields` points into, and removes it from
/// the form.
bool storeFields(Form& form, const std::vector<ControlField>& fields, std::u16string& error) {
  for (const ControlField& field : fields) {
    const auto entry = form.find(field.name);
    if (entry == form.end()) {
      error = kIncomplete;
      return false;
    }
    if (!std::visit([&](auto* target) { return storeValue(*target, entry->second, field, error); },
                    field.target)) {
      return false;
    }
    form.erase(entry);
  }
  return true;
}

/// Fills `changed` from the form; does all checks, but doesn't save.
bool readForm(const Settings& live, const std::string& text, Settings& changed,
              std::u16string& error) {
  Form form;
  if (!splitForm(text, form)) {
    error = kMalformed;
    return false;
  }
  if (form["revision"] != controlsRevision(live)) {
    error = kStale;
    return false;
  }
  form.erase("revision");
  if (!storeFields(form, controlFields(changed), error)) return false;
  if (!form.empty()) {
    error = kUnknownField;
    return false;
  }
  if (hasBlackConflict(changed)) {
    error = kBlackConflict;
    return false;
  }
  return true;
}

}  // namespace

std::vector<ControlField> controlFields(Settings& settings) {
  constexpr size_t kFirstStage = remoteCount(kSettings);
  constexpr size_t kSecondStage = kFirstStage + remoteCount(kStageSettings);
  std::vector<ControlField> fields(kSecondStage + remoteCount(kStageSettings));
  fillFields(&fields[0], "", kSettings, settings);
  fillFields(&fields[kFirstStage], "prompt1.", kStageSettings, settings.prompt1);
  fillFields(&fields[kSecondStage], "prompt2.", kStageSettings, settings.prompt2);
  return fields;
}

std::string controlsValuesJson(const Settings& settings) {
  Settings copy = settings;  // the rows need writable fields
  std::string values;
  for (const ControlField& field : controlFields(copy)) {
    if (!values.empty()) values += ',';
    values += '"' + field.name + "\":";
    if (const auto* const flag = std::get_if<bool*>(&field.target)) {
      values += jsonBoolean(**flag);
    } else {
      values += std::to_string(*std::get<uint32_t*>(field.target));
    }
  }
  return '{' + values + '}';
}

std::string controlsRevision(const Settings& settings) {
  uint64_t hash = kFnvOffsetBasis;
  for (const char byte : controlsValuesJson(settings)) {
    hash = fnv1a(hash, static_cast<unsigned char>(byte));
  }
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return digits;
}

std::string controlsSnapshotJson(const App& app) {
  return "{\"revision\":\"" + controlsRevision(app.settings) +
         "\",\"values\":" + controlsValuesJson(app.settings) + '}';
}

bool hasUnfinishedInput(const App& app, std::u16string& error) {
  if (!app.form.isOpen || !app.form.settingsDirty) return false;
  error = kUnfinished;
  return true;
}

bool applyControlsForm(App& app, const std::string& form, std::u16string& error) {
  if (hasUnfinishedInput(app, error)) return false;
  Settings changed = app.settings;
  if (!readForm(app.settings, form, changed, error)) return false;
  if (!adoptSettings(app, changed, FormUpdate::All, error)) return false;
  if (app.form.isOpen) setStatus(app, kControlsApplied);
  app.platform.clockWindow.dropRegion();  // shape and look may have changed
  applyHideRules(app);
  return true;
}

}  // namespace mrl
