#include "core/deck_switch.h"

#include <algorithm>
#include <functional>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

class DeckSwitchTest : public AppFixture {
 protected:
  static constexpr uint64_t kExitDelayMs = 500;

  void SetUp() override {
    files().putFile(kDeck, "");
    files().putFile(kOtherDeck, "");
    Settings settings;
    settings.duration = 10;
    settings.blink = false;
    settings.prompt2.enabled = false;
    settings.switchPpt = true;
    settings.switchDeck = kOtherDeck;
    startWith(settings);
    program->nextShowWindow = 600;
    outside.automation.beforeCall = [this](const std::string& entry) {
      if (entry == "method view.Exit") outside.windows.windows.clear();
      // A window scan sees no show here; only automation reports it.
      if (entry == "method settings.Run") outside.addEditWindow(600, u"other.pptx");
    };
  }

  /// Runs the first deck's show until its time is up, to the tick.
  void runOut() {
    startShow(kDeck);
    waitForPoll();
    while (!app.timer.expiredFired) runFor(kTickMs);
  }
  void switchOver() {
    runOut();
    runFor(kExitDelayMs);
  }
  /// Runs `work` during `call`, while the program waits for the application.
  void during(const std::string& call, const std::function<void()>& work) {
    outside.automation.beforeCall =
        [call, work, before = outside.automation.beforeCall](const std::string& entry) {
          before(entry);
          if (entry == call) work();
        };
  }
  /// Makes the application take `byMs` for one call.
  void slowDown(const std::string& call, uint64_t byMs) {
    during(call, [this, byMs] { clock.advance(byMs); });
  }
  void resetDuring(const std::string& call) {
    during(call, [this] { runCommand(app, kCommandReset); });
  }
  /// Ends the target's show for the polls that follow.
  void endTarget() {
    program->shows.clear();
    outside.windows.windows.clear();
  }
  long times(const std::string& call) const {
    return std::count(outside.log.begin(), outside.log.end(), call);
  }
};

TEST_F(DeckSwitchTest, TheEndOfTheTimePausesTheTimerAndExitsTheShow) {
  runOut();
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_EQ(elapsedMs(), 10'000);
  EXPECT_TRUE(program->shows.empty());
  EXPECT_EQ(app.deckSwitch.target, kOtherDeck);
  EXPECT_TRUE(app.follower.switchPending);
  EXPECT_EQ(app.deckSwitch.openAtMs, clock.nowMs() + 500);
}

TEST_F(DeckSwitchTest, ItDropsAResetThatWasPendingAnOpenPulseAndWhatAnEarlierSwitchSaw) {
  app.follower.switchSeen = true;
  app.follower.resetAtMs = clock.nowMs() + 1;
  app.startedShow.target = kDeck;
  app.startedShow.pulse.untilMs = app.startedShow.pulse.nextMs = clock.nowMs() + 1000;
  fireExpiry(app, clock.nowMs());
  EXPECT_EQ(app.follower.resetAtMs, 0u);
  EXPECT_FALSE(app.follower.switchSeen);
  EXPECT_EQ(app.startedShow.target, u"");
  EXPECT_EQ(app.startedShow.pulse.untilMs + app.startedShow.pulse.nextMs, 0u);
}

TEST_F(DeckSwitchTest, WithExitAsWellTheCommandGoesOutTwiceAndOnlyTheFirstIsReported) {
  app.settings.exitShow = true;
  runOut();
  EXPECT_EQ(times("method view.Exit"), 1) << "the second finds no show";
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(DeckSwitchTest, WithExitAsWellBothExitsAreTriedAndAFailureOfTheFirstIsReported) {
  app.settings.exitShow = true;
  outside.automation.fail("view.Exit");
  outside.windows.keysTaken = 0;
  runOut();
  EXPECT_EQ(times("method view.Exit"), 2);
  EXPECT_EQ(app.lastError, u"放映操作失败（COM HRESULT=2147500037）");
}

TEST_F(DeckSwitchTest, TheSoundBeginsBeforeTheSwitch) {
  app.settings.sound = true;
  app.settings.soundFile = u"C:\\bell.wav";
  bool sounded = false;
  outside.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "method view.Exit") sounded = audio.isPlaying;
  };
  runOut();
  EXPECT_TRUE(sounded);
}

