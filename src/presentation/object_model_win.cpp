// Reaches a program's object model the way assistive technology does: through its windows.
#include "presentation/object_model_win.h"

#include <oleacc.h>

#include <algorithm>

#include "base/geometry_win.h"

namespace mrl {
namespace {

constexpr UINT kHangLimitMs = 200;

using AskWindow = decltype(&AccessibleObjectFromWindow);

// Loaded on first use: most runs never need it.
AskWindow askWindow() {
  static const HMODULE kLibrary =
      LoadLibraryExW(L"oleacc.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  static const auto kFunction = reinterpret_cast<AskWindow>(reinterpret_cast<void*>(
      kLibrary ? GetProcAddress(kLibrary, "AccessibleObjectFromWindow") : nullptr));
  return kFunction;
}

}  // namespace

bool ObjectModelSearch::answers(HWND window) {
  const DWORD thread = GetWindowThreadProcessId(window, nullptr);
  if (std::find(silentThreads.begin(), silentThreads.end(), thread) != silentThreads.end()) {
    return false;
  }
  // Probe first: the real request waits far longer, on some systems forever.
  if (SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kHangLimitMs, nullptr)) {
    return true;
  }
  silentThreads.push_back(thread);
  return false;
}

ComRef<IDispatch> ObjectModelSearch::objectOf(WindowHandle window) {
  ComRef<IDispatch> object;
  const AskWindow ask = askWindow();
  if (!ask || !answers(windowFrom(window))) return object;
  const HRESULT result = ask(windowFrom(window), static_cast<DWORD>(OBJID_NATIVEOM), IID_IDispatch,
                             reinterpret_cast<void**>(object.put()));
  if (FAILED(result)) return {};
  return object;
}

}  // namespace mrl
