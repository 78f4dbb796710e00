#include "core/shell_win.h"

#include <windows.h>

#include <shellapi.h>

#include "base/wide_win.h"

namespace mrl {

bool ShellWin::open(const std::u16string& target, const std::u16string& folder) {
  const std::wstring place = wideFrom(folder);
  const HINSTANCE result = ShellExecuteW(nullptr, L"open", wideFrom(target).c_str(), nullptr,
                                         place.empty() ? nullptr : place.c_str(), SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > 32;  // values up to 32 are errors
}

}  // namespace mrl
