#include "settings_window/layout.h"

#include <algorithm>

#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/preview.h"

namespace mrl {
namespace {

// All lengths below are units of 1/96 inch.
constexpr int kLineUnits = 56;  // a step of the scroll bar, a notch of the wheel
constexpr int kWheelNotch = 120;
constexpr int kSightUnits = 12;   // between a control and the pane's edge
constexpr int kSideBySide = 660;  // from this Columns::all on, the stages share a row
constexpr int kStageHeight = 454;
constexpr int kStageCardHeight = 430;

/// In units, like Rect in pixels.
struct Box {
  int x, y, width, height;
};

/// The lengths that depend on the width of the pane.
struct Columns {
  explicit Columns(int paneWidth)
      : all(paneWidth - 32),
        sideBySide(all >= kSideBySide),
        stage(sideBySide ? (all - 20) / 2 : all) {}

  [[nodiscard]] int share(Share share) const {
    switch (share) {
      case Share::All: return all;
      case Share::Half: return (all - 72) / 2;
      case Share::Third: return (all - 72) / 3;
      case Share::Fifth: return (all - 96) / 5;
      case Share::Stage: return stage;
      case Share::None: break;
    }
    return 0;
  }
  [[nodiscard]] int units(const Length& length) const {
    return length.times * share(length.share) + length.plus;
  }
  /// Beside each other, or one below the other.
  [[nodiscard]] Box stageCard(int number) const {
    if (number == 1) return {16, 0, stage, kStageCardHeight};
    return sideBySide ? Box{16 + stage + 20, 0, stage, kStageCardHeight}
                      : Box{16, kStageHeight, stage, kStageCardHeight};
  }
  [[nodiscard]] Box box(const Place& place) const {
    const Box origin = place.stage == 0 ? Box{} : stageCard(place.stage);
    return {origin.x + units(place.x), origin.y + place.y, units(place.width), place.height};
  }

