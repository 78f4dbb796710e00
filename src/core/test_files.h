// The small files by which the program tells a test what it has done. They exist in test mode only.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// Path of `name` in the folder that the test has chosen.
std::u16string inTestRoot(const App& app, const std::u16string& name);

/// Replaces what stands there. A failure is not told: whoever waits for the file will notice.
void writeTestFile(App& app, const std::u16string& name, const std::string& bytes);

}  // namespace mrl
