// Builds the state document: everything that a remote client sees.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// One JSON object without white space; all keys are always present, in a fixed order. Re-reads the
/// folder of presentations. UI thread.
std::string buildStateJson(App& app);

}  // namespace mrl
