// Helpers for the tests of the follower.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/show_follower.h"

namespace mrl {

inline constexpr char16_t kTalk[] = u"C:\\Talks\\talk.pptx";
inline constexpr char16_t kOther[] = u"C:\\Talks\\other.pptx";
inline constexpr char16_t kTalkTitle[] = u"talk.pptx - PowerPoint";
inline constexpr char16_t kOtherTitle[] = u"other.pptx - PowerPoint";

/// A show whose application reports the path.
inline ShowObservation showOf(const std::u16string& path, char16_t slide = u'1') {
  return {.showing = true,
          .slideKey = path + u"#" + slide,
          .documentState = DocumentState::Open,
          .normalizedPath = path};
}

/// A show known only by its window title.
inline ShowObservation showTitled(const std::u16string& title) {
  return {.showing = true, .slideKey = u"#0", .documentState = DocumentState::Open, .title = title};
}

inline ShowObservation excludedShowOf(const std::u16string& path) {
  ShowObservation seen = showOf(path);
  seen.excluded = true;
  return seen;
}

inline ShowObservation targetShowOf(const std::u16string& path) {
  ShowObservation seen = showOf(path);
  seen.isSwitchTarget = true;
  return seen;
}

/// No show; `state` is that of the document shown last.
inline ShowObservation noShow(DocumentState state = DocumentState::Open) {
  return {.slideKey = u"#0", .documentState = state};
}

/// A timer, its follower and the current time.
class FollowerFixture : public testing::Test {
 protected:
  void see(const ShowObservation& seen) { followShow(follower, timer, settings, seen, nowMs); }
  void waitSeconds(uint64_t seconds) { nowMs += seconds * 1000; }
  /// What the tick does after its poll.
  void tick() { applyPendingReset(follower, timer, settings, nowMs); }
  /// Both stages and the expiry of this run have fired.
  void fireAll() {
    timer.expiredFired = true;
    timer.promptsFired = 3;
  }
  [[nodiscard]] int64_t elapsedMs() const { return elapsedAt(timer, nowMs); }
  [[nodiscard]] bool allFired() const { return timer.expiredFired && timer.promptsFired == 3; }
  [[nodiscard]] bool noneFired() const { return !timer.expiredFired && timer.promptsFired == 0; }

  /// The talk has run for a minute; both stages and the expiry have fired.
  void runTalkForAMinute() {
    see(showOf(kTalk));
    waitSeconds(60);
    fireAll();
  }

  Settings settings;
  TimerState timer;
  ShowFollower follower;
  uint64_t nowMs = 1'000'000;
};

}  // namespace mrl
