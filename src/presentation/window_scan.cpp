// The scan, and the class names and titles by which it recognises windows.
#include "presentation/window_scan.h"

#include <string_view>

#include "base/char_rules.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

enum class WindowKind { Other, Presentation, Show };
enum class TextOf { ClassName, Title };

struct KindRow {
  TextOf text;
  std::u16string_view contains;
  WindowKind kind;
};

// The first matching row decides. Class names are lower-cased before, titles are not.
constexpr KindRow kKinds[] = {
    {TextOf::ClassName, u"screenclass", WindowKind::Show},
    {TextOf::ClassName, u"pptview", WindowKind::Show},
    {TextOf::ClassName, u"wppview", WindowKind::Show},
    {TextOf::Title, u"幻灯片放映", WindowKind::Show},
    {TextOf::Title, u"Slide Show", WindowKind::Show},
    {TextOf::Title, u".ppt", WindowKind::Presentation},
    {TextOf::Title, u".dps", WindowKind::Presentation},
    {TextOf::ClassName, u"ppt", WindowKind::Presentation},
    {TextOf::ClassName, u"wpp", WindowKind::Presentation},
};

// A show's edges may be this many pixels inside those of its monitor.
constexpr int kEdgeTolerance = 16;

WindowKind kindOf(const std::u16string& title, const std::u16string& className) {
  for (const KindRow& row : kKinds) {
    const std::u16string& text = row.text == TextOf::Title ? title : className;
    if (text.find(row.contains) != std::u16string::npos) return row.kind;
  }
  return WindowKind::Other;
}

bool covers(const Rect& window, const Rect& monitor) {
  // Both are empty if the window has just been closed; that must not count as covering.
  if (monitor == Rect{}) return false;
  return window.left <= monitor.left + kEdgeTolerance &&
         window.top <= monitor.top + kEdgeTolerance &&
         window.right >= monitor.right - kEdgeTolerance &&
         window.bottom >= monitor.bottom - kEdgeTolerance;
}

}  // namespace

WindowScan scanPresentationWindows(ProgramWindows& programs, const std::u16string& documentFilter) {
  WindowSystem& windows = programs.desktop();
  WindowScan scan;
  scan.documentFilter = documentFilter;
  for (const auto& [window, provider] : programs.rows()) {
    if (windows.isIconic(window)) continue;
    const std::u16string title = windows.title(window);
    const WindowKind kind = kindOf(title, lowerCopy(windows.className(window)));
    if (kind == WindowKind::Other) continue;

    scan.found = true;
    scan.titles.push_back(title);
    if (!scan.firstWindow) scan.firstWindow = window;

    if (kind != WindowKind::Show) continue;
    if (!documentFilter.empty() && !titleNamesDocument(title, documentFilter)) continue;
    // No early exit: of several shows the last one counts.
    if (covers(windows.rect(window), windows.monitorRect(window))) {
      scan.fullScreenWindow = window;
      scan.fullScreenTitle = title;
    }
  }
  return scan;
}

}  // namespace mrl
