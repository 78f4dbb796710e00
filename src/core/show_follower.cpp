#include "core/show_follower.h"

#include "base/char_rules.h"
#include "presentation/show_identity.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

/// The show is over for good: back to zero, now or after the delay that the user asked for.
void resetNowOrLater(ShowFollower& follower, TimerState& timer, const Settings& settings,
                     uint64_t nowMs) {
  if (settings.resetDelay > 0) {
    follower.resetAtMs = nowMs + uint64_t{settings.resetDelay} * 1000;
  } else {
    resetTimer(timer);
  }
}

/// A foreign show that comes after the target ends the switch and is then followed like any other.
void noteSwitchProgress(ShowFollower& follower, const ShowObservation& seen) {
  if (!seen.showing) return;
  if (seen.isSwitchTarget) {
    follower.switchSeen = true;
  } else if (follower.switchSeen) {
    follower.switchPending = false;
    follower.switchSeen = false;
    follower.wasTracked = false;
    follower.lastSlideKey.clear();
  }
}

/// The deck that was switched to is not timed; only its end matters.
void followSwitch(ShowFollower& follower, TimerState& timer, const Settings& settings,
                  const ShowObservation& seen, uint64_t nowMs) {
  follower.primed = true;
  follower.lastAutoMode = settings.autoMode;
  follower.wasTracked = false;
  follower.lastSlideKey.clear();
  if (!follower.switchSeen || seen.showing) return;
  if (settings.autoMode) pauseTimer(timer, nowMs);
  if (seen.documentState != DocumentState::Closed) return;
  follower.switchPending = false;
  follower.switchSeen = false;
  follower.followedShow = false;
  resetNowOrLater(follower, timer, settings, nowMs);
}

/// Whether what is known of both documents tells them apart. A path is compared with a path where
/// both have one; otherwise a title must do, and silence counts as the same document.
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
    restartElapsed(timer, nowMs);
    timer.phase = TimerPhase::Running;
  } else if (justAppeared) {
    if (timer.phase == TimerPhase::Idle) resetTimer(timer);
    startTimer(timer, nowMs);
  }
  if (!seen.normalizedPath.empty() || !seen.title.empty()) {
    // The same document that lost its path keeps it; another one without a path wipes it.
    if (!seen.normalizedPath.empty() || differs) follower.lastPath = seen.normalizedPath;
    follower.lastTitle = seen.title;
  }
  if (settings.perSlide && !seen.slideKey.empty() && !follower.lastSlideKey.empty() &&
      seen.slideKey != follower.lastSlideKey) {
    restartElapsed(timer, nowMs);
  }
}

void followUntracked(ShowFollower& follower, TimerState& timer, const Settings& settings,
                     const ShowObservation& seen, uint64_t nowMs, bool justLost) {
  if (justLost) pauseTimer(timer, nowMs);
  const bool turnedExcluded = justLost && seen.showing;  // it runs on, yet is not tracked
  const bool closed = follower.followedShow && seen.documentState == DocumentState::Closed;
  if (!turnedExcluded && !closed) return;
  follower.followedShow = false;
  resetNowOrLater(follower, timer, settings, nowMs);
}

}  // namespace

ShowObservation observe(Files& files, const ShowStatus& status, bool excluded,
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
  if (follower.switchPending) {
    followSwitch(follower, timer, settings, seen, nowMs);
    return;
  }
  const bool tracked = seen.showing && !seen.excluded;
  const bool trackChanged = tracked != follower.wasTracked;
  const bool modeChanged = !follower.primed || settings.autoMode != follower.lastAutoMode;
  follower.primed = true;
  follower.lastAutoMode = settings.autoMode;
  if (modeChanged) {
    follower.resetAtMs = 0;
    follower.followedShow = false;
  }
  if (settings.autoMode && tracked) {
    followTracked(follower, timer, settings, seen, nowMs, trackChanged || modeChanged);
  } else if (settings.autoMode) {
    followUntracked(follower, timer, settings, seen, nowMs, trackChanged);
  }
  follower.wasTracked = tracked;
  follower.lastSlideKey = tracked && settings.perSlide ? seen.slideKey : u"";
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
