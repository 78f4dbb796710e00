// Long random runs of a timer and its follower, with invariants checked after every step.
#include <gtest/gtest.h>

#include <cstdio>
#include <iostream>
#include <limits>
#include <random>
#include <string>

#include "core/show_follower.h"

namespace mrl {
namespace {

constexpr int kFollowerSteps = 10'000;

enum class Action {
  Poll,
  Tick,
  Toggle,
  Pause,
  Resume,
  Reset,
  ChangeMode,
  RemoteDuration,
  EditSettings,
  BeginSwitch,
  PassTime,
  UpsetClock,
};
constexpr Action kActions[] = {
    Action::Poll,     Action::Poll,        Action::Poll,           Action::Poll,
    Action::Tick,     Action::Tick,        Action::PassTime,       Action::PassTime,
    Action::Toggle,   Action::Pause,       Action::Resume,         Action::Reset,
    Action::PassTime, Action::ChangeMode,  Action::RemoteDuration, Action::EditSettings,
    Action::Poll,     Action::BeginSwitch, Action::UpsetClock,
};

constexpr const char16_t* kPaths[] = {u"", u"C:\\a.pptx", u"c:\\A.PPTX", u"C:\\b.pptx"};
constexpr const char16_t* kTitles[] = {u"", u"a.pptx - WPS", u"A - WPS", u"b - WPS"};
constexpr const char16_t* kSlideKeys[] = {u"", u"#0", u"a#1", u"a#2"};
constexpr uint32_t kDurations[] = {0, 1, 5, 60, 900, std::numeric_limits<uint32_t>::max()};
constexpr uint32_t kDelays[] = {0, 0, 1, 30, 3'600};

/// The text of the clock, computed independently from the elapsed time alone.
std::u16string textOf(int64_t elapsedMs, const Settings& settings) {
  const long long used = elapsedMs / 1000;
  const long long left = static_cast<long long>(settings.duration) - used;
  const long long shown = !settings.down ? used : left < 0 ? -left : left;
  char digits[64];
  if (shown < 3600) {
    std::snprintf(digits, sizeof digits, "%02lld:%02lld", shown / 60, shown % 60);
  } else {
    std::snprintf(digits, sizeof digits, "%02lld:%02lld:%02lld", shown / 3600, shown / 60 % 60,
                  shown % 60);
  }
  const std::string text(digits);
  return (settings.down && left < 0 ? u"已超时 " : u"") + std::u16string(text.begin(), text.end());
}

class Life {
 public:
  explicit Life(uint64_t seed) : random(seed) {}

  void step() {
    action = oneOf(kActions);
    before = timer;
    followerBefore = follower;
    nowBeforeMs = nowMs;
    act();
    SCOPED_TRACE("action " + std::to_string(static_cast<int>(action)));
    checkTimer();
    checkFlags();
    checkFollower();
  }

 private:
  uint64_t below(uint64_t limit) { return random() % limit; }
  template <typename Item, size_t kCount>
  Item oneOf(const Item (&items)[kCount]) {
    return items[below(kCount)];
  }

  void act() {
    switch (action) {
      case Action::Poll: lookAtScreen(); return observeShow();
      case Action::Tick: return tick();
      case Action::Toggle:
        return timer.phase == TimerPhase::Running ? pauseTimer(timer, nowMs)
                                                  : startTimer(timer, nowMs);
      case Action::Pause: return pauseTimer(timer, nowMs);
      case Action::Resume: return startTimer(timer, nowMs);
      case Action::Reset:
        resetTimer(timer);
        follower.switchPending = follower.switchSeen = false;
        return;
      case Action::ChangeMode: settings.autoMode = !settings.autoMode; return observeShow();
      case Action::RemoteDuration:
        settings.duration = oneOf(kDurations);
        return restartElapsed(timer, nowMs);
      case Action::EditSettings: return editSettings();
      case Action::BeginSwitch:
        pauseTimer(timer, nowMs);
        follower.switchPending = true;
        follower.switchSeen = false;
        follower.resetAtMs = 0;
        return;
      case Action::PassTime: nowMs += below(20'000); return;
      case Action::UpsetClock: return upsetClock();
    }
  }

  void lookAtScreen() {
    seen.showing = below(3) != 0;
    seen.excluded = seen.showing && below(6) == 0;
    seen.slideKey = oneOf(kSlideKeys);
    seen.documentState = static_cast<DocumentState>(below(3));
    seen.isSwitchTarget = seen.showing && below(3) == 0;
    if (below(3) == 0) {  // mostly the same document, so that it lives for a while
      seen.normalizedPath = oneOf(kPaths);
      seen.title = oneOf(kTitles);
    }
  }

  void observeShow() {
    followShow(follower, timer, settings, seen, nowMs);
    observed = timer;
    afterObserving = follower;
    followShow(follower, timer, settings, seen, nowMs);
    // The same observation twice at one time counts once.
    EXPECT_EQ(timer, observed);
    EXPECT_EQ(follower, afterObserving);
    applyPendingReset(follower, timer, settings, nowMs);
  }

  void tick() {
    applyPendingReset(follower, timer, settings, nowMs);
    for (const int stage : {0, 1}) {
      // An alert fires only on a running countdown with a duration.
      if (stageDue(timer, stage, nowMs, settings)) expectMayFire();
    }
    if (expiryDue(timer, nowMs, settings)) expectMayFire();
  }

  void expectMayFire() {
    EXPECT_EQ(timer.phase, TimerPhase::Running);
    EXPECT_TRUE(settings.down);
    EXPECT_GE(settings.duration, 1u);
  }

  void editSettings() {
    settings.duration = oneOf(kDurations);
    settings.down = below(4) != 0;
    settings.perSlide = below(2) == 0;
    settings.resetDelay = oneOf(kDelays);
    settings.prompt1.enabled = below(2) == 0;
    settings.prompt1.advance = oneOf(kDurations);
  }

  void upsetClock() {
    switch (below(8)) {
      case 0: nowMs = random(); return;
      case 1: nowMs = std::numeric_limits<uint64_t>::max() - below(5'000); return;
      case 2: nowMs = below(5'000); return;
      case 3: nowMs += 36'000'000; return;
      default: nowMs -= below(20'000); return;
    }
  }

  void checkTimer() {
    // Elapsed time is never negative, whatever the reading.
    EXPECT_GE(timer.elapsedMs, 0);
    EXPECT_GE(elapsedAt(timer, nowMs), 0);
    EXPECT_GE(elapsedAt(timer, random()), 0);
    // The text depends on the elapsed time and the settings alone.
    EXPECT_EQ(timeText(timer, nowMs, settings), textOf(elapsedAt(timer, nowMs), settings));
    // An idle timer has used nothing and fired nothing.
    if (timer.phase == TimerPhase::Idle) {
      EXPECT_EQ(timer.elapsedMs, 0);
      EXPECT_FALSE(timer.expiredFired);
      EXPECT_EQ(timer.promptsFired, 0u);
    }
    // A paused timer does not change, whatever the time source does.
    if (timer.phase == TimerPhase::Paused) {
      EXPECT_EQ(elapsedAt(timer, nowMs), timer.elapsedMs);
      EXPECT_EQ(elapsedAt(timer, random()), timer.elapsedMs);
    }
    // Time alone changes no timer.
    if (action == Action::PassTime || action == Action::UpsetClock) {
      EXPECT_EQ(timer, before);
    }
    // A pause keeps the time to the millisecond.
    if (action == Action::Pause) {
      EXPECT_EQ(timer.elapsedMs, elapsedAt(before, nowBeforeMs));
    }
  }

  /// Fired flags are set only by the tick and cleared only by the events named here.
  void checkFlags() {
    const bool set = (timer.expiredFired && !before.expiredFired) ||
                     (timer.promptsFired & ~before.promptsFired) != 0;
    if (set) {
      EXPECT_EQ(action, Action::Tick);
    }
    const bool cleared = (before.expiredFired && !timer.expiredFired) ||
                         (before.promptsFired & ~timer.promptsFired) != 0;
    if (!cleared) return;
    switch (action) {
      case Action::Reset:
      case Action::RemoteDuration: EXPECT_EQ(timer.elapsedMs, 0); return;
      case Action::Tick: EXPECT_TRUE(pendingResetWasDue()); return;
      case Action::Poll:
      case Action::ChangeMode:
        EXPECT_TRUE(sawAnotherDocumentOrSlide() || sawTheEnd() || pendingResetWasDue());
        EXPECT_EQ(elapsedAt(timer, nowMs), 0);
        return;
      default: ADD_FAILURE() << "flags cleared";
    }
  }

  bool pendingResetWasDue() const {
    const uint64_t dueMs = followerBefore.resetAtMs;
    return settings.autoMode && dueMs != 0 && dueMs <= nowMs;
  }
  bool sawAnotherDocumentOrSlide() const {
    return settings.autoMode && seen.showing && !seen.excluded &&
           (seen.normalizedPath != followerBefore.lastPath ||
            seen.title != followerBefore.lastTitle ||
            (settings.perSlide && seen.slideKey != followerBefore.lastSlideKey));
  }
  bool sawTheEnd() const {
    return (settings.autoMode && seen.showing && seen.excluded && followerBefore.wasTracked) ||
           (!(seen.showing && !seen.excluded) && seen.documentState == DocumentState::Closed &&
            (followerBefore.followedShow || followerBefore.switchSeen));
  }

  void checkFollower() {
    // The target can only have been seen during a switch.
    if (follower.switchSeen) {
      EXPECT_TRUE(follower.switchPending);
    }
    if (action != Action::Poll && action != Action::ChangeMode) return;
    const bool tracked = seen.showing && !seen.excluded;
    EXPECT_TRUE(follower.primed);
    EXPECT_EQ(follower.lastAutoMode, settings.autoMode);
    // A delayed reset is pending only in automatic mode and without a tracked show.
    if (!settings.autoMode || follower.wasTracked) {
      EXPECT_EQ(follower.resetAtMs, 0u);
    }
    // A slide is recorded only for a tracked show with `perSlide` on.
    if (!follower.wasTracked || !settings.perSlide) {
      EXPECT_TRUE(follower.lastSlideKey.empty());
    }
    if (follower.switchPending) {
      // During a switch no show is tracked and the timer is at most paused.
      EXPECT_FALSE(follower.wasTracked);
      EXPECT_EQ(elapsedAt(timer, nowMs), elapsedAt(before, nowMs));
      return;
    }
    if (followerBefore.switchPending) return;
    EXPECT_EQ(follower.wasTracked, tracked);
    // In manual mode shows do not change the timer.
    if (!settings.autoMode) {
      EXPECT_EQ(timer, before);
    }
    // A tracked show that has just appeared starts the timer.
    if (settings.autoMode && tracked && !followerBefore.wasTracked) {
      EXPECT_EQ(timer.phase, TimerPhase::Running);
    }
    // One that has just ended never leaves it running.
    if (settings.autoMode && !tracked && followerBefore.wasTracked) {
      EXPECT_NE(timer.phase, TimerPhase::Running);
    }
  }

  std::mt19937_64 random;
  Settings settings;
  TimerState timer;
  ShowFollower follower;
  ShowObservation seen;
  uint64_t nowMs = 1'000'000;

  // The step under test.
  Action action = Action::Poll;
  TimerState before;
  TimerState observed;
  ShowFollower followerBefore;
  ShowFollower afterObserving;
  uint64_t nowBeforeMs = 0;
};

void liveThrough(uint64_t seed) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  Life life(seed);
  for (int step = 0; step < kFollowerSteps && !testing::Test::HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    life.step();
  }
}

TEST(FollowerPropertyTest, TheRulesHoldThroughLivesThatWereLivedBefore) {
  for (const uint64_t seed : {1u, 2u, 3u, 15u, 900u, 1'500u, 22'222u, 4'294'967'295u}) {
    liveThrough(seed);
  }
}

TEST(FollowerPropertyTest, TheRulesHoldThroughALifeThatNobodyHasLived) {
  const uint64_t seed = std::random_device{}();
  std::cout << "seed of this run: " << seed << "\n";
  liveThrough(seed);
}

}  // namespace
}  // namespace mrl
