// The order of the steps in one tick.
#include "core/commands.h"
#include "core/tick.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

class TickOrderTest : public AppFixture {
 protected:
  void SetUp() override { startWith(Settings{}); }
};

TEST_F(TickOrderTest, OfTwoStagesThatAreDueInOneTickTheSecondHasTheLastWord) {
  app.settings.prompt1 = {.enabled = true, .advance = 10, .blinkSeconds = 1};
  app.settings.prompt2 = {.enabled = true, .advance = 9, .blinkSeconds = 2};
  runCommand(app, kCommandToggleTimer);
  runFor(5000);
  ASSERT_EQ(app.timer.promptsFired, 0u);
  app.settings.duration = 14;
  runFor(100);
  ASSERT_EQ(app.timer.promptsFired, 3u);
  ASSERT_FALSE(app.timer.expiredFired);
  EXPECT_EQ(app.blink.endMs, clock.nowMs() + 2000);
}

TEST_F(TickOrderTest, TheHideZeroRuleHidesTheClockAtZeroAndNotEarlier) {
  app.settings.hideZero = true;
  app.settings.duration = 2;
  runCommand(app, kCommandToggleTimer);
  runFor(1900);
  EXPECT_TRUE(clockWindow.visible);
  runFor(100);
  EXPECT_FALSE(clockWindow.visible);
}

TEST_F(TickOrderTest, AProgramThatAnswersSlowlyIsAskedNoLessOften) {
  tick(app);
  // Each poll takes 1400 ms, so the next one is due at the next tick.
  outside.automation.beforeCall = [this](const std::string& entry) {
    if (entry == "running PowerPoint.Application") clock.advance(1400);
  };
  runFor(1500);
  const int before = outside.windows.scans;
  runFor(100);
  EXPECT_EQ(outside.windows.scans, before + 1) << "the time of a look counts too";
}

TEST_F(TickOrderTest, ADocumentThatOnlyTheTitleTellsApartRestartsTheClock) {
  outside.addShowWindow(500, u"PowerPoint Slide Show - [demo.pptx]");
  runFor(6000);
  ASSERT_GE(elapsedMs(), 4000);
  outside.windows.windows.front().title = u"PowerPoint Slide Show - [other.pptx]";
  waitForPoll();
  EXPECT_EQ(elapsedMs(), 0);
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(TickOrderTest, AShowOfWhichNothingIsKnownIsANewOneAfterNoShow) {
  waitForPoll();
  program->addShow(program->addDeck(u""), 0);
  waitForPoll();
  ASSERT_TRUE(app.lastStatus.running);
  ASSERT_FALSE(app.lastStatus.window);
  ASSERT_EQ(app.lastStatus.documentPath, u"");
  EXPECT_EQ(blackScreen.raises, 1);
}

class TickWithFormTest : public SettingsFixture {};

TEST_F(TickWithFormTest, ATypedNumberCountsInTheTickThatAppliesIt) {
  runFor(100);
  ASSERT_EQ(clockWindow.text, u"15:00");
  view().type(kMinutesBox, u"7");
  for (int ticks = 0; app.settings.duration == 900; ++ticks) {
    ASSERT_LT(ticks, 50);
    ASSERT_EQ(clockWindow.text, u"15:00");
    runFor(100);
  }
  EXPECT_EQ(clockWindow.text, u"07:00");
}

}  // namespace
}  // namespace mrl
