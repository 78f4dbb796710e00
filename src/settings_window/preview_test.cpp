#include "settings_window/preview.h"

#include "settings_window/fixture.h"
#include "settings_window/layout.h"

namespace mrl {
namespace {

class PreviewPaneTest : public SettingsFixture {};

TEST_F(PreviewPaneTest, APreviewSmallerThanItsHostIsCentred) {
  EXPECT_EQ(preview().placed, (Rect{258, 15, 441, 97}));
  EXPECT_EQ(preview().bars[PreviewBar::Horizontal], (ScrollInfo{.last = 182, .page = 700}));
  EXPECT_EQ(preview().bars[PreviewBar::Vertical], (ScrollInfo{.last = 81, .page = 112}));
}

TEST_F(PreviewPaneTest, ItHasTheTrueSizeAtEveryResolution) {
  view().windowDpi = 192;
  refreshPreview(app);
  EXPECT_EQ(preview().placed.width(), 366);
  EXPECT_EQ(preview().placed.height(), 164);
}

TEST_F(PreviewPaneTest, ALargerOneScrollsAndAShrunkenOneGoesBackToTheMiddle) {
  view().type(kWidthBox, u"1000");
  view().type(kHeightBox, u"300");
  app.form.previewScroll = {250, 5000};
  refreshPreview(app);
  EXPECT_EQ(preview().placed, (Rect{-250, -205, 750, 95})) << "the bars take their room";
  EXPECT_EQ(preview().bars[PreviewBar::Horizontal],
            (ScrollInfo{.last = 999, .page = 683, .position = 250}));
  EXPECT_EQ(preview().bars[PreviewBar::Vertical],
            (ScrollInfo{.last = 299, .page = 95, .position = 205}));
  view().type(kWidthBox, u"200");
  view().type(kHeightBox, u"100");
  EXPECT_EQ(app.form.previewScroll, Point{});
  EXPECT_EQ(preview().placed, (Rect{250, 6, 450, 106}));
}

TEST_F(PreviewPaneTest, ItStandsInTheMiddleOfWhatItsScrollBarsLeave) {
  view().type(kWidthBox, u"1000");
  EXPECT_EQ(preview().placed, (Rect{0, 6, 1000, 88}));
  view().type(kHeightBox, u"100");
  EXPECT_EQ(preview().placed, (Rect{0, 0, 1000, 100}));
  EXPECT_EQ(preview().hostSize(), (Size{683, 95}));
  view().click(kDefaultSizeButton);
  EXPECT_EQ(preview().hostSize(), (Size{700, 112}));
  EXPECT_EQ(preview().placed, (Rect{258, 15, 441, 97}));
}

TEST_F(PreviewPaneTest, AnAbsurdSizeIsHeldWithinTheLimits) {
  const Rect before = clockWindow.place;
  view().type(kWidthBox, u"99999");
  view().type(kHeightBox, u"4294967295");
  EXPECT_EQ(preview().placed.width(), 1200);
  EXPECT_EQ(preview().placed.height(), 600);
  applyPending(app, true);
  EXPECT_TRUE(isRed(kWidthBox));
  EXPECT_EQ(clockWindow.place, before);
  view().type(kWidthBox, u"1");
  view().type(kHeightBox, u"0");
  EXPECT_EQ(preview().placed.width(), 120);
  EXPECT_EQ(preview().placed.height(), 50);
}

TEST_F(PreviewPaneTest, AHostThatChangesItsSizeMovesThePreview) {
  preview().host = {183, 82};
  refreshPreview(app);
  EXPECT_EQ(preview().placed, (Rect{0, 0, 183, 82}));
}

TEST_F(PreviewPaneTest, EachScrollStepGoesItsWay) {
  view().windowDpi = 144;
  view().type(kWidthBox, u"1200");  // 1800 pixels wide in a host of 683
  const struct {
    ScrollStep step;
    int position;
  } cases[] = {{ScrollStep::LineForward, 36}, {ScrollStep::PageForward, 719},
               {ScrollStep::LineBack, 683},   {ScrollStep::Drop, 683},
               {ScrollStep::Start, 683},      {ScrollStep::End, 683},
               {ScrollStep::PageBack, 0},     {ScrollStep::PageBack, 0}};
  for (const auto& row : cases) {
    scrollPreview(app, PreviewBar::Horizontal, row.step);
    EXPECT_EQ(app.form.previewScroll, (Point{row.position, 0}));
    EXPECT_EQ(preview().placed.left, -row.position);
  }
}

TEST_F(PreviewPaneTest, TheThumbIsFollowedWithinTheRange) {
  view().type(kHeightBox, u"600");
  preview().bars[PreviewBar::Vertical].track = 123;
  scrollPreview(app, PreviewBar::Vertical, ScrollStep::Track);
  EXPECT_EQ(app.form.previewScroll, (Point{0, 123}));
  preview().bars[PreviewBar::Vertical].track = 9999;
  scrollPreview(app, PreviewBar::Vertical, ScrollStep::Track);
  EXPECT_EQ(app.form.previewScroll, (Point{0, 488}));
}

TEST_F(PreviewPaneTest, APreviewThatFitsDoesNotScroll) {
  scrollPreview(app, PreviewBar::Horizontal, ScrollStep::LineForward);
  EXPECT_EQ(app.form.previewScroll, Point{});
}

TEST_F(PreviewPaneTest, ItShowsTheFormBeforeItApplies) {
  view().type(kMinutesBox, u"7");
  EXPECT_EQ(previewPicture(app).text, u"07:00");
  EXPECT_EQ(&previewPicture(app).settings, &app.form.settings);
  EXPECT_TRUE(previewPicture(app).isPreview);
  EXPECT_EQ(app.settings.duration, 900u);
}

TEST_F(PreviewPaneTest, ThePhaseIsChosenAndBooksNothing) {
  view().select(kPreviewPhaseCombo, 1);
  EXPECT_EQ(previewPicture(app).text, u"00:30");
  EXPECT_TRUE(previewPicture(app).blinkOn);
  view().select(kPreviewPhaseCombo, 2);
  EXPECT_EQ(previewPicture(app).text, u"已超时 00:15");
  EXPECT_TRUE(previewPicture(app).blinkOn);
  view().click(kBlinkCheck);
  EXPECT_FALSE(previewPicture(app).blinkOn);
  view().select(kPreviewPhaseCombo, 0);
  view().click(kUpRadio);
  EXPECT_EQ(previewPicture(app).text, u"00:00");
  EXPECT_TRUE(app.form.pendingEdits.empty());
}

class PreviewDragTest : public SettingsFixture {
 protected:
  void drag(CornerHit hit, Point way) {
    onPreviewCornerPress(app, hit, {500, 400});
    onPreviewCornerDrag(app, {500 + way.x, 400 + way.y});
  }
};

TEST_F(PreviewDragTest, ADraggedCornerTypesTheSizeIn) {
  onSettingsDpiChanged(app, 192, {0, 0, 2080, 1480});
  const Rect before = clockWindow.place;
  drag(CornerHit::BottomRight, {600 - 366, 301 - 164});
  EXPECT_EQ(view().text(kWidthBox), u"300");
  EXPECT_EQ(view().text(kHeightBox), u"151");
  EXPECT_EQ(app.form.settings.windowWidth, 300u);
  EXPECT_TRUE(app.form.settingsDirty);
  EXPECT_EQ(clockWindow.place, before);
  for (const int id : {227, 228}) {
    EXPECT_EQ(app.form.pendingEdits.at(id), clock.nowMs() + kEditDelayMs);
  }
  runFor(800);
  EXPECT_EQ(saved().windowWidth, 300u);
  EXPECT_EQ(clockWindow.place.width(), 300);
}

TEST_F(PreviewDragTest, EveryCornerChangesTheSizeAndNotThePlace) {
  const Rect start = preview().placed;
  const struct {
    CornerHit hit;
    Point way;
  } cases[] = {{CornerHit::TopLeft, {-20, -10}},
               {CornerHit::TopRight, {20, -10}},
               {CornerHit::BottomLeft, {-20, 10}},
               {CornerHit::BottomRight, {20, 10}}};
  for (const auto& row : cases) {
    drag(row.hit, row.way);
    EXPECT_EQ(preview().placed, (Rect{start.left, start.top, start.left + 203, start.top + 92}));
    onPreviewCornerDrag(app, {500, 400});
    EXPECT_EQ(preview().placed, start) << "the way counts from the press";
    onPreviewDragEnded(app);
  }
}

TEST_F(PreviewDragTest, ItStaysWithinTheLimitsOfTheClock) {
  drag(CornerHit::BottomRight, {9000, 9000});
  EXPECT_EQ(view().text(kWidthBox), u"1200");
  EXPECT_EQ(view().text(kHeightBox), u"600");
  onPreviewCornerDrag(app, {-9000, -9000});
  EXPECT_EQ(view().text(kWidthBox), u"120");
  EXPECT_EQ(view().text(kHeightBox), u"50");
}

TEST_F(PreviewDragTest, AfterTheDragThePreviewIsInTheMiddleAgainOrScrolls) {
  drag(CornerHit::BottomRight, {17, 10});
  onPreviewDragEnded(app);
  EXPECT_EQ(preview().placed, (Rect{250, 10, 450, 102}));
  drag(CornerHit::BottomRight, {800, 0});
  onPreviewDragEnded(app);
  EXPECT_EQ(preview().placed, (Rect{0, 1, 1000, 93}));
  EXPECT_EQ(preview().bars[PreviewBar::Horizontal], (ScrollInfo{.last = 999, .page = 700}));
}

TEST_F(PreviewDragTest, AfterItsEndTheMouseDragsNothing) {
  drag(CornerHit::BottomRight, {17, 10});
  onPreviewDragEnded(app);
  const Rect reached = preview().placed;
  onPreviewCornerDrag(app, {900, 900});
  EXPECT_EQ(preview().placed, reached);
}

TEST_F(PreviewDragTest, AWindowClosedDuringADragTakesTheDragAlong) {
  drag(CornerHit::BottomRight, {17, 10});
  closeSettingsWindow(app);
  openSettingsWindow(app);
  view().type(kWidthBox, u"3");
  EXPECT_EQ(view().text(kWidthBox), u"3") << "and not what the preview shows for it";
}

TEST_F(PreviewDragTest, WithoutADragASizeOfThePreviewTypesNothing) {
  view().type(kWidthBox, u"1");
  EXPECT_EQ(preview().placed.width(), 120);
  EXPECT_EQ(view().text(kWidthBox), u"1");
}

TEST_F(PreviewDragTest, ASizeOfThePreviewMeansNothingWhileControlsAreFilled) {
  onPreviewCornerPress(app, CornerHit::BottomRight, {500, 400});
  const SuppressControls quiet(app);
  onPreviewCornerDrag(app, {600, 500});
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_EQ(view().text(kWidthBox), u"183");
}

TEST_F(PreviewPaneTest, WithoutAWindowNothingIsRefreshed) {
  closeSettingsWindow(app);
  preview().placed = {};
  refreshPreview(app);
  EXPECT_EQ(preview().placed, Rect{});
}

TEST(ExpirySummaryTest, EachPieceHasItsCondition) {
  Settings none;
  none.blink = false;
  EXPECT_EQ(expirySummary(none), u"计时结束后：");
  const struct {
    void (*turnOn)(Settings&);
    const char16_t* piece;
  } cases[] = {
      {[](Settings& s) { s.exitShow = true; }, u"退出放映；"},
      {[](Settings& s) { s.blink = true; }, u"持续闪烁；"},
      {[](Settings& s) { s.blink = true, s.blinkSeconds = 7; }, u"闪烁 7 秒；"},
      {[](Settings& s) { s.sound = true; }, u"播放提示音；"},
      {[](Settings& s) { s.switchPpt = true; }, u"切换 PPT；"},
      {[](Settings& s) { s.hideZero = true; }, u"隐藏悬浮窗；"},
      {[](Settings& s) { s.black = true; }, u"放映中黑屏并保留超时；持续闪烁；"},
  };
  for (const auto& row : cases) {
    Settings settings = none;
    row.turnOn(settings);
    EXPECT_EQ(expirySummary(settings), std::u16string(u"计时结束后：") + row.piece);
  }
}

TEST(ExpirySummaryTest, ThePiecesStandInTheirOrder) {
  Settings all;
  all.exitShow = all.blink = all.sound = all.switchPpt = all.hideZero = true;
  EXPECT_EQ(expirySummary(all),
            u"计时结束后：退出放映；持续闪烁；播放提示音；切换 PPT；隐藏悬浮窗；");
}

TEST(ExpirySummaryTest, BlackBlinksForItsTimeAndKeepsTheClock) {
  Settings settings;
  settings.blink = false;
  settings.black = settings.hideZero = true;
  settings.blinkSeconds = 10;
  EXPECT_EQ(expirySummary(settings), u"计时结束后：放映中黑屏并保留超时；闪烁 10 秒；");
}

TEST(ExpirySummaryTest, CountingUpFiresNothing) {
  Settings all;
  all.down = false;
  all.black = all.exitShow = all.blink = all.sound = all.switchPpt = all.hideZero = true;
  EXPECT_EQ(expirySummary(all), u"正计时：到期动作和阶段提醒不会触发。");
}

TEST_F(PreviewPaneTest, TheSummaryFollowsTheFormAtOnce) {
  view().type(kBlinkSecondsBox, u"5");
  EXPECT_EQ(view().text(kExpirySummary), u"计时结束后：闪烁 5 秒；");
}

TEST_F(PreviewPaneTest, ItIsPaintedAnewWithWhateverIsTyped) {
  view().invalidated.clear();
  view().type(kForegroundBox, u"#123456");
  EXPECT_EQ(std::ranges::count(view().invalidated, int{kPreview}), 1);
  view().invalidated.clear();
  view().select(kPreviewPhaseCombo, 1);
  EXPECT_EQ(std::ranges::count(view().invalidated, int{kPreview}), 1);
}

}  // namespace
}  // namespace mrl
