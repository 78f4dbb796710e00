#include "settings_window/preview_view_win.h"

#include "base/geometry_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/scroll_bar_win.h"

namespace mrl {
namespace {

int systemBar(PreviewBar bar) { return bar == PreviewBar::Horizontal ? SB_HORZ : SB_VERT; }

}  // namespace

Size PreviewViewWin::hostSize() { return clientSizeOf(view.control(kPreviewHost)); }

ScrollInfo PreviewViewWin::scrollInfo(PreviewBar bar) {
  return scrollInfoOf(view.control(kPreviewHost), systemBar(bar));
}

void PreviewViewWin::setScrollInfo(PreviewBar bar, const ScrollInfo& info) {
  setScrollInfoOf(view.control(kPreviewHost), systemBar(bar), info);
}

Rect PreviewViewWin::rect() { return view.rectOf(kPreview); }

void PreviewViewWin::place(const Rect& rect) {
  if (view.control(kPreview) == nullptr) return;
  SetWindowPos(view.control(kPreview), nullptr, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace mrl
