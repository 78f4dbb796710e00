#include "core/clock_behaviour.h"

namespace mrl {
namespace {

void updateResizeToolbar(App& app) {
  const ClockWindow& clock = app.platform.clockWindow;
  if (app.resizeMode) {
    app.platform.resizeToolbar.show(toolbarPlace(clock.rect(), clock.dpi()), clock.dpi());
  } else {
    app.platform.resizeToolbar.remove();
  }
}

bool saveGeometry(App& app) {
  const ClockWindow& clock = app.platform.clockWindow;
  const Rect rect = clock.rect();
  const Size units = clockUnits({rect.width(), rect.height()}, clock.dpi());
  Settings changed = app.settings;
  changed.windowX = rect.left;
  changed.windowY = rect.top;
  changed.windowWidth = static_cast<uint32_t>(units.width);
  changed.windowHeight = static_cast<uint32_t>(units.height);
  return adoptSettings(app, changed, FormUpdate::ClockSize);
}

void beginCornerDrag(App& app, CornerHit hit) {
  const ClockWindow& clock = app.platform.clockWindow;
  app.drag = CornerDrag{hit, clock.cursor(), clock.rect()};
}

}  // namespace

bool isBlinkOn(const App& app) {
  return isBlinkOn(app.blink, app.settings, app.platform.clock.nowMs());
}

ClockPicture clockPicture(const App& app) {
  return {.settings = app.settings,
          .text = timeText(app.timer, app.platform.clock.nowMs(), app.settings),
          .blinkOn = isBlinkOn(app),
          .handles = app.resizeMode};
}

ClockPicture pictureToPaint(App& app) {
  const ClockPicture picture = clockPicture(app);
  const bool isSeen = picture.text == app.lastClockText && picture.blinkOn == app.lastBlinkOn;
  if (!isSeen) app.lastClockText.clear();
  return picture;
}

void showClock(App& app) {
  app.platform.clockWindow.show();
  // Nothing was painted while it was hidden; it would come up with its last picture.
  app.platform.clockWindow.invalidate();
  placeToolbar(app);
}

void applyHideRules(App& app) {
  ClockWindow& window = app.platform.clockWindow;
  const bool hide =
      app.deckSwitch.hold || overlayHidden(app.settings, app.timer, app.platform.clock.nowMs(),
                                           app.lastExcluded, app.lastStatus.presentationsOpen);
  if (hide && window.isVisible()) {
    window.hide();
    app.hiddenByRule = true;
  } else if (!hide && app.hiddenByRule) {
    showClock(app);
    app.hiddenByRule = false;
  }
}

void correctOffScreen(App& app) {
  ClockWindow& clock = app.platform.clockWindow;
  if (const auto place = offScreenCorrection(clock.rect(), clock.nearestWorkArea())) {
    clock.moveTo(*place);
  }
}

void placeToolbar(App& app) {
  const ClockWindow& clock = app.platform.clockWindow;
  app.platform.resizeToolbar.place(toolbarPlace(clock.rect(), clock.dpi()), clock.dpi());
}

void toggleResizeMode(App& app) {
  app.resizeMode = !app.resizeMode;
  if (!app.resizeMode && !saveGeometry(app)) app.resizeMode = true;
  updateResizeToolbar(app);
}

void restoreDefaultSize(App& app) {
  Settings changed = app.settings;
  changed.windowWidth = static_cast<uint32_t>(kDefaultClockUnits.width);
  changed.windowHeight = static_cast<uint32_t>(kDefaultClockUnits.height);
  if (!adoptSettings(app, changed, FormUpdate::ClockSize)) return;
  ClockWindow& clock = app.platform.clockWindow;
  clock.resize(clockPixels(kDefaultClockUnits, clock.dpi()));
}

void onClockPress(App& app) { app.platform.clockWindow.beginMove(); }

void onClockMoveEnded(App& app) {
  if (app.resizeMode || !app.settingsWritable) return;
  const Rect rect = app.platform.clockWindow.rect();
  Settings changed = app.settings;
  changed.windowX = rect.left;
  changed.windowY = rect.top;
  (void)adoptSettings(app, changed, FormUpdate::None);
}

CornerHit clockHitTest(const App& app, Point cursor) {
  if (!app.resizeMode) return CornerHit::None;
  const ClockWindow& clock = app.platform.clockWindow;
  return hitTest(cursor, clock.rect(), clock.dpi());
}

void onCornerPress(App& app, CornerHit hit) {
  beginCornerDrag(app, hit);
  app.platform.clockWindow.captureMouse();
}

void onCornerDrag(App& app) {
  if (!app.drag) return;
  ClockWindow& clock = app.platform.clockWindow;
  clock.setRect(draggedTo(clock.cursor(), *app.drag, clock.dpi(), false));
}

void onCornerRelease(App& app) {
  if (!app.drag) return;
  app.platform.clockWindow.releaseMouse();
  app.drag.reset();
}

void onCaptureLost(App& app) { app.drag.reset(); }

void onClockDpiChanged(App& app) {
  // The size has jumped: restart the drag from here, or the next mouse move would undo it.
  if (app.drag) beginCornerDrag(app, app.drag->hit);
  placeToolbar(app);
}

void onClockSized(App& app) {
  app.platform.clockWindow.invalidate();
  placeToolbar(app);
}

}  // namespace mrl
