// Random evenings: shows that come and go, a user who presses everything, a time source that jumps,
// a disk that fails. Invariants are checked after each step.
#include <algorithm>
#include <random>

#include "base/text.h"
#include "core/app_fixture.h"
#include "core/commands.h"

namespace mrl {
namespace {

constexpr int kTickSteps = 12'000;

class TickPropertyTest : public AppFixture {
 protected:
  void SetUp() override {
    startWith(Settings{});
    files().putFile(kDeck, "");
    files().putFile(kOtherDeck, "");
  }

  int upTo(int limit) { return std::uniform_int_distribution<int>(0, limit)(random); }
  bool oneIn(int count) { return upTo(count - 1) == 0; }

  void change(void (*edit)(Settings&, int)) {
    Settings changed = app.settings;
    edit(changed, upTo(1000));
    (void)adoptSettings(app, changed, FormUpdate::None);
  }

  void passTime() {
    if (oneIn(200)) {
      clock.advance(static_cast<uint64_t>(upTo(20)) * 3'600'000);  // the machine was asleep
    } else if (oneIn(200)) {
      clock.time -= std::min<uint64_t>(clock.time - 1, static_cast<uint64_t>(upTo(100'000)));
    } else {
      clock.advance(static_cast<uint64_t>(upTo(400)));
    }
  }

  void moveTheWorld() {
    switch (upTo(60)) {
      case 0:
        if (program->shows.empty()) startShow(oneIn(2) ? kDeck : kOtherDeck);
        break;
      case 1: endShow(); break;
      case 2: closeDecks(); break;
      case 3:
        if (!program->shows.empty()) turnTo(1 + upTo(5));
        break;
      case 4: program->dead = oneIn(3); break;
      case 5: program->runs = !oneIn(3); break;
      case 6: files().failing.clear(); break;
      case 7:
        if (oneIn(4)) files().failing = {FilesFake::Operation::Replace};
        break;
      case 8: change([](Settings& s, int n) { s.duration = static_cast<uint32_t>(n % 60); }); break;
      case 9: change([](Settings& s, int n) { s.perSlide = n % 2 != 0; }); break;
      case 10:
        change([](Settings& s, int n) { s.resetDelay = static_cast<uint32_t>(n % 20); });
        break;
      case 11: change([](Settings& s, int n) { s.down = n % 4 != 0; }); break;
      case 12:
        change([](Settings& s, int n) {
          s.skipList.clear();
          if (n % 3 == 0) s.skipList.push_back(kDeck);
        });
        break;
      case 13:
        change([](Settings& s, int n) {
          s.hideZero = n % 5 == 0;
          s.hideExcluded = n % 5 == 1;
          s.hideNoDocument = n % 5 == 2;
        });
        break;
      case 14:
        change([](Settings& s, int n) {
          s.exitShow = n % 4 == 0;
          s.black = n % 4 == 1;
          s.blink = n % 3 != 0;
          s.blinkSeconds = static_cast<uint32_t>(n % 5);
        });
        break;
      case 15: pressSomething(); break;
      default: break;
    }
  }

  void pressSomething() {
    constexpr int kCommands[] = {100, 101, 103, 104, 105, 106, 108, 109, 112, 113, 114, 115};
    runCommand(app, kCommands[upTo(std::size(kCommands) - 1)]);
  }

  /// One tick and its invariants.
  void tickAndCheck() {
    const uint64_t pollBefore = app.lastPollMs;
    clockWindow.paintIfDue();
    const std::u16string textBefore = app.lastClockText;
    const bool blinkBefore = app.lastBlinkOn;
    clockWindow.calls.clear();
    const int paintsBefore = clockWindow.invalidations;
    const TimerState timerBefore = app.timer;
    const int64_t elapsedBefore = elapsedMs();

    tick(app);

    if (app.lastPollMs != pollBefore) {
      EXPECT_GE(static_cast<int64_t>(app.lastPollMs - pollBefore), 1500) << "two polls too close";
    }
    const bool changed = app.lastClockText != textBefore || app.lastBlinkOn != blinkBefore;
    const auto shown = std::ranges::count(clockWindow.calls, std::string("show"));
    EXPECT_LE(clockWindow.invalidations - paintsBefore, (changed ? 1 : 0) + shown);
    clockWindow.paintIfDue();
    if (clockWindow.visible) {
      EXPECT_EQ(seen.text, clockPicture(app).text) << "an old picture";
      EXPECT_EQ(seen.isAlert, clockPicture(app).blinkOn) << "an old picture";
    }
    const bool lostFlag = (timerBefore.expiredFired && !app.timer.expiredFired) ||
                          (timerBefore.promptsFired & ~app.timer.promptsFired) != 0;
    if (lostFlag) {
      EXPECT_EQ(elapsedMs(), 0) << "only a reset or a restart arms the alerts again";
      EXPECT_LE(elapsedMs(), elapsedBefore);
    }
    EXPECT_EQ(clockWindow.text, timeText(app.timer, clock.nowMs(), app.settings));
    if (app.lastPollMs == clock.nowMs()) {
      EXPECT_FALSE(app.blackActive && !app.lastStatus.running) << "black without a show";
    }
  }

  void checkAlways() {
    EXPECT_GE(elapsedMs(), 0);
    EXPECT_TRUE(app.settings == saved()) << "the file is the live record";
    EXPECT_EQ(app.blackActive, blackScreen.covering);
    EXPECT_EQ(app.resizeMode, toolbar.exists);
    if (phase() == TimerPhase::Idle) {
      EXPECT_EQ(app.timer.elapsedMs, 0);
      EXPECT_FALSE(app.timer.expiredFired || app.timer.promptsFired != 0);
    }
    if (app.hiddenByRule) {
      EXPECT_FALSE(clockWindow.visible);
    }
  }

  void liveThrough(uint32_t seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random.seed(seed);
    for (int step = 0; step < kTickSteps && !HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      moveTheWorld();
      checkAlways();
      passTime();
      tickAndCheck();
      checkAlways();
    }
  }

  std::mt19937 random;
};

TEST_F(TickPropertyTest, WhateverHappensTheClockTellsTheTimeItHasKept) { liveThrough(1); }

TEST_F(TickPropertyTest, TheSameHoldsForAnEveningNobodyHasSeenBefore) {
  const uint32_t seed = std::random_device{}();
  std::cout << "seed " << seed << "\n";
  liveThrough(seed);
}

}  // namespace
}  // namespace mrl
