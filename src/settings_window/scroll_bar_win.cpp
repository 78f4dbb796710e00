#include "settings_window/scroll_bar_win.h"

namespace mrl {

ScrollInfo scrollInfoOf(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return {info.nMax, static_cast<int>(info.nPage), info.nPos, info.nTrackPos};
}

void setScrollInfoOf(HWND window, int bar, const ScrollInfo& info) {
  if (window == nullptr) return;
  SCROLLINFO set{};
  set.cbSize = sizeof set;
  set.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  set.nMax = info.last;
  set.nPage = static_cast<UINT>(info.page);
  set.nPos = info.position;
  SetScrollInfo(window, bar, &set, TRUE);
}

}  // namespace mrl
