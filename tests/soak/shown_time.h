// Compares the elapsed time that a program shows with the wall clock, from outside. Any platform.
#pragma once

#include <algorithm>
#include <cstdint>

namespace mrl {

/// What its answers prove about how far the shown time is ahead of the wall clock. One answer has
/// whole seconds and so proves little; those of a minute together, asked for just before and just
/// after the second changes, leave a few tens of milliseconds. All times in milliseconds.
class ShownTime {
 public:
  /// The timer was started between these two.
  void start(double fromMs, double untilMs) {
    startedFromMs = fromMs;
    startedUntilMs = untilMs;
  }
  /// The timer showed `seconds` at a time between these two.
  void add(double askedMs, double answeredMs, int64_t seconds) {
    const double shownMs = static_cast<double>(seconds) * 1000;
    atLeast = std::max(atLeast, shownMs - (answeredMs - startedFromMs));
    atMost = std::min(atMost, shownMs + 1000 - (askedMs - startedUntilMs));
    if (++answers % kAnswersTogether == 0) conclude();
  }
  /// Takes what has come since the last minute along, unless it is too little.
  void end() {
    if (answers % kAnswersTogether >= kAnswersTogether / 4) conclude();
  }

  bool isProven() const { return conclusions > 0; }
  int count() const { return answers; }
  /// It is nowhere further ahead of the wall clock than the first, nor behind it than the second.
  double aheadMs() const { return furthestAhead; }
  double behindMs() const { return furthestBehind; }

 private:
  static constexpr int kAnswersTogether = 60;
  static constexpr double kUnknown = 1e9;

  void conclude() {
    // The two cross where the difference changed meanwhile; then both ends were real.
    furthestAhead = std::max({furthestAhead, atMost, atLeast});
    furthestBehind = std::max({furthestBehind, -atLeast, -atMost});
    atLeast = -kUnknown;
    atMost = kUnknown;
    ++conclusions;
  }

  double startedFromMs = 0;
  double startedUntilMs = 0;
  double atLeast = -kUnknown;
  double atMost = kUnknown;
  int answers = 0;
  int conclusions = 0;
  double furthestAhead = -kUnknown;
  double furthestBehind = -kUnknown;
};

}  // namespace mrl
