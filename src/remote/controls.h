// The settings as one form that a remote control reads and saves, and the rule that keeps two
// editors from overwriting each other: a form says which values it was based on, and is refused
// when they have changed. UI thread.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "core/app.h"

namespace mrl {

constexpr int32_t kMaxDurationSeconds = 59999;  // that a remote control may set

/// One row of the form. Points into the record that it was made for.
struct ControlField {
  std::string name;  // key of the document and of the form
  std::variant<uint32_t*, bool*> target;
  int32_t minimum = 0;  // inclusive; both 0 for a boolean
  int32_t maximum = 0;
};

/// All rows, in the order of the document.
std::vector<ControlField> controlFields(Settings& settings);

/// The values of all rows as one JSON object.
std::string controlsValuesJson(const Settings& settings);

/// 16 hexadecimal digits that depend on the values of all rows and on nothing else: a change that
/// is undone brings the old revision back.
std::string controlsRevision(const Settings& settings);

/// Revision and values.
std::string controlsSnapshotJson(const App& app);

/// Saves a whole form ("name=value" joined by "&") and adopts it. All or nothing: on failure
/// returns false, fills `error` with the text for the user, and record and file are as they were.
[[nodiscard]] bool applyControlsForm(App& app, const std::string& form, std::u16string& error);

}  // namespace mrl
