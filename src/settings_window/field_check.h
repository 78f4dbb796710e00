// Takes one field from its control, if what stands there is valid. UI thread.
#pragma once

#include <string>

#include "core/app.h"
#include "settings_window/field_table.h"

namespace mrl {

struct FieldCheck {
  bool valid = true;
  bool typing = false;  // an empty box in which the user still is: neither valid nor invalid
  std::u16string error;
  int errorId = 0;  // the control that is to blame
};

/// Puts the control's value into `candidate`; an invalid one leaves the field as it was. An empty
/// number box that the user has left gets a 0. REQUIRES: the window is open.
FieldCheck takeField(App& app, const Field& field, Settings& candidate);

}  // namespace mrl
