#include "settings_window/layout.h"

#include <gtest/gtest.h>

#include "settings_window/fixture.h"

namespace mrl {
namespace {

Rect rectIn(const std::vector<Placement>& placements, int id) {
  const auto found = std::ranges::find(placements, id, &Placement::id);
  return found == placements.end() ? Rect{} : found->rect;
}

TEST(LayoutTest, EveryControlOfAPageHasItsPlaceAtEveryDpi) {
  for (const int dpi : {96, 144, 192}) {
    for (const Control& control : allControls()) {
      if (!isOnPane(control) || control.kind == ControlKind::Preview) continue;
      const PageLayout layout = layOut({1024, 700}, dpi, control.page, 0);
      EXPECT_GT(rectIn(layout.page, control.id).width(), 0) << control.id;
    }
  }
}

TEST(LayoutTest, AControlIsScaledForTheMonitor) {
  const PageLayout layout = layOut({2048, 1400}, 192, 0, 0);
  EXPECT_EQ(rectIn(layout.page, kMinutesBox), (Rect{80, 176, 280, 288}));
  EXPECT_EQ(rectIn(layout.frame, kContentPane), (Rect{400, 332, 2016, 1236}));
}

TEST(LayoutTest, ANarrowWindowKeepsThePaneAtItsSmallestWidth) {
  const PageLayout layout = layOut({700, 700}, 96, 0, 0);
  EXPECT_EQ(rectIn(layout.frame, kContentPane).width(), 600);
}

TEST(LayoutTest, TheHeadAndTheFootStandAroundThePane) {
  const std::vector<Placement> frame = layOut({1040, 740}, 96, 0, 0).frame;
  EXPECT_EQ(rectIn(frame, kModeCombo), (Rect{20, 640, 164, 830}));
  EXPECT_EQ(rectIn(frame, kTimerLine), (Rect{216, 12, 708, 56}));
  EXPECT_EQ(rectIn(frame, kToggleButton), (Rect{730, 14, 866, 54}));
  EXPECT_EQ(rectIn(frame, kResetButton), (Rect{880, 14, 1016, 54}));
  EXPECT_EQ(rectIn(frame, kStatusText), (Rect{216, 690, 904, 724}));
  EXPECT_EQ(rectIn(frame, kCloseButton), (Rect{926, 688, 1016, 728}));
}

TEST(LayoutTest, TheStagesStandSideBySideFromTheWidthOfCardsOf660) {
  EXPECT_EQ(layOut({907, 700}, 96, 2, 0).extent, 908);
  const PageLayout wide = layOut({908, 700}, 96, 2, 500);
  EXPECT_EQ(wide.extent, 454);
  EXPECT_EQ(wide.scroll, 2);
  EXPECT_EQ(wide.cards[0].top, wide.cards[1].top);
}

class LayoutScrollTest : public SettingsFixture {};

TEST_F(LayoutScrollTest, ANotchOfTheWheelMovesThePageBy56Units) {
  turnWheel(app, -120);
  EXPECT_EQ(app.form.scrollPosition, 56);
  EXPECT_EQ(view().rectOf(kTimingTitle).top, 20 - 56);
  EXPECT_EQ(app.form.cards.front().top, -56);
}

TEST_F(LayoutScrollTest, PartsOfAPixelOfTheWheelAddUp) {
  turnWheel(app, -1);
  EXPECT_EQ(app.form.scrollPosition, 0);
  turnWheel(app, -2);
  EXPECT_EQ(app.form.scrollPosition, 1);
}

TEST_F(LayoutScrollTest, ThePageStopsAtItsEnds) {
  scrollPage(app, ScrollStep::End);
  EXPECT_EQ(app.form.scrollPosition, 916 - (740 - 248));
  scrollPage(app, ScrollStep::LineBack);
  EXPECT_EQ(app.form.scrollPosition, 916 - (740 - 248) - 56);
  scrollPage(app, ScrollStep::Start);
  EXPECT_EQ(app.form.scrollPosition, 0);
  scrollPage(app, ScrollStep::PageForward);
  EXPECT_EQ(app.form.scrollPosition, (740 - 248) * 3 / 4);
}

TEST_F(LayoutScrollTest, TheKeyboardBringsAControlIntoSight) {
  bringIntoSight(app, kMinutesBox);
  EXPECT_EQ(app.form.scrollPosition, 0) << "which it has been";
  bringIntoSight(app, kSwitchDeckBox);
  EXPECT_EQ(settingsView.rectOf(kSwitchDeckBox).bottom, 740 - 248 - 12);
  bringIntoSight(app, kSwitchDeckBox);
  EXPECT_EQ(settingsView.rectOf(kSwitchDeckBox).bottom, 740 - 248 - 12);
  bringIntoSight(app, kResetDelayBox);
  EXPECT_EQ(settingsView.rectOf(kResetDelayBox).bottom, 740 - 248 - 12);
  bringIntoSight(app, kMinutesBox);
  EXPECT_EQ(settingsView.rectOf(kMinutesBox).top, 12);
}

TEST_F(LayoutScrollTest, OnlyAControlOfThePageMovesIt) {
  bringIntoSight(app, kResetDelayBox);
  const int before = app.form.scrollPosition;
  for (const int other : {int{kFirstSection} + 1, int{kCloseButton}, int{kWidthBox}, 9999}) {
    bringIntoSight(app, other);
    EXPECT_EQ(app.form.scrollPosition, before) << other;
  }
}

/// Whether the current page ends where its scroll bar ends.
bool endsWithItsBar(App& app, SettingsViewFake& view) {
  app.form.scrollPosition = 1'000'000;
  layoutPage(app);
  const int laidOut = app.form.scrollPosition;
  scrollPage(app, ScrollStep::Start);
  scrollPage(app, ScrollStep::End);
  const ScrollInfo bar = view.scrollInfo();
  const int end = std::max(bar.last - bar.page + 1, 0);
  view.calls.clear();
  scrollPage(app, ScrollStep::LineForward);  // beyond the end: nothing moves
  return laidOut == end && app.form.scrollPosition == end && bar.position == end &&
         view.calls.empty();
}

TEST_F(LayoutScrollTest, APageEndsWhereItsScrollBarEndsHoweverTheMonitorScales) {
  // At 120 DPI the page's height and the pane's are rounded, and so would be their difference.
  for (const int dpi : {96, 120, 144, 168, 192, 216}) {
    view().windowDpi = dpi;
    for (int page = 0; page < kPageCount; ++page) {
      selectPage(app, page);
      for (int more = 0; more < 10; ++more) {
        view().client = {toPixels(1024, dpi), toPixels(620, dpi) + more};
        EXPECT_TRUE(endsWithItsBar(app, view()))
            << "page " << page << " at " << dpi << ", " << more;
      }
    }
  }
}

TEST_F(LayoutScrollTest, OnlyThePresentPageIsShown) {
  selectPage(app, 2);
  EXPECT_TRUE(view().hidden.contains(kMinutesBox));
  EXPECT_TRUE(view().hidden.contains(kTabs));
  EXPECT_FALSE(view().hidden.contains(kFirstStageTitle));
  EXPECT_FALSE(view().hidden.contains(kTimerLine));
}

TEST_F(LayoutScrollTest, EachStepOfTheScrollBarGoesItsWay) {
  view().windowDpi = 144;
  view().client = {toPixels(1040, 144), toPixels(500, 144)};
  layoutPage(app);
  const int page = toPixels(500 - 248, 144);
  scrollPage(app, ScrollStep::LineForward);
  EXPECT_EQ(app.form.scrollPosition, 84);
  scrollPage(app, ScrollStep::PageForward);
  EXPECT_EQ(app.form.scrollPosition, 84 + page * 3 / 4);
  scrollPage(app, ScrollStep::LineBack);
  EXPECT_EQ(app.form.scrollPosition, page * 3 / 4);
  scrollPage(app, ScrollStep::PageBack);
  EXPECT_EQ(app.form.scrollPosition, 0);
  view().bar.track = 33;
  scrollPage(app, ScrollStep::Track);
  EXPECT_EQ(app.form.scrollPosition, 33);
  EXPECT_EQ(view().rectOf(kTimingTitle).top, 30 - 33);
  EXPECT_EQ(view().bar.position, 33);
  EXPECT_EQ(view().calls.back(), "redrawPane");
  scrollPage(app, ScrollStep::Drop, 44);
  EXPECT_EQ(app.form.scrollPosition, 44);
  scrollPage(app, ScrollStep{8});  // SB_ENDSCROLL: no movement
  EXPECT_EQ(app.form.scrollPosition, 44);
}

TEST(ScrollStepTest, TheNumbersAreThoseOfTheSystemsScrollBars) {
  constexpr ScrollStep kSteps[] = {
      ScrollStep::LineBack, ScrollStep::LineForward, ScrollStep::PageBack, ScrollStep::PageForward,
      ScrollStep::Drop,     ScrollStep::Track,       ScrollStep::Start,    ScrollStep::End};
  int number = 0;
  for (const ScrollStep step : kSteps) EXPECT_EQ(static_cast<int>(step), number++);
}

TEST_F(LayoutScrollTest, TheWheelGoesBothWaysAndByTheResolution) {
  view().windowDpi = 144;
  view().client = {toPixels(1040, 144), toPixels(740, 144)};
  turnWheel(app, -240);
  EXPECT_EQ(app.form.scrollPosition, 168);
  turnWheel(app, 119);
  EXPECT_EQ(app.form.scrollPosition, 168 - 83);
  turnWheel(app, 1);
  EXPECT_EQ(app.form.scrollPosition, 168 - 84);
  turnWheel(app, 1200);
  EXPECT_EQ(app.form.scrollPosition, 0);
}

TEST_F(LayoutScrollTest, ScrollingMovesThePageAlone) {
  const Rect frame = view().rectOf(kToggleButton);
  const Rect pane = view().rectOf(kContentPane);
  view().rects.erase(kWidthBox);
  scrollTo(app, 50);
  EXPECT_EQ(view().rectOf(kMinutesBox).top, 88 - 50);
  EXPECT_EQ(view().rectOf(kMinutesBox).height(), 56);
  EXPECT_EQ(view().rectOf(kToggleButton), frame);
  EXPECT_EQ(view().rectOf(kContentPane), pane);
  EXPECT_FALSE(view().rects.contains(kWidthBox)) << "which is on another page";
}

TEST_F(LayoutScrollTest, AWiderWindowHoldsThePositionWithinTheShorterPage) {
  selectPage(app, 2);
  view().client = {900, 620};
  layoutPage(app);
  scrollTo(app, 500);
  view().client = {1040, 620};
  layoutPage(app);
  EXPECT_EQ(app.form.scrollPosition, 454 - (620 - 248));
  EXPECT_EQ(view().bar, (ScrollInfo{.last = 453, .page = 372, .position = 454 - 372}));
  EXPECT_EQ(view().rectOf(kFirstStageTitle).top, view().rectOf(kSecondStageTitle).top);
}

TEST_F(LayoutScrollTest, AnotherResolutionBringsThePageToItsTop) {
  scrollTo(app, 50);
  view().calls.clear();
  onSettingsDpiChanged(app, 192, {10, 20, 2090, 1500});
  EXPECT_EQ(view().windowRect, (Rect{10, 20, 2090, 1500}));
  EXPECT_EQ(view().calls.front(), "adoptDpi");
  EXPECT_EQ(app.form.scrollPosition, 0);
  EXPECT_EQ(view().rectOf(kMinutesBox), (Rect{80, 176, 280, 288}));
  EXPECT_EQ(preview().placed.width(), 2 * 183);
  EXPECT_EQ(view().calls.back(), "redrawAll");
}

TEST_F(LayoutScrollTest, WithoutAWindowNothingIsPlaced) {
  closeSettingsWindow(app);
  layoutPage(app);
  scrollTo(app, 50);
  selectPage(app, 3);
  EXPECT_TRUE(view().rects.empty());
  EXPECT_EQ(app.form.page, 0);
}

}  // namespace
}  // namespace mrl
