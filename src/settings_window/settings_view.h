// The settings window as its logic sees it.
#pragma once

namespace mrl {

class SettingsView {
 public:
  virtual ~SettingsView() = default;
};

}  // namespace mrl
