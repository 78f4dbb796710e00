// Small files that report to a test what the program has done. Test mode only.
#pragma once

#include <string>

#include "core/app.h"

namespace mrl {

/// Path of `name` in the folder chosen by the test.
std::u16string inTestRoot(const App& app, const std::u16string& name);

/// Replaces an existing file. A failure is not reported: whoever waits for the file will notice.
void writeTestFile(App& app, const std::u16string& name, const std::string& bytes);

}  // namespace mrl
