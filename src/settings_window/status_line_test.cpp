#include "settings_window/status_line.h"

#include "settings_window/fixture.h"

namespace mrl {
namespace {

class StatusLineTest : public SettingsFixture {
 protected:
  std::u16string line() {
    tick(app);
    return view().text(kTimerLine);
  }
};

TEST_F(StatusLineTest, AnIdleTimerWaitsForAShowOnlyInAutomaticMode) {
  EXPECT_EQ(line(), u"自动 · 等待放映  · 遥控未开启  15:00");
  runCommand(app, kCommandManualMode);
  EXPECT_EQ(line(), u"手动 · 已停止  · 遥控未开启  15:00");
}

TEST_F(StatusLineTest, AnIdleTimerBesideAShowIsStopped) {
  app.lastPollMs = clock.nowMs();
  app.lastStatus.running = true;
  EXPECT_EQ(line(), u"自动 · 已停止  · 遥控未开启  15:00");
}

TEST_F(StatusLineTest, ItNamesThePhaseAndTheTime) {
  runCommand(app, kCommandManualMode);
  runCommand(app, kCommandToggleTimer);
  clock.advance(5000);
  EXPECT_EQ(line(), u"手动 · 计时中  · 遥控未开启  14:55");
  runCommand(app, kCommandToggleTimer);
  EXPECT_EQ(line(), u"手动 · 已暂停  · 遥控未开启  14:55");
}

TEST_F(StatusLineTest, ItNamesTheService) {
  app.remote.running = true;
  EXPECT_EQ(line(), u"自动 · 等待放映  · 遥控已开启  15:00");
}

TEST_F(StatusLineTest, TheButtonSaysWhatItDoes) {
  EXPECT_EQ(view().text(kToggleButton), u"开始 / 暂停");
  runCommand(app, kCommandManualMode);
  tick(app);
  EXPECT_EQ(view().text(kToggleButton), u"开始");
  runCommand(app, kCommandToggleTimer);
  tick(app);
  EXPECT_EQ(view().text(kToggleButton), u"暂停");
  EXPECT_TRUE(view().mark(kToggleButton, Mark::Active));
  runCommand(app, kCommandToggleTimer);
  tick(app);
  EXPECT_EQ(view().text(kToggleButton), u"继续");
  EXPECT_FALSE(view().mark(kToggleButton, Mark::Active));
}

TEST_F(StatusLineTest, TheButtonIsPaintedAnewOnlyWhenItsMarkChanged) {
  runCommand(app, kCommandManualMode);
  runCommand(app, kCommandToggleTimer);
  tick(app);
  EXPECT_EQ(std::ranges::count(view().invalidated, int{kToggleButton}), 1);
  tick(app);
  EXPECT_EQ(std::ranges::count(view().invalidated, int{kToggleButton}), 1);
}

TEST_F(StatusLineTest, WithoutAWindowNothingIsWritten) {
  closeSettingsWindow(app);
  EXPECT_EQ(line(), u"");
}

}  // namespace
}  // namespace mrl
