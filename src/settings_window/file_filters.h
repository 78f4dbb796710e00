// Which files the pickers of the settings window offer. Constant data, any thread.
#pragma once

#include "settings_window/settings_view.h"

namespace mrl {

struct OfferedFiles {
  const char16_t* name;      // as the user reads it
  const char16_t* patterns;  // divided by ";"
};
const OfferedFiles& offeredFiles(FileFilter filter);

}  // namespace mrl
