// PreviewView on Windows: see preview_view.h. messages_win.h handles the preview's messages.
#pragma once

#include "settings_window/preview_view.h"
#include "settings_window/view_win.h"

namespace mrl {

class PreviewViewWin : public PreviewView {
 public:
  /// `window` holds the preview and must outlive this object.
  explicit PreviewViewWin(SettingsViewWin& window) : view(window) {}

  Size hostSize() override;
  ScrollInfo scrollInfo(PreviewBar bar) override;
  void setScrollInfo(PreviewBar bar, const ScrollInfo& info) override;
  Rect rect() override;
  void place(const Rect& rect) override;

 private:
  SettingsViewWin& view;
};

}  // namespace mrl
