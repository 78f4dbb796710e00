#include "settings_window/preview.h"

#include <algorithm>

#include "base/text.h"
#include "overlay/clock_geometry.h"
#include "settings_window/auto_apply.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/form_sync.h"
#include "settings_window/layout.h"
#include "settings_window/window.h"

namespace mrl {
namespace {

constexpr int kPreviewLineUnits = 24;

/// Clamped to the clock's limits: a size that is still being typed may be absurd.
Size previewPixels(const App& app) {
  const auto within = [](uint32_t value, int smallest, int largest) {
    return static_cast<int>(
        std::clamp(value, static_cast<uint32_t>(smallest), static_cast<uint32_t>(largest)));
  };
  const Settings& shown = app.form.settings;
  const Size units{
      within(shown.windowWidth, kSmallestClockUnits.width, kLargestClockUnits.width),
      within(shown.windowHeight, kSmallestClockUnits.height, kLargestClockUnits.height)};
  return clockPixels(units, app.platform.settingsView.dpi());
}

/// Sets the scroll bar of one axis and clamps `scroll` to its range.
void setBar(PreviewView& view, PreviewBar bar, int host, int length, int& scroll) {
  scroll = std::clamp(scroll, 0, std::max(length - host, 0));
  view.setScrollInfo(bar, {.last = length - 1, .page = host, .position = scroll});
}

/// The preview's left or top edge in its host: centred unless it has to scroll.
int nearEdge(int host, int length, int scroll) { return std::max((host - length) / 2, 0) - scroll; }

}  // namespace

std::u16string expirySummary(const Settings& settings) {
  if (!settings.down) return u"正计时：到期动作和阶段提醒不会触发。";
  std::u16string text = u"计时结束后：";
  if (settings.black) text += u"放映中黑屏并保留超时；";
  if (settings.exitShow) text += u"退出放映；";
  if (settings.blink || settings.black) {
    text += settings.blinkSeconds == 0 ? u"持续闪烁；"
                                       : u"闪烁 " + decimal(settings.blinkSeconds) + u" 秒；";
  }
  if (settings.sound) text += u"播放提示音；";
  if (settings.switchPpt) text += u"切换 PPT；";
  if (settings.hideZero && !settings.black) text += u"隐藏悬浮窗；";
  return text;
}

void refreshPreview(App& app) {
  if (!app.form.isOpen) return;
  refreshEnableStates(app);
  PreviewView& preview = app.platform.previewView;
  const Size size = previewPixels(app);
  Point& scroll = app.form.previewScroll;
  // Read the host's size each time: a scroll bar that appears or disappears changes it.
  setBar(preview, PreviewBar::Horizontal, preview.hostSize().width, size.width, scroll.x);
  setBar(preview, PreviewBar::Vertical, preview.hostSize().height, size.height, scroll.y);
  const Size host = preview.hostSize();
  const int left = nearEdge(host.width, size.width, scroll.x);
  const int top = nearEdge(host.height, size.height, scroll.y);
  preview.place({left, top, left + size.width, top + size.height});
  SettingsView& view = app.platform.settingsView;
  view.invalidate(kPreview);
  for (const ColourPicker& picker : kColourPickers) view.invalidate(picker.id);
  setTextIfChanged(app, kExpirySummary, expirySummary(app.form.settings));
}

ClockPicture previewPicture(const App& app) {
  const Settings& shown = app.form.settings;
  const auto phase = static_cast<uint32_t>(app.form.previewPhase);
  return {.settings = shown,
          .text = previewText(shown, phase),
          .blinkOn = previewBlinkOn(shown, phase),
          .isPreview = true};
}

void scrollPreview(App& app, PreviewBar bar, ScrollStep step) {
  const ScrollInfo info = app.platform.previewView.scrollInfo(bar);
  const int line = toPixels(kPreviewLineUnits, app.platform.settingsView.dpi());
  Point& scroll = app.form.previewScroll;
  (bar == PreviewBar::Horizontal ? scroll.x : scroll.y) =
      positionAfter(step, info, line, info.page);
  refreshPreview(app);
}

void onPreviewCornerPress(App& app, CornerHit hit, Point cursor) {
  app.form.previewDrag = CornerDrag{hit, cursor, app.platform.previewView.rect()};
}

void onPreviewCornerDrag(App& app, Point cursor) {
  if (!app.form.previewDrag) return;
  const int dpi = app.platform.settingsView.dpi();
  app.platform.previewView.place(draggedTo(cursor, *app.form.previewDrag, dpi, true));
}

void onPreviewSized(App& app, Size pixels) {
  if (!app.form.isOpen || app.form.controlsSuppressed || !app.form.previewDrag) return;
  const Size units = clockUnits(pixels, app.platform.settingsView.dpi());
  app.form.settings.windowWidth = static_cast<uint32_t>(units.width);
  app.form.settings.windowHeight = static_cast<uint32_t>(units.height);
  fillSizeBoxes(app);
  queueEdit(app, kWidthBox, kEditDelayMs);
  queueEdit(app, kHeightBox, kEditDelayMs);
}

void onPreviewDragEnded(App& app) {
  if (!app.form.previewDrag) return;
  app.form.previewDrag.reset();
  refreshPreview(app);  // the drag may have left it off centre or out of its host
}

}  // namespace mrl
