// The entry point of the process.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <shobjidl.h>

#include <string>
#include <vector>

#include "base/wide_win.h"
#include "core/app_win.h"

namespace {

struct ComApartment {
  const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  ComApartment() = default;
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment() {
    if (SUCCEEDED(result)) CoUninitialize();
  }
};

std::vector<std::u16string> programArguments() {
  int count = 0;
  wchar_t** list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::u16string> arguments;
  for (int i = 1; list != nullptr && i < count; ++i) arguments.push_back(mrl::u16From(list[i]));
  LocalFree(list);
  return arguments;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t*, int) {
  SetCurrentProcessExplicitAppUserModelID(L"Marlune.Native");
  const ComApartment apartment;
  if (FAILED(apartment.result)) return mrl::kExitNoCom;
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TAB_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  return mrl::AppWin(instance).run(programArguments());
}
