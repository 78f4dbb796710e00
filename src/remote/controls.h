// The settings as one form that a remote client reads and saves. A form carries the revision of the
// values it was based on and is refused if they have changed since, so that two editors don't
// overwrite each other. UI thread.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "core/app.h"
#include "settings/settings.h"

namespace mrl {

/// One row of the form, made from the table of settings. Points into the Settings it was created
/// for.
struct ControlField {
  std::string name;  // key in the JSON document and in the form
  std::variant<uint32_t*, bool*> target;
  int32_t minimum = 0;  // inclusive; both 0 for a boolean
  int32_t maximum = 0;
};

/// All rows, in the order of the JSON document.
std::vector<ControlField> controlFields(Settings& settings);

/// The values of all rows as one JSON object.
std::string controlsValuesJson(const Settings& settings);

/// Hash of the values of all rows and nothing else, as 16 hexadecimal digits: undoing a change
/// restores the old revision.
std::string controlsRevision(const Settings& settings);

/// Revision and values.
std::string controlsSnapshotJson(const App& app);

/// Applies and saves a complete form ("name=value" joined by "&"). All or nothing: on failure
/// returns false, fills `error` with a message for the user, and leaves settings and file
/// unchanged.
[[nodiscard]] bool applyControlsForm(App& app, const std::string& form, std::u16string& error);

/// Every remote change of the settings has to pass this check: true, and fills `error`, while the
/// settings window contains unapplied input, which a client must never overwrite.
bool hasUnfinishedInput(const App& app, std::u16string& error);

}  // namespace mrl
