// The file types offered by the settings window's pickers. Constant data, any thread.
#pragma once

#include "settings_window/dialogs.h"

namespace mrl {

struct OfferedFiles {
  const char16_t* name;      // shown to the user
  const char16_t* patterns;  // separated by ";"
};
const OfferedFiles& offeredFiles(FileFilter filter);

}  // namespace mrl
