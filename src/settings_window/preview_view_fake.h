// A PreviewView in memory. Its scroll bars come and go and take their room as in the system.
#pragma once

#include <functional>
#include <map>
#include <utility>

#include "settings_window/preview_view.h"
#include "settings_window/view_fake.h"

namespace mrl {

class PreviewViewFake : public PreviewView {
 public:
  /// `window` holds the preview and must outlive this object.
  explicit PreviewViewFake(SettingsViewFake& window) : view(window) {
    view.destroyed = [this] { bars.clear(); };
  }

  Size hostSize() override {
    if (!view.open) return {};
    return {host.width - (isShown(PreviewBar::Vertical) ? kBarPixels : 0),
            host.height - (isShown(PreviewBar::Horizontal) ? kBarPixels : 0)};
  }
  ScrollInfo scrollInfo(PreviewBar bar) override {
    return bars.contains(bar) ? bars[bar] : ScrollInfo{};
  }
  void setScrollInfo(PreviewBar bar, const ScrollInfo& info) override {
    if (!view.open) return;
    const Size before = hostSize();
    bars[bar] = info;
    if (hostSize() != before) hostSized();
  }
  Rect rect() override { return placed; }
  void place(const Rect& rect) override {
    if (!view.open) return;
    const Rect before = std::exchange(placed, rect);
    const Size size{rect.width(), rect.height()};
    if (size != Size{before.width(), before.height()}) sized(size);
  }

  // Settings for a test.
  std::function<void()> hostSized = [] {};
  std::function<void(Size)> sized = [](Size) {};
  Size host{700, 112};  // including its scroll bars

  // The state of the host and the preview.
  std::map<PreviewBar, ScrollInfo> bars;
  Rect placed;

 private:
  static constexpr int kBarPixels = 17;  // the width of a scroll bar

  /// The system shows a bar only if there is something to scroll.
  bool isShown(PreviewBar bar) { return bars.contains(bar) && bars[bar].page <= bars[bar].last; }

  SettingsViewFake& view;
};

}  // namespace mrl
