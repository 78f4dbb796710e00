#include "settings_window/preview.h"

#include "settings_window/settings_fixture.h"

namespace mrl {
namespace {

class PreviewPaneTest : public SettingsFixture {};

TEST_F(PreviewPaneTest, APreviewSmallerThanItsHostIsCentred) {
  EXPECT_EQ(view().previewPlace, (Rect{258, 15, 441, 97}));
  EXPECT_EQ(view().bars[Bar::PreviewHorizontal], (ScrollInfo{.last = 182, .page = 700}));
  EXPECT_EQ(view().bars[Bar::PreviewVertical], (ScrollInfo{.last = 81, .page = 112}));
}

TEST_F(PreviewPaneTest, ItHasTheTrueSizeAtEveryResolution) {
  view().windowDpi = 192;
  refreshPreview(app);
  EXPECT_EQ(view().previewPlace.width(), 366);
  EXPECT_EQ(view().previewPlace.height(), 164);
}

TEST_F(PreviewPaneTest, ALargerOneScrollsAndAShrunkenOneGoesBackToTheMiddle) {
  view().type(kWidthBox, u"1000");
  view().type(kHeightBox, u"300");
  app.form.previewScroll = {250, 5000};
  refreshPreview(app);
  EXPECT_EQ(view().previewPlace, (Rect{-250, -188, 750, 112}));
  EXPECT_EQ(view().bars[Bar::PreviewHorizontal],
            (ScrollInfo{.last = 999, .page = 700, .position = 250}));
  EXPECT_EQ(view().bars[Bar::PreviewVertical],
            (ScrollInfo{.last = 299, .page = 112, .position = 188}));
  view().type(kWidthBox, u"200");
  view().type(kHeightBox, u"100");
  EXPECT_EQ(app.form.previewScroll, Point{});
  EXPECT_EQ(view().previewPlace, (Rect{250, 6, 450, 106}));
}

TEST_F(PreviewPaneTest, AnAbsurdSizeIsHeldWithinTheLimits) {
  const Rect before = clockWindow.place;
  view().type(kWidthBox, u"99999");
  view().type(kHeightBox, u"4294967295");
  EXPECT_EQ(view().previewPlace.width(), 1200);
  EXPECT_EQ(view().previewPlace.height(), 600);
  applyPending(app, true);
  EXPECT_TRUE(isRed(kWidthBox));
  EXPECT_EQ(clockWindow.place, before);
  view().type(kWidthBox, u"1");
  view().type(kHeightBox, u"0");
  EXPECT_EQ(view().previewPlace.width(), 120);
  EXPECT_EQ(view().previewPlace.height(), 50);
}

TEST_F(PreviewPaneTest, AHostThatChangesItsSizeMovesThePreview) {
  view().previewHost = {183, 82};
  refreshPreview(app);
  EXPECT_EQ(view().previewPlace, (Rect{0, 0, 183, 82}));
}

TEST_F(PreviewPaneTest, EachScrollStepGoesItsWay) {
  view().windowDpi = 144;
  view().type(kWidthBox, u"1200");  // 1800 pixels in a host of 700
  const struct {
    ScrollStep step;
    int position;
  } cases[] = {{ScrollStep::LineForward, 36}, {ScrollStep::PageForward, 736},
               {ScrollStep::LineBack, 700},   {ScrollStep::PageBack, 0},
               {ScrollStep::PageBack, 0},     {ScrollStep::None, 0}};
  for (const auto& row : cases) {
    scrollPreview(app, Bar::PreviewHorizontal, row.step);
    EXPECT_EQ(app.form.previewScroll, (Point{row.position, 0}));
    EXPECT_EQ(view().previewPlace.left, -row.position);
  }
}

TEST_F(PreviewPaneTest, TheThumbIsFollowedWithinTheRange) {
  view().type(kHeightBox, u"600");
  view().bars[Bar::PreviewVertical].track = 123;
  scrollPreview(app, Bar::PreviewVertical, ScrollStep::Track);
  EXPECT_EQ(app.form.previewScroll, (Point{0, 123}));
  view().bars[Bar::PreviewVertical].track = 9999;
  scrollPreview(app, Bar::PreviewVertical, ScrollStep::Track);
  EXPECT_EQ(app.form.previewScroll, (Point{0, 488}));
}

TEST_F(PreviewPaneTest, APreviewThatFitsDoesNotScroll) {
  scrollPreview(app, Bar::PreviewHorizontal, ScrollStep::LineForward);
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

TEST_F(PreviewPaneTest, ADraggedPreviewTypesItsSizeIn) {
  view().windowDpi = 192;
  const Rect before = clockWindow.place;
  onPreviewDragged(app, {600, 301});
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

TEST_F(PreviewPaneTest, ASizeOfThePreviewMeansNothingWhileControlsAreFilled) {
  const SuppressControls quiet(app);
  onPreviewDragged(app, {600, 300});
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_EQ(view().text(kWidthBox), u"183");
}

TEST_F(PreviewPaneTest, WithoutAWindowNothingIsRefreshed) {
  closeSettingsWindow(app);
  view().previewPlace = {};
  refreshPreview(app);
  EXPECT_EQ(view().previewPlace, Rect{});
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
