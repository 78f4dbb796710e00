#include "core/show_follower.h"

#include "base/char_rules.h"
#include "presentation/show_identity.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

/// The show is over for good: resets now, or after the delay that the user set.
void resetNowOrLater(ShowFollower& follower, TimerState& timer, const Settings& settings,
                     uint64_t nowMs) {
  if (settings.resetDelay > 0) {
    follower.resetAtMs = nowMs + uint64_t{settings.resetDelay} * 1000;
  } else {
    resetTimer(timer);
  }
}

/// Notes that the target has been seen. Any other show after it ends the switch and is followed as
/// usual.
void noteSwitchProgress(ShowFollower& follower, const ShowObservation& seen) {
  if (!seen.showing) return;
  if (seen.isSwitchTarget) {
    follower.switchSeen = true;
  } else if (follower.switchSeen) {
    follower.switchPending = false;
    follower.switchSeen = false;
    // This show has just appeared, and its slide is the first.
    follower.wasTracked = false;
    follower.lastSlideKey.clear();
  }
}

/// The target is not timed; only its end matters.
void followSwitch(ShowFollower& follower, TimerState& timer, const Settings& settings,
                  const ShowObservation& seen, uint64_t nowMs) {
  // Recorded here, so that a mode change during the switch is not handled after it.
  follower.primed = true;
  follower.lastAutoMode = settings.autoMode;
  // Whatever show follows the switch has just appeared, and its slide is the first.
  follower.wasTracked = false;
  follower.lastSlideKey.clear();
  // Not seen yet: the old show may still be closing. Showing: the target itself, which is not
  // timed.
  if (!follower.switchSeen || seen.showing) return;
  // The expiry paused the timer already; the user may have started it since.
  if (settings.autoMode) pauseTimer(timer, nowMs);
  // A document that is not closed may be shown again, and is then still the target.
  if (seen.documentState != DocumentState::Closed) return;
  follower.switchPending = false;
  follower.switchSeen = false;
  follower.followedShow = false;  // or the next update would reset again
  resetNowOrLater(follower, timer, settings, nowMs);
}

/// Whether the known facts tell the two documents apart. Compares paths if both have one, otherwise
/// a title; with nothing to compare they count as the same document.
bool isOtherDocument(const ShowFollower& last, const ShowObservation& seen) {
  const bool hadPath = !last.lastPath.empty();
  const bool hadTitle = !last.lastTitle.empty();
  const bool hasPath = !seen.normalizedPath.empty();
  const bool hasTitle = !seen.title.empty();
  if (hadPath && hasPath) return !samePath(last.lastPath, seen.normalizedPath);
  if (hadPath && hasTitle) return !titleNamesDocument(seen.title, last.lastPath);
  if (hasPath && hadTitle) return !titleNamesDocument(last.lastTitle, seen.normalizedPath);
  if (hadTitle && hasTitle) return !equalsIgnoringCase(last.lastTitle, seen.title);
  return false;
}

void followTracked(ShowFollower& follower, TimerState& timer, const Settings& settings,
                   const ShowObservation& seen, uint64_t nowMs, bool justAppeared) {
  const bool differs = isOtherDocument(follower, seen);
  follower.resetAtMs = 0;
  follower.followedShow = true;
  if (differs) {
    // A new talk: from zero, alerts re-armed, and running even if the user paused the last one.
    restartElapsed(timer, nowMs);
    timer.phase = TimerPhase::Running;
  } else if (justAppeared) {
    // The same talk goes on from its paused time. Only when it appears: what the user pauses or
    // resets during the show stays so.
    if (timer.phase == TimerPhase::Idle) resetTimer(timer);
    startTimer(timer, nowMs);
  }
  if (!seen.normalizedPath.empty() || !seen.title.empty()) {
    // The same document keeps its path if this poll has none; for another one it is cleared.
    if (!seen.normalizedPath.empty() || differs) follower.lastPath = seen.normalizedPath;
    follower.lastTitle = seen.title;
  }
  // Empty: unknown, or no slide of this show is recorded yet. Then there is nothing to compare.
  if (settings.perSlide && !seen.slideKey.empty() && !follower.lastSlideKey.empty() &&
      seen.slideKey != follower.lastSlideKey) {
    restartElapsed(timer, nowMs);
  }
}

void followUntracked(ShowFollower& follower, TimerState& timer, const Settings& settings,
                     const ShowObservation& seen, uint64_t nowMs, bool justLost) {
  // Only once: a timer that the user starts after the show runs on.
  if (justLost) pauseTimer(timer, nowMs);
  const bool turnedExcluded = justLost && seen.showing;  // running, but excluded now
  const bool closed = follower.followedShow && seen.documentState == DocumentState::Closed;
  // A document that is still open, or may be, can be shown again: the time is kept.
  if (!turnedExcluded && !closed) return;
  follower.followedShow = false;  // one reset per show
  resetNowOrLater(follower, timer, settings, nowMs);
}

}  // namespace

ShowObservation observeShow(Files& files, const ShowStatus& status, bool excluded,
                            const std::u16string& switchTarget) {
  return {.showing = status.running,
          .excluded = excluded,
          .slideKey = slideKeyOf(status),
          .documentState = status.documentState,
          .isSwitchTarget = showsDocument(files, status, switchTarget),
          .normalizedPath = status.normalizedPath,
          .title = status.windowTitle};
}

void followShow(ShowFollower& follower, TimerState& timer, const Settings& settings,
                const ShowObservation& seen, uint64_t nowMs) {
  if (follower.switchPending) noteSwitchProgress(follower, seen);
  if (follower.switchPending) {  // unless that has just ended the switch
    followSwitch(follower, timer, settings, seen, nowMs);
    return;
  }
  const bool tracked = seen.showing && !seen.excluded;
  const bool trackChanged = tracked != follower.wasTracked;
  const bool modeChanged = !follower.primed || settings.autoMode != follower.lastAutoMode;
  follower.primed = true;
  follower.lastAutoMode = settings.autoMode;
  if (modeChanged) {
    // A pending reset, or the closing of an earlier show, does not carry over into the new mode.
    follower.resetAtMs = 0;
    follower.followedShow = false;
  }
  if (settings.autoMode && tracked) {
    // A show that runs when automatic mode is turned on counts as just appeared.
    followTracked(follower, timer, settings, seen, nowMs, trackChanged || modeChanged);
  } else if (settings.autoMode) {
    followUntracked(follower, timer, settings, seen, nowMs, trackChanged);
  }
  follower.wasTracked = tracked;
  if (tracked && settings.perSlide) {
    follower.lastSlideKey = seen.slideKey;
  } else {
    follower.lastSlideKey.clear();
  }
}

void applyPendingReset(ShowFollower& follower, TimerState& timer, const Settings& settings,
                       uint64_t nowMs) {
  if (follower.resetAtMs == 0) return;
  const bool wanted = settings.autoMode && !follower.wasTracked;
  if (wanted && nowMs < follower.resetAtMs) return;
  if (wanted) resetTimer(timer);
  follower.resetAtMs = 0;
}

}  // namespace mrl
