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
constexpr int kDrop = 190;  // a combo's height includes its open list

struct Place {
  int id;
  int x, y, width, height;
};
struct Card {
  int x, y, width, height;
};
struct Page {
  std::vector<Place> places;
  std::vector<Card> cards;
  int extent;
};

/// Columns derived from the width of a card.
struct Columns {
  explicit Columns(int cardWidth)
      : all(cardWidth),
        half((cardWidth - 72) / 2),
        second(half + 64),
        right(cardWidth - 8),
        third((cardWidth - 72) / 3),
        fifth((cardWidth - 96) / 5) {}
  [[nodiscard]] Card card(int top, int height) const { return {16, top, all, height}; }

  int all;
  int half;
  int second;  // where the second half begins
  int right;   // where the cards' content ends
  int third;
  int fifth;
};

Page timingPage(const Columns& c) {
  return {{{kTimingTitle, 40, 20, c.all - 48, 28},
           {kDurationLabel, 40, 62, 220, 20},
           {kMinutesBox, 40, 88, 100, 56},
           {kMinutesLabel, 148, 104, 28, 26},
           {kSecondsBox, 188, 88, 100, 56},
           {kSecondsLabel, 296, 104, 28, 26},
           {kDownRadio, 348, 96, 128, 42},
           {kUpRadio, 488, 96, 128, 42},
           {kHideNoDocumentCheck, 40, 168, c.half, 34},
           {kPerSlideCheck, c.second, 168, c.half, 34},
           {kHideZeroCheck, 40, 214, c.half, 34},
           {kActionsTitle, 40, 308, c.all - 48, 28},
           {kExpirySummary, 40, 348, c.all - 48, 38},
           {kExitShowCheck, 40, 396, c.half, 34},
           {kBlackCheck, c.second, 396, c.half, 34},
           {kBlinkCheck, 40, 444, c.half, 34},
           {kBlinkSecondsLabel, c.second, 436, c.half - 88, 44},
           {kBlinkSecondsBox, c.right - 80, 440, 80, 38},
           {kSoundCheck, 40, 536, c.half, 36},
           {kSoundSecondsLabel, c.second, 532, c.half - 88, 44},
           {kSoundSecondsBox, c.right - 80, 536, 80, 38},
           {kSoundFileBox, 40, 592, c.all - 188, 40},
           {kPickSoundButton, c.right - 124, 592, 124, 40},
           {kSwitchCheck, 40, 720, c.all - 48, 36},
           {kSwitchDeckBox, 40, 772, c.all - 188, 40},
           {kPickDeckButton, c.right - 124, 772, 124, 40},
           {kResetDelayLabel, 40, 834, c.all - 170, 30},
           {kResetDelayBox, c.right - 96, 830, 96, 38}},
          {c.card(0, 264), c.card(288, 206), c.card(518, 160), c.card(702, 190)},
          916};
}

void addColours(std::vector<Place>& places, const Columns& c) {
  int x = 40;
  for (const ColourPicker& picker : kColourPickers) {
    places.push_back({picker.label, x, 352, c.third, 22});
    places.push_back({picker.box, x, 382, c.third - 50, 40});
    places.push_back({picker.id, x + c.third - 42, 382, 42, 40});
    x += c.third + 12;
  }
}

Page lookPage(const Columns& c) {
  Page page{{{kPreviewTitle, 40, 20, c.all - 250, 28},
             {kPreviewHint, 40, 53, c.all - 250, 20},
             {kPreviewPhaseCombo, c.right - 174, 24, 174, kDrop},
             {kPreviewHost, 40, 80, c.all - 48, 112},
             {kSizeLabel, 40, 219, 130, 20},
             {kWidthBox, 180, 210, 78, 38},
             {kHeightBox, 270, 210, 78, 38},
             {kDefaultSizeButton, c.right - 120, 210, 120, 38},
             {kColourTitle, 40, 304, c.all - 48, 28},
             {kOpacityLabel, 40, 455, c.half - 100, 20},
             {kOpacityBox, c.half - 46, 446, 86, 38},
             {kTransparentCheck, c.second, 448, c.half, 34},
             {kFontTitle, 40, 576, c.all - 48, 28},
             {kFontNameLabel, 40, 624, c.half, 22},
             {kFontNameBox, 40, 654, c.half, 40},
             {kFontWeightLabel, c.second, 624, c.half, 22},
             {kFontWeightCombo, c.second, 654, c.half, kDrop},
             {kShapeLabel, 40, 717, 90, 20},
             {kShapeCombo, 136, 708, c.half - 96, kDrop},
             {kMachineTimeCheck, c.second, 710, c.half, 34},
             {kBlinkIntervalLabel, 40, 855, c.right - 240, 20},
             {kBlinkOnBox, c.right - 190, 846, 88, 38},
             {kBlinkOffBox, c.right - 88, 846, 88, 38}},
            {c.card(0, 260), c.card(284, 248), c.card(556, 244), c.card(824, 98)},
            946};
  addColours(page.places, c);
  return page;
}

