// Starts programs of Windows from a test.
#pragma once

#include <windows.h>

#include <string>

namespace mrl {

/// Starts `line`; the caller closes the handle. Null if it did not start, with GetLastError's
/// reason.
HANDLE startProcess(std::wstring line);

}  // namespace mrl
