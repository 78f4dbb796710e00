#include "base/char_rules.h"

#include <algorithm>
#include <iterator>

#include "base/char_tables.h"

namespace mrl {
namespace {

/// The one range that can contain `unit`, or end().
template <typename Range, size_t kCount>
const Range* rangeFor(const Range (&ranges)[kCount], char16_t unit) {
  return std::lower_bound(std::begin(ranges), std::end(ranges), unit,
                          [](const Range& range, char16_t value) { return range.last < value; });
}

char16_t toUpper(char16_t unit) {
  const UpperRun* run = rangeFor(kUpperRuns, unit);
  if (run == std::end(kUpperRuns) || unit < run->first) return unit;
  if ((unit - run->first) % run->step != 0) return unit;
  return static_cast<char16_t>(unit + run->delta);
}

}  // namespace

char16_t toLower(char16_t unit) {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

std::u16string lowerCopy(std::u16string_view text) {
  std::u16string copy(text);
  std::transform(copy.begin(), copy.end(), copy.begin(), toLower);
  return copy;
}

bool isAlphanumeric(char16_t unit) {
  const CharRange* range = rangeFor(kAlphanumeric, unit);
  return range != std::end(kAlphanumeric) && unit >= range->first;
}

bool isSpace(char16_t unit) {
  constexpr CharRange kSpaces[] = {
      {0x09, 0x0D},     {0x20, 0x20},     {0x85, 0x85},     {0xA0, 0xA0},     {0x1680, 0x1680},
      {0x2000, 0x200A}, {0x2028, 0x2029}, {0x202F, 0x202F}, {0x205F, 0x205F}, {0x3000, 0x3000}};
  const CharRange* range = rangeFor(kSpaces, unit);
  return range != std::end(kSpaces) && unit >= range->first;
}

bool equalsIgnoringCase(std::u16string_view a, std::u16string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char16_t left, char16_t right) {
    return left == right || toUpper(left) == toUpper(right);
  });
}

}  // namespace mrl
