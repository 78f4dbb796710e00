#include "windows/top_windows.h"

#include <iterator>

namespace mrl {
namespace {

struct Search {
  const std::wstring& className;
  std::vector<HWND> found;
};

BOOL CALLBACK addWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t name[80]{};
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  if (name == search.className) search.found.push_back(window);
  return TRUE;
}

}  // namespace

std::vector<HWND> topWindows(const std::wstring& className) {
  Search search{className, {}};
  EnumWindows(addWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND visibleTopWindow(const std::wstring& className, DWORD threadId) {
  for (const HWND each : topWindows(className)) {
    if (IsWindowVisible(each) && GetWindowThreadProcessId(each, nullptr) == threadId) return each;
  }
  return nullptr;
}

}  // namespace mrl