TEST_F(DeckSwitchTest, TheDelayCountsFromTheEndOfTheTimeHoweverSlowTheExit) {
  startShow(kDeck);
  slowDown("method view.Exit", 3000);
  const uint64_t now = clock.nowMs();
  fireExpiry(app, now);
  EXPECT_EQ(clock.nowMs(), now + 3000);
  EXPECT_EQ(app.deckSwitch.openAtMs, now + 500);
}

TEST_F(DeckSwitchTest, ThePulsesCountFromTheStartOfTheShowHoweverSlowThatWas) {
  slowDown("method settings.Run", 30'000);
  switchOver();
  EXPECT_EQ(app.deckSwitch.pulse.untilMs, clock.nowMs() + 2000);
}

TEST_F(DeckSwitchTest, AnExitThatFailsIsNotReported) {
  outside.automation.fail("view.Exit");
  fireExpiry(app, clock.nowMs());
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(DeckSwitchTest, TheDeckIsOpenedAndPlayedHalfASecondLater) {
  runOut();
  runFor(kExitDelayMs - kTickMs);
  EXPECT_EQ(times("method settings.Run"), 0);
  runFor(kTickMs);
  EXPECT_EQ(times("method settings.Run"), 1);
  ASSERT_EQ(program->shows.size(), 1u);
  EXPECT_EQ(program->shows.front()->deck->path, kOtherDeck);
  EXPECT_EQ(app.deckSwitch.openAtMs, 0u);
}

TEST_F(DeckSwitchTest, WhileTheDeckIsShownTheClockIsHiddenAndAllEffectsHaveEnded) {
  app.settings.blink = true;
  app.settings.sound = true;
  app.settings.soundFile = u"C:\\bell.wav";
  app.settings.soundSeconds = 60;
  app.settings.blinkSeconds = 60;
  app.settings.black = true;
  switchOver();
  EXPECT_FALSE(clockWindow.visible);
  EXPECT_TRUE(app.hiddenByRule && app.deckSwitch.hold && app.deckSwitch.holdSeen);
  EXPECT_FALSE(app.blink.active || app.blackActive || blackScreen.covering);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.blink.endMs + app.soundStopMs, 0u);
  runFor(30'000);
  EXPECT_FALSE(clockWindow.visible) << "for as long as it is shown";
  EXPECT_EQ(phase(), TimerPhase::Paused);
}

TEST_F(DeckSwitchTest, TheShowIsRaisedFourTimesASecondForTwoSeconds) {
  switchOver();
  const long atStart = times("topmost 600");
  EXPECT_EQ(atStart, 2) << "by the start itself, and by the first pulse at once";
  runFor(2000);
  // Ticks come every 100 ms, so the pulses of 250 ms fall on every third of them.
  EXPECT_EQ(times("topmost 600") - atStart, 6);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs + app.deckSwitch.pulse.nextMs, 0u);
  const long atEnd = times("topmost 600");
  runFor(5000);
  EXPECT_EQ(times("topmost 600"), atEnd);
}

TEST_F(DeckSwitchTest, WhenTheDeckHasEndedTheClockComesBackAndTheTimerStaysPaused) {
  switchOver();
  waitForPoll();
  endTarget();
  waitForPoll();
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(phase(), TimerPhase::Paused);
}

TEST_F(DeckSwitchTest, WhenTheDeckHasEndedTheClockDoesNotComeBackInTheRedOfTheLastBlink) {
  app.settings.blink = true;
  switchOver();
  ASSERT_TRUE(seen.isAlert) << "it was hidden in a bright phase";
  endTarget();
  waitForPoll();
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_FALSE(seen.isAlert);
  EXPECT_EQ(seen.text, u"00:00");
}

TEST_F(DeckSwitchTest, TheDeckIsFollowedAtOnceAndNotOnlyFromTheNextPollOn) {
  switchOver();
  EXPECT_TRUE(app.follower.switchSeen);
  endTarget();
  waitForPoll();
  EXPECT_FALSE(app.deckSwitch.hold) << "it was seen, though no poll of the tick ever saw it";
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(DeckSwitchTest, UntilTheDeckIsSeenTheClockStaysHiddenWhateverAnEarlierSwitchSaw) {
  runOut();
  app.deckSwitch.holdSeen = true;
  outside.automation.beforeCall = [&](const std::string& entry) {
    if (entry != "get show.HWND") return;
    program->shows.clear();  // its window takes long to appear
    outside.windows.windows.clear();
  };
  runFor(kExitDelayMs);
  EXPECT_FALSE(app.deckSwitch.holdSeen);
  waitForPoll();
  EXPECT_TRUE(app.deckSwitch.hold);
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(DeckSwitchTest, AClockThatTheUserHidBeforeStaysHiddenAfterTheDeck) {
  runOut();
  runCommand(app, kCommandHideClock);
  runFor(kExitDelayMs);
  EXPECT_FALSE(app.hiddenByRule);
  endTarget();
  waitForPoll();
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(DeckSwitchTest, AfterTheDeckAHideRuleStillKeepsTheClockAway) {
  app.settings.hideNoDocument = true;
  switchOver();
  endTarget();
  program->decks.clear();
  waitForPoll();
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(DeckSwitchTest, AResetWhileTheDeckIsShownEndsTheSwitchAndBringsTheClockBack) {
  switchOver();
  runCommand(app, kCommandReset);
  runFor(kTickMs);
  EXPECT_FALSE(app.deckSwitch.hold || app.follower.switchPending || app.follower.switchSeen);
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs, 0u);
}

TEST_F(DeckSwitchTest, WhenTheDeckIsClosedTheTimerIsReset) {
  switchOver();
  waitForPoll();
  endTarget();
  program->decks.clear();
  waitForPoll();
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_FALSE(app.follower.switchPending);
}

TEST_F(DeckSwitchTest, AnotherShowAfterTheDeckIsFollowedLikeAnyOther) {
  switchOver();
  waitForPoll();
  endTarget();
  startShow(kDeck);
  waitForPoll();
  EXPECT_FALSE(app.follower.switchPending);
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(DeckSwitchTest, WhileTheOldShowIsStillExitingEverythingStaysAsItIs) {
  outside.automation.fail("view.Exit");
  outside.windows.keysTaken = 0;
  runOut();
  app.deckSwitch.openAtMs = clock.nowMs() + 60'000;  // a slow application
  runFor(6000);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_TRUE(app.follower.switchPending);
  EXPECT_FALSE(app.follower.switchSeen);
}

TEST_F(DeckSwitchTest, ADeckThatIsGoneIsToldAndNothingHidesTheClock) {
  app.settings.switchDeck = u"C:\\talks\\gone.pptx";
  switchOver();
  EXPECT_EQ(app.lastError, u"演示文件不存在");
  EXPECT_EQ(phase(), TimerPhase::Paused);
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_FALSE(app.follower.switchPending || app.deckSwitch.hold);
  EXPECT_EQ(app.deckSwitch.target, u"");
}

TEST_F(DeckSwitchTest, ADeckThatIsGoneEndsTheSwitchEvenIfItsShowWasSeen) {
  app.settings.switchDeck = u"C:\\talks\\gone.pptx";
  runOut();
  app.follower.switchSeen = true;
  runFor(kExitDelayMs);
  EXPECT_FALSE(app.follower.switchPending || app.follower.switchSeen);
}

TEST_F(DeckSwitchTest, ADeckThatIsGoneLeavesBlinkAndSoundGoing) {
  app.settings.switchDeck = u"C:\\talks\\gone.pptx";
  app.settings.blink = app.settings.sound = true;
  app.settings.soundFile = u"C:\\bell.wav";
  switchOver();
  EXPECT_EQ(app.lastError, u"演示文件不存在");
  EXPECT_TRUE(app.blink.active);
  EXPECT_TRUE(audio.isPlaying);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs, 0u);
}

TEST_F(DeckSwitchTest, AnEmptyDeckIsToldTheSameWay) {
  app.settings.switchDeck.clear();
  switchOver();
  EXPECT_EQ(app.lastError, u"演示文件不存在");
  EXPECT_EQ(phase(), TimerPhase::Paused);
}

TEST_F(DeckSwitchTest, ADriveThatFailsIsToldAndTheProgramGoesOn) {
  runOut();
  files().failing = {FilesFake::Operation::Status};
  runFor(kExitDelayMs);
  EXPECT_NE(app.lastError, u"");
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_FALSE(app.follower.switchPending);
}

TEST_F(DeckSwitchTest, AResetBeforeTheDeckIsOpenedOpensNothing) {
  runOut();
  runFor(kExitDelayMs - 2 * kTickMs);
  runCommand(app, kCommandReset);
  runFor(5000);
  EXPECT_EQ(times("method settings.Run"), 0);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(DeckSwitchTest, AResetWhileTheOldShowIsExitingOpensNothing) {
  startShow(kDeck);
  resetDuring("method view.Exit");
  fireExpiry(app, clock.nowMs());
  runFor(5000);
  EXPECT_EQ(times("method settings.Run"), 0);
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(DeckSwitchTest, AResetWhileTheDeckIsBeingStartedLeavesTheClockInSight) {
  runOut();
  resetDuring("method settings.Run");
  runFor(kExitDelayMs);
  ASSERT_EQ(program->shows.size(), 1u) << "what is being started can't be called back";
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs, 0u);
  waitForPoll();
  EXPECT_TRUE(clockWindow.visible);
}

TEST_F(DeckSwitchTest, AResetWhileTheScreenIsLookedAtStillOpensTheDeckThatWasMeant) {
  runOut();
  during("get application.Presentations", [this] {
    if (app.deckSwitch.openAtMs == 0) runCommand(app, kCommandReset);
  });
  runFor(kExitDelayMs);
  ASSERT_EQ(program->shows.size(), 1u);
  EXPECT_EQ(program->shows.front()->deck->path, kOtherDeck);
  EXPECT_FALSE(app.deckSwitch.hold);
}

TEST_F(DeckSwitchTest, AResetWhileTheNewShowIsLookedForRaisesNothing) {
  runOut();
  resetDuring("get slide.SlideIndex");
  runFor(kExitDelayMs);
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs + app.deckSwitch.pulse.nextMs, 0u);
}

TEST_F(DeckSwitchTest, AResetWhileTheNewShowIsRaisedEndsThePulse) {
  switchOver();
  resetDuring("get slide.SlideIndex");
  runFor(kTickMs * 3);
  EXPECT_FALSE(app.deckSwitch.hold);
  EXPECT_EQ(app.deckSwitch.pulse.untilMs + app.deckSwitch.pulse.nextMs, 0u);
}

TEST_F(DeckSwitchTest, ARaiseThatHasBegunIsOfTheDeckThatItWasMeantFor) {
  switchOver();
  const long before = times("topmost 600");
  resetDuring("get slide.SlideIndex");
  app.lastPollMs = clock.nowMs() + kTickMs;  // only the pulse polls in this tick
  app.deckSwitch.pulse.nextMs = 0;
  runFor(kTickMs);
  EXPECT_EQ(times("topmost 600"), before + 1);
}

TEST_F(DeckSwitchTest, TheNextRaiseIsDueAQuarterOfASecondAfterTheTickHoweverSlowTheLastWas) {
  startShow(kDeck);
  slowDown("get slide.SlideIndex", 400);
  app.startedShow.target = kDeck;
  app.startedShow.pulse.untilMs = clock.nowMs() + 2000;
  const uint64_t now = clock.nowMs();
  tick(app);
  EXPECT_EQ(app.startedShow.pulse.nextMs, now + 250);
}

TEST_F(DeckSwitchTest, TheProgramMayEndWhileTheDeckIsBeingStarted) {
  runOut();
  during("method settings.Run", [this] {
    runCommand(app, kCommandExit);
    onClockDestroyed(app);
  });
  runFor(5000);
  EXPECT_TRUE(loop.hasQuit);
  EXPECT_FALSE(clockWindow.visible || blackScreen.covering);
  finishApp(app);
}

TEST_F(DeckSwitchTest, AShowThatARemoteCommandStartedIsRaisedForTwoSecondsToo) {
  startShow(kDeck);
  app.startedShow.target = kDeck;
  app.startedShow.pulse.untilMs = clock.nowMs() + 2000;
  runFor(kTickMs);
  EXPECT_EQ(times("topmost 500"), 1);
  runFor(2000);
  EXPECT_EQ(times("topmost 500"), 7);
  EXPECT_EQ(app.startedShow.target, u"");
  EXPECT_EQ(app.startedShow.pulse.untilMs + app.startedShow.pulse.nextMs, 0u);
}

}  // namespace
}  // namespace mrl
