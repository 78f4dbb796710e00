#pragma once

#include "settings_window/settings_view.h"

namespace mrl {

class SettingsViewWin : public SettingsView {};

}  // namespace mrl
