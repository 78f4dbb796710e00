#include "core/blackout.h"

#include <map>
#include <string>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

class BlackoutTest : public AppFixture {
 protected:
  void SetUp() override { startWith(Settings{}); }

  void coverShow() {
    startShow(kDeck);
    waitForPoll();
    setBlack(app, true);
    ASSERT_TRUE(blackScreen.covering);
  }
};

TEST_F(BlackoutTest, AnExcludedShowIsNotBlackedOut) {
  app.settings.skipList = {kDeck};
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  EXPECT_FALSE(blackScreen.covering || app.blackActive);
  EXPECT_EQ(app.lastError, u"当前没有可控制的放映，黑屏不适用于已排除的文稿。");
}

TEST_F(BlackoutTest, ASecondBlackScreenChangesNothingAndSaysNothingEvenWhenTheShowHasGone) {
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  app.lastStatus.running = false;
  setBlack(app, true);
  EXPECT_TRUE(blackScreen.covering);
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(BlackoutTest, ABlackWindowThatComesToTheTopTakesAVisibleClockAlong) {
  clockWindow.calls.clear();
  onBlackRaised(app);
  EXPECT_EQ(clockWindow.calls, std::vector<std::string>{"raise"});
  clockWindow.hide();
  clockWindow.calls.clear();
  onBlackRaised(app);
  EXPECT_TRUE(clockWindow.calls.empty());
}

TEST_F(BlackoutTest, TheClockIsLiftedAboveTheBlackScreenOnlyIfItIsVisible) {
  startShow(kDeck);
  waitForPoll();
  clockWindow.calls.clear();
  blackScreen.log = &clockWindow.calls;
  setBlack(app, true);
  EXPECT_EQ(clockWindow.calls, (std::vector<std::string>{"cover", "show", "invalidate"}));
  setBlack(app, false);
  clockWindow.hide();
  clockWindow.calls.clear();
  setBlack(app, true);
  EXPECT_EQ(clockWindow.calls, std::vector<std::string>{"cover"});
}

TEST_F(BlackoutTest, TheBlackScreenCanBeLeftAndEnteredAgain) {
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  EXPECT_TRUE(app.blackActive);
  setBlack(app, false);
  EXPECT_FALSE(app.blackActive);
  EXPECT_FALSE(blackScreen.covering);
  setBlack(app, true);
  EXPECT_TRUE(blackScreen.covering);
}

TEST_F(BlackoutTest, MonitorsAreLookedForOnlyWhenTheScreenTurnsBlack) {
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  setBlack(app, true);
  runFor(10'000);
  EXPECT_EQ(blackScreen.covers, 1);
}

TEST_F(BlackoutTest, AShowThatBecomesExcludedEndsTheBlackScreenAtTheNextPoll) {
  startShow(kDeck);
  waitForPoll();
  setBlack(app, true);
  app.settings.skipList = {kDeck};
  waitForPoll();
  EXPECT_FALSE(blackScreen.covering);
}

TEST_F(BlackoutTest, OtherKeysOnABlackWindowAreLeftToTheSystem) {
  for (const int key : {0x20, 0x71, 0x73}) EXPECT_FALSE(onBlackKey(app, key)) << key;
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(BlackoutTest, EscapeDuringABlackScreenPausesTheTimerAndTheNextPollUncovers) {
  startShow(kDeck);
  waitForPoll();
  runCommand(app, kCommandToggleBlack);
  EXPECT_TRUE(onBlackKey(app, 0x1B));
  EXPECT_TRUE(blackScreen.covering) << "until the show is seen to be gone";
  outside.windows.windows.clear();
  runFor(1500);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_FALSE(blackScreen.covering);
  EXPECT_FALSE(app.blackActive);
}

TEST_F(BlackoutTest, EscapeThatEndsNoShowIsTold) {
  EXPECT_TRUE(onBlackKey(app, 0x1B));
  EXPECT_FALSE(app.lastError.empty());
}

TEST_F(BlackoutTest, EveryMonitorIsCoveredFromEdgeToEdge) {
  coverShow();
  EXPECT_EQ(blackScreen.covered,
            (std::map<std::u16string, Rect>{{u"laptop", {0, 0, 1920, 1080}},
                                            {u"projector", {1920, 0, 2944, 768}}}));
}

TEST_F(BlackoutTest, AMonitorWithAnotherResolutionOrPlaceIsCoveredAgain) {
  coverShow();
  screens.all[1].rect = {-1280, 0, 0, 1024};
  onScreensChanged(app);
  EXPECT_EQ(blackScreen.covered[u"projector"], (Rect{-1280, 0, 0, 1024}));
  EXPECT_EQ(blackScreen.covered[u"laptop"], (Rect{0, 0, 1920, 1080}));
}

TEST_F(BlackoutTest, AMonitorThatComesLaterStaysUncoveredAndOneThatHasGoneMovesNothing) {
  coverShow();
  screens.all = {{u"another", {0, 0, 640, 480}}, {u"laptop", {640, 0, 2560, 1080}}};
  onScreensChanged(app);
  EXPECT_EQ(blackScreen.covered.size(), 2u);
  EXPECT_EQ(blackScreen.covered[u"laptop"], (Rect{640, 0, 2560, 1080}));
  EXPECT_EQ(blackScreen.covered[u"projector"], (Rect{1920, 0, 2944, 768}));
}

TEST_F(BlackoutTest, WithoutABlackScreenANewArrangementCoversNothing) {
  onScreensChanged(app);
  EXPECT_TRUE(blackScreen.covered.empty());
  EXPECT_EQ(blackScreen.covers, 0);
}

TEST_F(BlackoutTest, WhatIsAskedDuringABlackScreenStandsAboveIt) {
  EXPECT_FALSE(settingsView.aboveAll);
  coverShow();
  EXPECT_TRUE(settingsView.aboveAll);
  setBlack(app, false);
  EXPECT_FALSE(settingsView.aboveAll);
}

TEST_F(BlackoutTest, WhereNoWindowCanBeMadeTheSameCommandTriesAgain) {
  blackScreen.coverFails = true;
  startShow(kDeck);
  waitForPoll();
  runCommand(app, kCommandToggleBlack);
  EXPECT_FALSE(blackScreen.covering);
  blackScreen.coverFails = false;
  runCommand(app, kCommandToggleBlack);
  EXPECT_TRUE(blackScreen.covering);
}

TEST_F(BlackoutTest, AnEscapeThatWorkedLeavesAMessageThatStandsAlone) {
  coverShow();
  setStatus(app, u"音频播放失败：x");
  EXPECT_TRUE(onBlackKey(app, 0x1B));
  EXPECT_TRUE(program->shows.empty());
  EXPECT_EQ(app.lastError, u"音频播放失败：x");
}

}  // namespace
}  // namespace mrl
