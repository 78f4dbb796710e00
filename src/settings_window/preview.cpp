#include "settings_window/preview.h"

#include <algorithm>

#include "core/text.h"
#include "overlay/clock_geometry.h"
#include "settings_window/auto_apply.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/form_sync.h"
#include "settings_window/settings_window.h"

namespace mrl {
namespace {

constexpr int kLineUnits = 24;

/// So that a size which is being typed can't make the preview absurd.
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

/// One axis: scrolls what is larger than its host and centres what is not. Gives the near edge.
int placeAlong(SettingsView& view, Bar bar, int host, int length, int& scroll) {
  scroll = std::clamp(scroll, 0, std::max(length - host, 0));
  view.setScrollInfo(bar, {.last = length - 1, .page = host, .position = scroll});
  return std::max((host - length) / 2, 0) - scroll;
}

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
  SettingsView& view = app.platform.settingsView;
  const Size host = view.previewHostSize();
  const Size size = previewPixels(app);
  Point& scroll = app.form.previewScroll;
  const int left = placeAlong(view, Bar::PreviewHorizontal, host.width, size.width, scroll.x);
  const int top = placeAlong(view, Bar::PreviewVertical, host.height, size.height, scroll.y);
  view.placePreview({left, top, left + size.width, top + size.height});
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

void scrollPreview(App& app, Bar bar, ScrollStep step) {
  SettingsView& view = app.platform.settingsView;
  const ScrollInfo info = view.scrollInfo(bar);
  const int line = toPixels(kLineUnits, view.dpi());
  int position = info.position;
  switch (step) {
    case ScrollStep::LineBack: position -= line; break;
    case ScrollStep::LineForward: position += line; break;
    case ScrollStep::PageBack: position -= info.page; break;
    case ScrollStep::PageForward: position += info.page; break;
    case ScrollStep::Track: position = info.track; break;
    case ScrollStep::None: break;
  }
  position = std::clamp(position, 0, std::max(info.last - info.page + 1, 0));
  Point& scroll = app.form.previewScroll;
  (bar == Bar::PreviewHorizontal ? scroll.x : scroll.y) = position;
  refreshPreview(app);
}

void onPreviewDragged(App& app, Size pixels) {
  if (!app.form.isOpen || app.form.controlsSuppressed) return;
  const Size units = clockUnits(pixels, app.platform.settingsView.dpi());
  app.form.settings.windowWidth = static_cast<uint32_t>(units.width);
  app.form.settings.windowHeight = static_cast<uint32_t>(units.height);
  fillSizeBoxes(app);
  bookEdit(app, kWidthBox, kEditDelayMs);
  bookEdit(app, kHeightBox, kEditDelayMs);
}

}  // namespace mrl
