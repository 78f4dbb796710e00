#pragma once
#include "core/app.h"
namespace mrl {
inline std::string jsonString(std::u16string_view text) {
  return '"' + std::string(text.begin(), text.end()) + '"';
}
inline std::string buildStateJson(App&) { return "{}"; }
inline std::string controlsSnapshotJson(App&) { return "[]"; }
inline bool applyControlsForm(App&, const std::string&, std::u16string&) { return true; }
inline bool runRemoteCommand(App&, const std::string& command, const std::string&,
                             std::u16string& error) {
  error = u"?";
  return command == "state";
}
}  // namespace mrl
