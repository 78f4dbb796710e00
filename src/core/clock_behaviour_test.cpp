#include "core/clock_behaviour.h"

#include <algorithm>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

class ClockBehaviourTest : public AppFixture {
 protected:
  void SetUp() override {
    Settings settings;
    settings.windowX = 300;
    settings.windowY = 200;
    startWith(settings);
    clockWindow.calls.clear();
    toolbar.calls.clear();
  }

  void enterResizeMode() { runCommand(app, kCommandToggleResizeMode); }
  void dragFromTo(CornerHit hit, Point from, Point to) {
    clockWindow.cursorAt = from;
    onCornerPress(app, hit);
    clockWindow.cursorAt = to;
    onCornerDrag(app);
  }
  void failSaves() { files().failing = {FilesFake::Operation::Create}; }
  void moveClockTo(int x, int y) { clockWindow.place = {x, y, x + 183, y + 82}; }
};

TEST_F(ClockBehaviourTest, TheClockIsPaintedFromTheLiveState) {
  runCommand(app, kCommandToggleTimer);
  clock.advance(60'000);
  const ClockPicture plain = clockPicture(app);
  EXPECT_EQ(&plain.settings, &app.settings);
  EXPECT_EQ(plain.text, u"14:00");
  EXPECT_FALSE(plain.blinkOn || plain.handles || plain.isPreview);
  startBlink(app, 0);
  enterResizeMode();
  const ClockPicture blinking = clockPicture(app);
  EXPECT_TRUE(blinking.blinkOn && blinking.handles);
}

TEST_F(ClockBehaviourTest, TheBlinkIsDarkInItsSecondPhaseAndAfterItsEnd) {
  startBlink(app, 2);
  EXPECT_TRUE(isBlinkOn(app));
  clock.advance(500);
  EXPECT_FALSE(isBlinkOn(app));
  clock.advance(500);
  EXPECT_TRUE(isBlinkOn(app));
  clock.advance(1000);
  EXPECT_FALSE(isBlinkOn(app)) << "at its end, whatever the phase";
}

TEST_F(ClockBehaviourTest, APressAnywhereDragsTheClock) {
  onClockPress(app);
  EXPECT_EQ(clockWindow.calls, std::vector<std::string>{"beginMove"});
}

TEST_F(ClockBehaviourTest, AFinishedDragSavesThePlace) {
  moveClockTo(-40, 77);
  onClockMoveEnded(app);
  EXPECT_EQ(app.settings.windowX, -40);
  EXPECT_EQ(saved().windowX, -40);
  EXPECT_EQ(saved().windowY, 77);
}

TEST_F(ClockBehaviourTest, APlaceThatCannotBeSavedIsToldAndTheClockStaysWhereItWasDropped) {
  moveClockTo(50, 60);
  failSaves();
  onClockMoveEnded(app);
  EXPECT_EQ(app.lastError, u"Cannot create temporary configuration");
  EXPECT_EQ(app.settings.windowX, 300);
  EXPECT_EQ(clockWindow.place.left, 50);
}

TEST_F(ClockBehaviourTest, AProtectedFileIsNotWrittenByADrag) {
  app.settingsWritable = false;
  moveClockTo(50, 60);
  onClockMoveEnded(app);
  EXPECT_EQ(app.settings.windowX, 300);
  EXPECT_EQ(saved().windowX, 300);
}

TEST_F(ClockBehaviourTest, InResizeModeADragSavesNothingAndTheToolbarFollows) {
  enterResizeMode();
  moveClockTo(50, 60);
  placeToolbar(app);
  onClockMoveEnded(app);
  EXPECT_EQ(saved().windowX, 300);
  EXPECT_EQ(toolbar.at, (Point{50, 60 + 82 + 6}));
}

TEST_F(ClockBehaviourTest, CornersCountOnlyInResizeMode) {
  EXPECT_EQ(clockHitTest(app, {301, 201}), CornerHit::None);
  enterResizeMode();
  EXPECT_EQ(clockHitTest(app, {301, 201}), CornerHit::TopLeft);
  EXPECT_EQ(clockHitTest(app, {311, 211}), CornerHit::TopLeft) << "the grip wins over a move";
  EXPECT_EQ(clockHitTest(app, {312, 212}), CornerHit::None);
}

TEST_F(ClockBehaviourTest, TheGripsGrowWithTheResolution) {
  clockWindow.windowDpi = 144;
  enterResizeMode();
  EXPECT_EQ(clockHitTest(app, {317, 217}), CornerHit::TopLeft);
  EXPECT_EQ(clockHitTest(app, {318, 218}), CornerHit::None);
}

TEST_F(ClockBehaviourTest, EnteringResizeModeShowsTheToolbarBelowTheClockAndSavesNothing) {
  moveClockTo(50, 60);
  enterResizeMode();
  EXPECT_TRUE(app.resizeMode);
  EXPECT_TRUE(toolbar.exists);
  EXPECT_EQ(toolbar.at, (Point{50, 148}));
  EXPECT_EQ(saved().windowX, 300);
}

TEST_F(ClockBehaviourTest, LeavingResizeModeSavesPlaceAndSizeInUnits) {
  enterResizeMode();
  clockWindow.windowDpi = 144;
  clockWindow.place = {10, 20, 10 + 300, 20 + 150};
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_FALSE(app.resizeMode);
  EXPECT_FALSE(toolbar.exists);
  EXPECT_EQ(saved().windowX, 10);
  EXPECT_EQ(saved().windowY, 20);
  EXPECT_EQ(saved().windowWidth, 200u);
  EXPECT_EQ(saved().windowHeight, 100u);
}

TEST_F(ClockBehaviourTest, AFailedSaveKeepsTheUserInResizeMode) {
  enterResizeMode();
  failSaves();
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_TRUE(app.resizeMode);
  EXPECT_TRUE(toolbar.exists);
  EXPECT_EQ(app.lastError, u"Cannot create temporary configuration");
}

TEST_F(ClockBehaviourTest, AFailedSaveBringsBackAToolbarThatTheUserHadClosed) {
  enterResizeMode();
  toolbar.exists = false;
  failSaves();
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_TRUE(toolbar.exists);
}

TEST_F(ClockBehaviourTest, AProtectedFileIsReplacedWhenResizeModeEnds) {
  app.settingsWritable = false;
  enterResizeMode();
  moveClockTo(1, 2);
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_EQ(saved().windowX, 1);
}

TEST_F(ClockBehaviourTest, TheDefaultSizeIsSavedAndTakenAtOnceWithoutLeavingTheMode) {
  Settings wide = app.settings;
  wide.windowWidth = 600;
  ASSERT_TRUE(adoptSettings(app, wide, FormUpdate::None));
  clockWindow.windowDpi = 144;
  enterResizeMode();
  runCommand(app, kCommandDefaultSize);
  EXPECT_EQ(saved().windowWidth, 183u);
  EXPECT_EQ(saved().windowHeight, 82u);
  EXPECT_EQ(clockWindow.place.width(), 275);
  EXPECT_EQ(clockWindow.place.height(), 123);
  EXPECT_TRUE(app.resizeMode);
}

TEST_F(ClockBehaviourTest, ADefaultSizeReplacesARefusedFile) {
  app.settingsWritable = false;
  files().putFile(kSettingsPath, "something else");
  runCommand(app, kCommandDefaultSize);
  EXPECT_EQ(saved(), app.settings);
}

TEST_F(ClockBehaviourTest, ADefaultSizeThatCannotBeSavedChangesNothing) {
  clockWindow.place = {0, 0, 500, 300};
  failSaves();
  runCommand(app, kCommandDefaultSize);
  EXPECT_EQ(clockWindow.place.width(), 500);
  EXPECT_EQ(app.lastError, u"Cannot create temporary configuration");
}

TEST_F(ClockBehaviourTest, ACornerDragMovesThatCornerAndLeavesTheOppositeOne) {
  enterResizeMode();
  dragFromTo(CornerHit::TopLeft, {300, 200}, {250, 170});
  EXPECT_TRUE(clockWindow.captured);
  EXPECT_EQ(clockWindow.place, (Rect{250, 170, 483, 282}));
}

TEST_F(ClockBehaviourTest, ADragPastTheMinimumStopsThereWithTheOppositeEdgesUnmoved) {
  enterResizeMode();
  dragFromTo(CornerHit::TopLeft, {300, 200}, {900, 800});
  EXPECT_EQ(clockWindow.place, (Rect{483 - 120, 282 - 50, 483, 282}));
}

TEST_F(ClockBehaviourTest, ReleasingTheMouseEndsTheDrag) {
  enterResizeMode();
  dragFromTo(CornerHit::BottomRight, {483, 282}, {500, 300});
  onCornerRelease(app);
  EXPECT_FALSE(clockWindow.captured);
  const Rect reached = clockWindow.place;
  clockWindow.cursorAt = {900, 500};
  onCornerDrag(app);
  EXPECT_EQ(clockWindow.place, reached);
}

TEST_F(ClockBehaviourTest, LosingTheCaptureEndsTheDragAtTheSizeReached) {
  enterResizeMode();
  dragFromTo(CornerHit::BottomRight, {483, 282}, {500, 300});
  onCaptureLost(app);
  clockWindow.cursorAt = {900, 500};
  onCornerDrag(app);
  EXPECT_EQ(clockWindow.place, (Rect{300, 200, 500, 300}));
}

TEST_F(ClockBehaviourTest, AnotherResolutionDuringADragLetsItGoOnFromTheNewSize) {
  enterResizeMode();
  dragFromTo(CornerHit::BottomRight, {483, 282}, {500, 300});
  clockWindow.windowDpi = 144;
  clockWindow.place = {300, 200, 600, 350};
  onClockDpiChanged(app);
  clockWindow.cursorAt = {510, 305};
  onCornerDrag(app);
  EXPECT_EQ(clockWindow.place, (Rect{300, 200, 610, 355}));
}

TEST_F(ClockBehaviourTest, AnotherResolutionBeginsNoDrag) {
  onClockDpiChanged(app);
  clockWindow.cursorAt = {900, 500};
  onCornerDrag(app);
  EXPECT_EQ(clockWindow.place, (Rect{300, 200, 483, 282}));
}

TEST_F(ClockBehaviourTest, TheToolbarFollowsTheClockToAnotherResolution) {
  enterResizeMode();
  clockWindow.windowDpi = 144;
  clockWindow.place = {300, 200, 575, 323};
  onClockDpiChanged(app);
  EXPECT_EQ(toolbar.shownDpi, 144);
  EXPECT_EQ(toolbar.at, (Point{300, 323 + 9}));
}

TEST_F(ClockBehaviourTest, AReleaseWithoutADragDoesNothing) {
  onCornerRelease(app);
  EXPECT_TRUE(clockWindow.calls.empty());
}

TEST_F(ClockBehaviourTest, ANewSizeRepaintsTheClockAndMovesTheToolbar) {
  enterResizeMode();
  clockWindow.invalidations = 0;
  clockWindow.place.bottom += 50;
  onClockSized(app);
  EXPECT_EQ(clockWindow.invalidations, 1);
  EXPECT_EQ(toolbar.at.y, clockWindow.place.bottom + 6);
}

TEST_F(ClockBehaviourTest, ShowingTheClockBringsItsToolbarAlong) {
  enterResizeMode();
  clockWindow.place = {0, 0, 183, 82};
  showClock(app);
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(toolbar.at, (Point{0, 88}));
}

TEST_F(ClockBehaviourTest, AClockThatTheUserShowsBringsItsToolbarAlong) {
  enterResizeMode();
  runCommand(app, kCommandHideClock);
  toolbar.at = {};
  runCommand(app, kCommandShowClock);
  EXPECT_EQ(toolbar.at, (Point{300, 288}));
}

TEST_F(ClockBehaviourTest, AClockThatARuleBringsBackBringsItsToolbarAlong) {
  app.settings.hideNoDocument = true;
  enterResizeMode();
  runFor(2000);
  ASSERT_FALSE(clockWindow.visible);
  toolbar.at = {};
  program->addDeck(kDeck);
  waitForPoll();
  ASSERT_TRUE(clockWindow.visible);
  EXPECT_EQ(toolbar.at, (Point{300, 288}));
}

TEST_F(ClockBehaviourTest, ForTheNextSpeakerTheClockComesBackWithItsFullTime) {
  app.settings.hideNoDocument = true;
  startShow(kDeck);
  waitForPoll();
  runFor(6000);
  ASSERT_EQ(seen.text, u"14:54");
  endShow();
  closeDecks();
  waitForPoll();
  ASSERT_FALSE(clockWindow.visible);
  program->addDeck(kOtherDeck);
  waitForPoll();
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(seen.text, u"15:00");
}

TEST_F(ClockBehaviourTest, AClockThatWasPausedWhileItWasHiddenComesBackWithThePausedTime) {
  app.settings.autoMode = false;
  app.settings.hideNoDocument = true;
  runFor(2000);
  ASSERT_FALSE(clockWindow.visible);
  runCommand(app, kCommandToggleTimer);
  runFor(4000);
  runCommand(app, kCommandToggleTimer);
  program->addDeck(kDeck);
  waitForPoll();
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(seen.text, u"14:56");
}

TEST_F(ClockBehaviourTest, ASizeThatChangedWhileTheClockWasHiddenIsPaintedWhenItComesBack) {
  runCommand(app, kCommandHideClock);
  onClockSized(app);
  EXPECT_FALSE(clockWindow.paintDue);
  showClock(app);
  EXPECT_TRUE(clockWindow.paintDue);
}

TEST_F(ClockBehaviourTest, AClockThatLiesPartlyOnScreenStaysWhereItIs) {
  moveClockTo(1900, 1000);
  correctOffScreen(app);
  EXPECT_TRUE(clockWindow.calls.empty());
}

TEST_F(ClockBehaviourTest, AClockOfAMonitorThatIsGoneMovesIntoTheNearestWorkArea) {
  clockWindow.workArea = {-1280, 40, 0, 1024};
  moveClockTo(-4000, 100);
  correctOffScreen(app);
  EXPECT_EQ(clockWindow.place.left, -1280 + 30);
  EXPECT_EQ(clockWindow.place.top, 40 + 30);
}

}  // namespace
}  // namespace mrl