void addStage(Page& page, int base, int firstLabel, const Card& card) {
  const int x = card.x + 24;
  const int y = card.y;
  const int wide = card.width - 48;
  const Place places[] = {
      {firstLabel, x, y + 22, card.width - 150, 28},
      {base + kStageEnabled, card.x + card.width - 120, y + 20, 96, 34},
      {firstLabel + 1, x, y + 70, wide, 24},
      {base + kStageMinutes, x, y + 100, 100, 40},
      {base + kStageSeconds, card.x + 140, y + 100, 100, 40},
      {base + kStageBlinkWindow, x, y + 156, wide, 34},
      {base + kStageBlinkBackground, x, y + 196, wide, 34},
      {base + kStageSound, x, y + 236, wide, 34},
      {base + kStageSoundFile, x, y + 280, card.width - 150, 40},
      {base + kStagePickSound, card.x + card.width - 114, y + 280, 90, 40},
      {firstLabel + 2, x, y + 330, wide, 42},
      {base + kStageBlinkSeconds, x, y + 376, 100, 38},
      {base + kStageSoundSeconds, card.x + 140, y + 376, 100, 38},
  };
  page.places.insert(page.places.end(), std::begin(places), std::end(places));
  page.cards.push_back(card);
}

Page stagePage(const Columns& c) {
  const bool sideBySide = c.all >= kSideBySide;
  const int width = sideBySide ? (c.all - 20) / 2 : c.all;
  const int second = sideBySide ? 16 + width + 20 : 16;
  Page page{{}, {}, sideBySide ? kStageHeight : 2 * kStageHeight};
  addStage(page, kFirstStage, kFirstStageTitle, {16, 0, width, 430});
  addStage(page, kSecondStage, kSecondStageTitle,
           {second, sideBySide ? 0 : kStageHeight, width, 430});
  return page;
}

Page remotePage(const Columns& c) {
  return {{{kServiceTitle, 40, 20, c.all - 48, 28},
           {kQrCode, 40, 62, 156, 156},
           {kAddressBox, 232, 62, c.all - 240, 50},
           {kServiceHint, 232, 128, c.all - 240, 24},
           {kCopyAddressButton, 232, 172, 120, 38},
           {kOpenRemoteButton, 364, 172, 132, 38},
           {kPortLabel, 40, 258, 300, 22},
           {kPortBox, 40, 288, 120, 38},
           {kApplyPortButton, 172, 288, 112, 38},
           {kAutoStartCheck, 300, 290, c.right - 300, 34},
           {kServiceButton, 40, 346, 180, 38},
           {kCheckNetworkButton, 232, 346, 150, 38},
           {kPortNote, 40, 397, c.all - 48, 22}},
          {c.card(0, 430)},
          430};
}

Page presentationPage(const Columns& c) {
  Page page{{{kFolderTitle, 40, 20, c.all - 48, 28},
             {kFolderBox, 40, 70, c.all - 198, 40},
             {kPickFolderButton, c.right - 134, 70, 134, 40},
             {kFileCount, 40, 126, c.all - 48, 24},
             {kFilesTitle, 40, 208, c.all - 190, 28},
             {kReloadListButton, c.right - 110, 204, 110, 38},
             {kFileList, 40, 254, c.all - 48, 204},
             {kHideExcludedCheck, 40, 474, c.half, 34},
             {kOpenFileButton, 40, 526, 120, 34},
             {kPlayFileButton, 172, 526, 120, 34},
             {kCloseFileButton, 304, 526, 120, 34},
             {kShowTitle, 40, 608, c.all - 48, 28}},
            {c.card(0, 164), c.card(188, 376), c.card(588, 124)},
            736};
  int x = 40;
  for (int id = kBeginShowButton; id <= kExitShowButton; ++id, x += c.fifth + 12) {
    page.places.push_back({id, x, 652, c.fifth, 40});
  }
  return page;
}

Page pageOf(int index, const Columns& columns) {
  switch (index) {
    case 0: return timingPage(columns);
    case 1: return lookPage(columns);
    case 2: return stagePage(columns);
    case 3: return remotePage(columns);
    default: return presentationPage(columns);
  }
}

std::vector<Place> framePlaces(Size window, Size pane) {
  const auto [width, height] = window;
  std::vector<Place> places{{kContentPane, 200, 166, pane.width, pane.height},
                            {kModeCombo, 20, height - 100, 144, kDrop},
                            {kTimerLine, 216, 12, std::max(width - 548, 220), 44},
                            {kToggleButton, width - 310, 14, 136, 40},
                            {kResetButton, width - 160, 14, 136, 40},
                            {kStatusText, 216, height - 50, std::max(width - 352, 200), 34},
                            {kCloseButton, width - 114, height - 52, 90, 40}};
  for (int i = 0; i < kPageCount; ++i) {
    places.push_back({kFirstSection + i, 12, 112 + 54 * i, 160, 46});
  }
  return places;
}

/// Scales position and size separately: a control's size must not depend on its position.
template <class Box>
Rect pixelsOf(const Box& box, int dpi, int scroll) {
  const int left = toPixels(box.x, dpi);
  const int top = toPixels(box.y, dpi) - scroll;
  return {left, top, left + toPixels(box.width, dpi), top + toPixels(box.height, dpi)};
}

std::vector<Placement> pixelsOf(const std::vector<Place>& places, int dpi, int scroll) {
  std::vector<Placement> pixels;
  pixels.reserve(places.size());
  for (const Place& place : places) pixels.push_back({place.id, pixelsOf(place, dpi, scroll)});
  return pixels;
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
  const Page content = pageOf(page, Columns(pane.width - 32));
  PageLayout layout;
  layout.extent = toPixels(content.extent, dpi);
  layout.paneHeight = toPixels(pane.height, dpi);
  // Subtract pixels, as the scroll bar does: scaling the difference could be off by one pixel.
  layout.scroll = std::clamp(scroll, 0, std::max(layout.extent - layout.paneHeight, 0));
  layout.frame = pixelsOf(framePlaces(window, pane), dpi, 0);
  layout.page = pixelsOf(content.places, dpi, layout.scroll);
  for (const Card& card : content.cards) {
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
