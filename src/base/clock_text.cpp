#include "base/clock_text.h"

#include <algorithm>

#include "base/text.h"

namespace mrl {
namespace {

constexpr int64_t kSecondsPerHour = 3600;

void appendTwoDigits(std::u16string& text, int64_t value) {
  if (value < 10) text += u'0';
  text += decimal(value);
}

}  // namespace

std::u16string formatClock(int64_t seconds) {
  const int64_t total = std::max<int64_t>(0, seconds);
  std::u16string text;
  if (total >= kSecondsPerHour) {
    appendTwoDigits(text, total / kSecondsPerHour);
    text += u':';
  }
  appendTwoDigits(text, total % kSecondsPerHour / kSecondsPerMinute);
  text += u':';
  appendTwoDigits(text, total % kSecondsPerMinute);
  return text;
}

}  // namespace mrl
