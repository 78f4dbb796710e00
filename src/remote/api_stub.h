#pragma once
#include "core/app.h"
#include "core/commands.h"
#include "core/text.h"
namespace mrl {
inline std::string jsonString(std::u16string_view text) { return '"' + utf8From(text) + '"'; }
inline std::string buildStateJson(App&) { return "{}"; }
inline std::string controlsSnapshotJson(App&) { return "[]"; }
inline bool applyControlsForm(App&, const std::string&, std::u16string&) { return true; }
inline bool runRemoteCommand(App& app, const std::string& command, const std::string&,
                             std::u16string& error) {
  error = u"?";
  if (command == "toggle") runCommand(app, kCommandToggleTimer);
  return command == "state" || command == "toggle";
}
}  // namespace mrl
