#include "core/audio.h"

#include <algorithm>

#include "core/app_fixture.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

using Calls = std::vector<std::string>;

class AudioTest : public AppFixture {
 protected:
  static constexpr char16_t kBell[] = u"C:\\sounds\\bell one.wav";
  static constexpr char16_t kGong[] = u"C:\\sounds\\gong.mp3";

  void SetUp() override {
    Settings settings;
    settings.duration = 60;
    settings.blink = false;
    settings.prompt1.enabled = settings.prompt2.enabled = false;
    startWith(settings);
    audio.calls.clear();
  }

  void runOut() {
    runCommand(app, kCommandToggleTimer);
    runFor(60'000);
  }
};

TEST_F(AudioTest, ASoundIsOpenedAndPlayedAfterTheOneBeforeIsClosed) {
  playAudio(app, kBell, 0);
  EXPECT_EQ(audio.calls, (Calls{"close", "open", "play"}));
  EXPECT_EQ(audio.lastPath, kBell);
  EXPECT_TRUE(audio.isPlaying);
}

TEST_F(AudioTest, WithoutAPathTheSystemBeepsAndNothingIsOpened) {
  playAudio(app, u"", 0);
  EXPECT_EQ(audio.calls, (Calls{"close", "beep"}));
}

TEST_F(AudioTest, TheSecondsPlayNoPartInABeep) {
  playAudio(app, u"", 5);
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, ABeepCutsOffTheSoundBefore) {
  playAudio(app, kBell, 5);
  playAudio(app, u"", 0);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, SecondsSetTheTimeOfTheCut) {
  playAudio(app, kBell, 3);
  EXPECT_EQ(app.soundStopMs, clock.nowMs() + 3000);
}

TEST_F(AudioTest, TheMostSecondsDoNotOverflow) {
  playAudio(app, kBell, 2147483647);
  EXPECT_EQ(app.soundStopMs, clock.nowMs() + 2147483647000u);
}

TEST_F(AudioTest, NoSecondsOrLessMeanTheWholeFile) {
  for (const int seconds : {0, -1}) {
    playAudio(app, kBell, seconds);
    EXPECT_EQ(app.soundStopMs, 0u) << seconds;
  }
}

TEST_F(AudioTest, TheSoundIsCutOffAtItsTimeAndNotBefore) {
  playAudio(app, kBell, 3);
  runFor(2900);
  EXPECT_TRUE(audio.isPlaying);
  runFor(100);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, ASoundWithoutALimitIsCutOffByNoTick) {
  playAudio(app, kBell, 0);
  runFor(600'000);
  EXPECT_TRUE(audio.isPlaying);
}

TEST_F(AudioTest, ASoundWithoutALimitIsCutOffByALaterSound) {
  playAudio(app, kBell, 0);
  playAudio(app, kGong, 0);
  EXPECT_EQ(audio.calls, (Calls{"close", "open", "play", "close", "open", "play"}));
  EXPECT_EQ(audio.lastPath, kGong);
}

TEST_F(AudioTest, ASoundWithoutALimitIsCutOffByAReset) {
  playAudio(app, kBell, 0);
  runCommand(app, kCommandReset);
  EXPECT_FALSE(audio.isOpen);
}

TEST_F(AudioTest, ASoundThatRanOutStaysOpenUntilItsCutWhichDoesNoHarm) {
  playAudio(app, kBell, 3);
  runFor(1000);
  audio.reachEnd();
  runFor(1900);
  EXPECT_TRUE(audio.isOpen);
  runFor(100);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(AudioTest, AfterTheCutNothingIsClosedAgain) {
  playAudio(app, kBell, 1);
  runFor(1000);
  audio.calls.clear();
  runFor(5000);
  EXPECT_EQ(audio.calls, Calls{});
}

TEST_F(AudioTest, ALaterSoundForgetsTheCutOfTheOneBefore) {
  playAudio(app, kBell, 3);
  playAudio(app, kGong, 0);
  runFor(10'000);
  EXPECT_TRUE(audio.isPlaying);
}

TEST_F(AudioTest, AFileThatDoesNotOpenIsToldAndNothingSounds) {
  audio.openError = u"找不到文件";
  playAudio(app, kBell, 3);
  EXPECT_EQ(app.lastError, u"音频播放失败：找不到文件");
  EXPECT_EQ(audio.calls, (Calls{"close", "open", "close"})) << "not even the beep";
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, AFileThatDoesNotPlayIsToldAndClosed) {
  audio.playError = u"设备忙";
  playAudio(app, kBell, 3);
  EXPECT_EQ(app.lastError, u"音频播放失败：设备忙");
  EXPECT_EQ(audio.calls, (Calls{"close", "open", "play", "close"}));
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, AFailureStopsTheSoundBeforeAllTheSame) {
  playAudio(app, kBell, 3);
  audio.openError = u"找不到文件";
  playAudio(app, kGong, 3);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, AStagePlaysItsOwnSoundForItsOwnSeconds) {
  app.settings.prompt1 = {.sound = true, .soundSeconds = 2, .soundFile = kBell};
  app.settings.prompt2 = {.sound = true, .soundSeconds = 4, .soundFile = kGong};
  fireStage(app, 0);
  EXPECT_EQ(audio.lastPath, kBell);
  EXPECT_EQ(app.soundStopMs, clock.nowMs() + 2000);
  fireStage(app, 1);
  EXPECT_EQ(audio.lastPath, kGong);
  EXPECT_EQ(app.soundStopMs, clock.nowMs() + 4000);
}

TEST_F(AudioTest, AStageWithoutSoundIsSilent) {
  app.settings.prompt1 = {.sound = false, .soundFile = kBell};
  fireStage(app, 0);
  EXPECT_EQ(audio.calls, Calls{});
}

TEST_F(AudioTest, TheSecondStageStopsTheSoundOfTheFirstAndItsCutIsGone) {
  app.settings.prompt1 = {
      .enabled = true, .sound = true, .advance = 50, .soundSeconds = 30, .soundFile = kBell};
  app.settings.prompt2 = {.enabled = true, .sound = true, .advance = 40, .soundFile = kGong};
  runCommand(app, kCommandToggleTimer);
  runFor(10'000);
  EXPECT_EQ(audio.lastPath, kBell);
  EXPECT_NE(app.soundStopMs, 0u);
  runFor(10'000);
  EXPECT_EQ(audio.lastPath, kGong);
  EXPECT_EQ(app.soundStopMs, 0u);
  runFor(30'000);
  EXPECT_TRUE(audio.isPlaying);
}

TEST_F(AudioTest, TheEndOfTheTimePlaysItsSound) {
  app.settings.sound = true;
  app.settings.soundFile = kGong;
  app.settings.soundSeconds = 5;
  runOut();
  EXPECT_EQ(audio.lastPath, kGong);
  EXPECT_EQ(app.soundStopMs, clock.nowMs() + 5000);
}

TEST_F(AudioTest, TheEndOfTheTimeIsSilentWithoutSound) {
  app.settings.soundFile = kGong;
  runOut();
  EXPECT_EQ(audio.calls, Calls{});
}

TEST_F(AudioTest, WithSoundOnAndNoFileItBeepsAtEveryFiring) {
  app.settings.sound = true;
  for (int firing = 1; firing <= 3; ++firing) {
    runOut();
    EXPECT_EQ(std::count(audio.calls.begin(), audio.calls.end(), "beep"), firing);
    runCommand(app, kCommandReset);
  }
}

TEST_F(AudioTest, SecondsBeyondTheSignedRangeMeanTheWholeFile) {
  app.settings.sound = true;
  app.settings.soundFile = kGong;
  app.settings.soundSeconds = 4'000'000'000;
  runOut();
  EXPECT_EQ(app.soundStopMs, 0u);
  EXPECT_TRUE(audio.isPlaying);
}

TEST_F(AudioTest, AFailureStopsNeitherTheTimerNorTheOtherActions) {
  app.settings.sound = true;
  app.settings.soundFile = kGong;
  app.settings.blink = true;
  audio.openError = u"找不到文件";
  runOut();
  EXPECT_EQ(app.lastError, u"音频播放失败：找不到文件");
  EXPECT_TRUE(app.blink.active);
  runFor(5000);
  EXPECT_EQ(elapsedMs(), 65'000);
}

TEST_F(AudioTest, TheSoundComesAfterTheExitOfTheShow) {
  app.settings.sound = true;
  app.settings.soundFile = kGong;
  app.settings.exitShow = true;
  audio.openError = u"找不到文件";
  runOut();
  EXPECT_EQ(app.lastError, u"音频播放失败：找不到文件") << "the later message stands";
}

TEST_F(AudioTest, TheDelayedResetStopsTheSound) {
  app.settings.resetDelay = 2;
  startShow(kDeck);
  waitForPoll();
  playAudio(app, kBell, 0);
  endShow();
  closeDecks();
  waitForPoll();
  EXPECT_TRUE(audio.isPlaying);
  runFor(2100);
  EXPECT_EQ(phase(), TimerPhase::Idle);
  EXPECT_FALSE(audio.isOpen);
}

TEST_F(AudioTest, TheEndOfTheProgramStopsTheSound) {
  playAudio(app, kBell, 3);
  finishApp(app);
  EXPECT_FALSE(audio.isOpen);
  EXPECT_EQ(app.soundStopMs, 0u);
}

TEST_F(AudioTest, APauseDoesNotStopTheSound) {
  runCommand(app, kCommandToggleTimer);
  playAudio(app, kBell, 0);
  runCommand(app, kCommandToggleTimer);
  runFor(1000);
  EXPECT_TRUE(audio.isPlaying);
}

}  // namespace
}  // namespace mrl