  int all;  // the width of a card
  bool sideBySide;
  int stage;
};

struct PlacedBox {
  int id;
  Box box;
};

std::vector<Box> cardBoxes(const Columns& columns, int page) {
  if (page == kStagePage) return {columns.stageCard(1), columns.stageCard(2)};
  std::vector<Box> boxes;
  for (const Card& card : cardsOf(page).cards)
    boxes.push_back({16, card.top, columns.all, card.height});
  return boxes;
}

int extentOf(const Columns& columns, int page) {
  if (page == kStagePage) return columns.sideBySide ? kStageHeight : 2 * kStageHeight;
  return cardsOf(page).extent;
}

std::vector<PlacedBox> framePlaces(Size window, Size pane) {
  const auto [width, height] = window;
  std::vector<PlacedBox> places{{kContentPane, {200, 166, pane.width, pane.height}},
                                {kModeCombo, {20, height - 100, 144, kDrop}},
                                {kTimerLine, {216, 12, std::max(width - 548, 220), 44}},
                                {kToggleButton, {width - 310, 14, 136, 40}},
                                {kResetButton, {width - 160, 14, 136, 40}},
                                {kStatusText, {216, height - 50, std::max(width - 352, 200), 34}},
                                {kCloseButton, {width - 114, height - 52, 90, 40}}};
  for (int i = 0; i < kPageCount; ++i) {
    places.push_back({kFirstSection + i, {12, 112 + 54 * i, 160, 46}});
  }
  return places;
}

/// Scales position and size separately: a control's size must not depend on its position.
Rect pixelsOf(const Box& box, int dpi, int scroll) {
  const int left = toPixels(box.x, dpi);
  const int top = toPixels(box.y, dpi) - scroll;
  return {left, top, left + toPixels(box.width, dpi), top + toPixels(box.height, dpi)};
}

void showScrolled(App& app, PageLayout layout) {
  SettingsView& view = app.platform.settingsView;
  view.place(layout.page);
  view.setScrollInfo(
      {.last = layout.extent - 1, .page = layout.paneHeight, .position = layout.scroll});
  app.form.scrollPosition = layout.scroll;
  app.form.cards = std::move(layout.cards);
}

}  // namespace

PageLayout layOut(Size client, int dpi, int page, int scroll) {
  const Size window{toUnits(client.width, dpi), toUnits(client.height, dpi)};
  const Size pane{std::max(window.width - 216, 600), std::max(window.height - 248, 220)};
  const Columns columns(pane.width);
  PageLayout layout;
  layout.extent = toPixels(extentOf(columns, page), dpi);
  layout.paneHeight = toPixels(pane.height, dpi);
  // Subtract pixels, as the scroll bar does: scaling the difference could be off by one pixel.
  layout.scroll = std::clamp(scroll, 0, std::max(layout.extent - layout.paneHeight, 0));
  for (const PlacedBox& placed : framePlaces(window, pane)) {
    layout.frame.push_back({placed.id, pixelsOf(placed.box, dpi, 0)});
  }
  for (const Control& control : allControls()) {
    if (control.page != page || control.place.height == 0) continue;
    layout.page.push_back({control.id, pixelsOf(columns.box(control.place), dpi, layout.scroll)});
  }
  for (const Box& card : cardBoxes(columns, page)) {
    layout.cards.push_back(pixelsOf(card, dpi, layout.scroll));
  }
  return layout;
}

void layoutPage(App& app) {
  if (!app.form.isOpen) return;
  SettingsView& view = app.platform.settingsView;
  PageLayout layout = layOut(view.clientSize(), view.dpi(), app.form.page, app.form.scrollPosition);
  view.place(layout.frame);
  showScrolled(app, std::move(layout));
  for (const Control& control : allControls()) {
    view.setVisible(control.id, control.page == kEveryPage || control.page == app.form.page);
  }
  refreshPreview(app);
  view.redrawAll();
}

void scrollTo(App& app, int position) {
  if (!app.form.isOpen) return;
  SettingsView& view = app.platform.settingsView;
  PageLayout layout = layOut(view.clientSize(), view.dpi(), app.form.page, position);
  if (layout.scroll == app.form.scrollPosition) return;
  showScrolled(app, std::move(layout));
  view.redrawPane();
}

int positionAfter(ScrollStep step, const ScrollInfo& bar, int line, int page) {
  switch (step) {
    case ScrollStep::LineBack: return bar.position - line;
    case ScrollStep::LineForward: return bar.position + line;
    case ScrollStep::PageBack: return bar.position - page;
    case ScrollStep::PageForward: return bar.position + page;
    case ScrollStep::Track: return bar.track;
    default: return bar.position;
  }
}

void scrollPage(App& app, ScrollStep step, int dropped) {
  SettingsView& view = app.platform.settingsView;
  const ScrollInfo bar = view.scrollInfo();
  switch (step) {
    case ScrollStep::Drop: return scrollTo(app, dropped);
    case ScrollStep::Start: return scrollTo(app, 0);
    case ScrollStep::End: return scrollTo(app, bar.last);
    default:
      return scrollTo(app,
                      positionAfter(step, bar, toPixels(kLineUnits, view.dpi()), bar.page * 3 / 4));
  }
}

void turnWheel(App& app, int delta) {
  const int way =
      delta * toPixels(kLineUnits, app.platform.settingsView.dpi()) + app.form.wheelRemainder;
  app.form.wheelRemainder = way % kWheelNotch;
  scrollTo(app, app.form.scrollPosition - way / kWheelNotch);
}

void bringIntoSight(App& app, int id) {
  const Control* control = findControl(id);
  if (!app.form.isOpen || !control || control->page != app.form.page) return;
  SettingsView& view = app.platform.settingsView;
  const Rect rect = view.rectOf(id);
  const int margin = toPixels(kSightUnits, view.dpi());
  const int above = rect.top - margin;
  const int below = rect.bottom + margin - view.scrollInfo().page;
  if (above < 0) {
    scrollTo(app, app.form.scrollPosition + above);
  } else if (below > 0) {
    scrollTo(app, app.form.scrollPosition + below);
  }
}

void onSettingsDpiChanged(App& app, int dpi, const Rect& rect) {
  app.form.scrollPosition = 0;
  app.platform.settingsView.adoptDpi(dpi, rect);
  layoutPage(app);
}

}  // namespace mrl
