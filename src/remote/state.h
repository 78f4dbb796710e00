// The state document: all that a remote control sees.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// One JSON object without white space; every key is always there, in a fixed order. Lists the
/// folder of presentations anew. UI thread.
std::string buildStateJson(App& app);

}  // namespace mrl
