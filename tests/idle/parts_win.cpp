// The real program with parts of it switched off, to see what each of them costs: the calls of the
// system through which a part works are replaced by some that do nothing. The arguments name the
// parts; the others are those of the program. The service has a setting and needs no word here.
#include <windows.h>
// Must come after <windows.h>.
#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "base/replaced_import_win.h"
#include "base/wide_win.h"
#include "core/app_win.h"

namespace mrl {
namespace {

template <class Function>
using Replaced = std::unique_ptr<ReplacedImport<Function>>;

template <class Function>
Replaced<Function> replaced(const char* name, Function* own) {
  return std::make_unique<ReplacedImport<Function>>(name, own);
}

UINT_PTR WINAPI startNoTimer(HWND, UINT_PTR, UINT, TIMERPROC) { return 1; }
HRESULT WINAPI knowNoProgram(LPCOLESTR, CLSID*) { return E_FAIL; }
BOOL WINAPI findNoWindows(WNDENUMPROC, LPARAM) { return TRUE; }
BOOL WINAPI invalidateNothing(HWND, const RECT*, BOOL) { return TRUE; }

/// What is switched off stays off until the process ends.
struct Parts {
  Replaced<decltype(startNoTimer)> timer;
  Replaced<decltype(knowNoProgram)> programs;
  Replaced<decltype(findNoWindows)> windows;
  Replaced<decltype(invalidateNothing)> invalidation;

  void switchOff(const std::u16string& part) {
    if (part == u"no-tick") timer = replaced("SetTimer", startNoTimer);
    if (part == u"no-poll") {
      programs = replaced("CLSIDFromProgID", knowNoProgram);
      windows = replaced("EnumWindows", findNoWindows);
    }
    // The first picture is painted all the same: showing the window asks for it.
    if (part == u"no-paint") invalidation = replaced("InvalidateRect", invalidateNothing);
  }
};

}  // namespace
}  // namespace mrl

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t*, int) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  int count = 0;
  wchar_t** const list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::u16string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(mrl::u16From(list[i]));
  mrl::Parts parts;
  std::ranges::for_each(arguments, [&](const auto& part) { parts.switchOff(part); });
  return mrl::AppWin(instance).run(arguments);
}
