#include "settings_window/field_values.h"

#include <algorithm>
#include <limits>

namespace mrl {
namespace {

constexpr std::u16string_view kHexDigits = u"0123456789ABCDEF";
constexpr size_t kColourLength = 7;

/// Empty if a character is not a digit in `base`, or the value exceeds 32 bits.
std::optional<uint32_t> valueOf(std::u16string_view digits, uint32_t base) {
  uint64_t value = 0;
  for (const char16_t unit : digits) {
    const bool isLower = unit >= u'a' && unit <= u'f';
    const size_t digit = kHexDigits.find(isLower ? static_cast<char16_t>(unit - 0x20) : unit);
    if (digit >= base) return std::nullopt;
    value = value * base + digit;
    if (value > std::numeric_limits<uint32_t>::max()) return std::nullopt;
  }
  return static_cast<uint32_t>(value);
}

/// Chinese input methods can type full-width digits, and the number boxes accept them.
char16_t plainDigit(char16_t unit) {
  return unit >= u'０' && unit <= u'９' ? static_cast<char16_t>(unit - u'０' + u'0') : unit;
}

}  // namespace

std::optional<uint32_t> numberFrom(std::u16string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(u" \t"), text.size()));
  if (text.empty()) return std::nullopt;
  std::u16string digits(text);
  std::ranges::transform(digits, digits.begin(), plainDigit);
  return valueOf(digits, 10);
}

std::optional<uint32_t> colourFromText(std::u16string_view text) {
  if (text.size() != kColourLength || text.front() != u'#') return std::nullopt;
  return valueOf(text.substr(1), 16);
}

std::u16string colourText(uint32_t rgb) {
  std::u16string text = u"#";
  for (int shift = 20; shift >= 0; shift -= 4) text += kHexDigits[rgb >> shift & 0xF];
  return text;
}

}  // namespace mrl
