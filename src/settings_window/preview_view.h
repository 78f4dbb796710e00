// The interface to the preview of the clock in the settings window, and to the host in which it can
// be scrolled.
#pragma once

#include "base/geometry.h"
#include "settings_window/scroll_bar.h"

namespace mrl {

enum class PreviewBar { Horizontal, Vertical };

/// UI thread only. Pixels of the host. Without a window, commands do nothing and queries return
/// empty values.
class PreviewView {
 public:
  virtual ~PreviewView() = default;

  /// Without its scroll bars.
  [[nodiscard]] virtual Size hostSize() = 0;
  /// A scroll bar that appears or disappears changes the host's size.
  [[nodiscard]] virtual ScrollInfo scrollInfo(PreviewBar bar) = 0;
  virtual void setScrollInfo(PreviewBar bar, const ScrollInfo& info) = 0;
  /// The preview in its host.
  [[nodiscard]] virtual Rect rect() = 0;
  /// Neither activates nor reorders it.
  virtual void place(const Rect& rect) = 0;
};

}  // namespace mrl
