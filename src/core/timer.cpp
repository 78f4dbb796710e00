#include "core/timer.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "base/clock_text.h"

namespace mrl {
namespace {

constexpr int64_t kMsPerSecond = 1000;
constexpr std::u16string_view kOvertimePrefix = u"已超时 ";

int64_t secondsAt(const TimerState& timer, uint64_t nowMs) {
  return elapsedAt(timer, nowMs) / kMsPerSecond;
}

}  // namespace

int64_t elapsedAt(const TimerState& timer, uint64_t nowMs) {
  if (timer.phase != TimerPhase::Running) return timer.elapsedMs;
  const int64_t stretch = std::max<int64_t>(0, static_cast<int64_t>(nowMs - timer.startedAtMs));
  // Saturates: two jumps of the time source could overflow.
  return std::min(timer.elapsedMs, std::numeric_limits<int64_t>::max() - stretch) + stretch;
}

void startTimer(TimerState& timer, uint64_t nowMs) {
  if (timer.phase == TimerPhase::Running) return;
  timer.startedAtMs = nowMs;
  timer.phase = TimerPhase::Running;
}

void pauseTimer(TimerState& timer, uint64_t nowMs) {
  if (timer.phase != TimerPhase::Running) return;
  timer.elapsedMs = elapsedAt(timer, nowMs);
  timer.phase = TimerPhase::Paused;
}

void resetTimer(TimerState& timer) { timer = {}; }

void restartElapsed(TimerState& timer, uint64_t nowMs) {
  timer = {.phase = timer.phase, .startedAtMs = nowMs};
}

bool expiryDue(TimerState& timer, uint64_t nowMs, const Settings& settings) {
  if (!settings.down || settings.duration < 1) return false;
  if (timer.expiredFired || timer.phase != TimerPhase::Running) return false;
  if (elapsedAt(timer, nowMs) < settings.duration * kMsPerSecond) return false;
  timer.expiredFired = true;
  return true;
}

bool stageDue(TimerState& timer, int index, uint64_t nowMs, const Settings& settings) {
  if (index != 0 && index != 1) return false;
  const PromptStage& stage = index == 0 ? settings.prompt1 : settings.prompt2;
  const uint32_t bit = 1u << index;
  if (!settings.down || !stage.enabled) return false;
  if ((timer.promptsFired & bit) != 0 || timer.phase != TimerPhase::Running) return false;
  const int64_t lead = int64_t{settings.duration} - stage.advance;
  if (lead < 1 || elapsedAt(timer, nowMs) < lead * kMsPerSecond) return false;
  timer.promptsFired |= bit;
  return true;
}

bool overlayHidden(const Settings& settings, const TimerState& timer, uint64_t nowMs, bool excluded,
                   bool presentationsOpen) {
  if (settings.hideExcluded && excluded) return true;
  if (settings.hideNoDocument && !presentationsOpen) return true;
  if (!settings.hideZero || !settings.down) return false;
  // The black screen is there to show the overtime, so the clock stays visible.
  return !settings.black && secondsAt(timer, nowMs) >= settings.duration;
}

std::u16string timeText(const TimerState& timer, uint64_t nowMs, const Settings& settings) {
  const int64_t seconds = secondsAt(timer, nowMs);
  if (!settings.down) return formatClock(seconds);
  if (seconds <= settings.duration) return formatClock(settings.duration - seconds);
  std::u16string text(kOvertimePrefix);
  text += formatClock(seconds - settings.duration);
  return text;
}

}  // namespace mrl
