// Starts programs of the host system from under Wine.
#pragma once

#include <windows.h>

#include <string>

namespace mrl {

/// Starts `line` in `folder` (null: in the current one) with its output on `output`, if given,
/// which has to be inheritable. Does not wait for its end. False if it did not start.
bool startOnHost(std::wstring line, const wchar_t* folder = nullptr, HANDLE output = nullptr);

}  // namespace mrl
