#pragma once

#include "settings_window/settings_view.h"

namespace mrl {

class SettingsViewFake : public SettingsView {};

}  // namespace mrl
