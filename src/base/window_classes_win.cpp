#include "base/window_classes_win.h"

#include "resources/resource_ids.h"

namespace mrl {
namespace {

HBRUSH classBrush(int index) { return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(index + 1)); }

HBRUSH stockBrush(int object) { return static_cast<HBRUSH>(GetStockObject(object)); }

HICON classIcon(HINSTANCE instance, int widthMetric, int heightMetric) {
  return static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(MARLUNE_ICON), IMAGE_ICON,
                                       GetSystemMetrics(widthMetric),
                                       GetSystemMetrics(heightMetric), LR_SHARED));
}

}  // namespace

bool isWindowClass(HWND window, const wchar_t* name) {
  wchar_t buffer[80];
  return GetClassNameW(window, buffer, 80) != 0 && lstrcmpiW(buffer, name) == 0;
}

void registerWindowClasses(HINSTANCE instance, WNDPROC procedure) {
  const struct {
    const wchar_t* name;
    HBRUSH background;
  } classes[] = {
      {kTimerClass, nullptr},
      {kSettingsClass, classBrush(COLOR_BTNFACE)},
      {kContentClass, classBrush(COLOR_BTNFACE)},
      {kPreviewClass, nullptr},
      {kPreviewHostClass, stockBrush(BLACK_BRUSH)},
      {kResizeClass, classBrush(COLOR_BTNFACE)},
      {kQrClass, stockBrush(WHITE_BRUSH)},
      {kBlackClass, stockBrush(BLACK_BRUSH)},
  };
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = instance;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hIcon = classIcon(instance, SM_CXICON, SM_CYICON);
  windowClass.hIconSm = classIcon(instance, SM_CXSMICON, SM_CYSMICON);
  for (const auto& row : classes) {
    windowClass.lpszClassName = row.name;
    windowClass.hbrBackground = row.background;
    RegisterClassExW(&windowClass);
  }
}

}  // namespace mrl
