// Validates the input of one field and reads it into a Settings candidate. UI thread.
#pragma once

#include <string>

#include "core/app.h"
#include "settings_window/control_table.h"

namespace mrl {

struct FieldCheck {
  bool valid = true;
  bool typing = false;  // an empty number box that has the focus: neither valid nor invalid
  std::u16string error;
  int errorId = 0;  // the control with the invalid input
};

/// Reads the control's value into `candidate`; invalid or unfinished input leaves the field
/// unchanged. Writes 0 into an empty number box without the focus. REQUIRES: the window is open.
FieldCheck takeField(App& app, const Field& field, Settings& candidate);

}  // namespace mrl
