#include "base/text.h"

namespace mrl {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// What a lead byte announces: the length of the sequence (0: it is no lead byte), the smallest
/// code point that needs that length, and the payload bits of the lead itself.
struct Sequence {
  size_t length = 0;
  char32_t smallest = 0;
  char32_t leadBits = 0;
};

Sequence sequenceOf(unsigned char lead) {
  if (lead < 0x80) return {1, 0, lead};
  if ((lead & 0xE0) == 0xC0) return {2, 0x80, lead & 0x1FU};
  if ((lead & 0xF0) == 0xE0) return {3, 0x800, lead & 0x0FU};
  if ((lead & 0xF8) == 0xF0) return {4, 0x10000, lead & 0x07U};
  return {};
}

/// Decodes the code point at `at` and moves `at` past it. False for invalid bytes.
bool takeCodePoint(std::string_view utf8, size_t& at, char32_t& point) {
  const Sequence sequence = sequenceOf(static_cast<unsigned char>(utf8[at]));
  if (sequence.length == 0 || utf8.size() - at < sequence.length) return false;
  point = sequence.leadBits;
  for (size_t i = 1; i < sequence.length; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[at + i]);
    if ((byte & 0xC0) != 0x80) return false;
    point = point << 6 | (byte & 0x3FU);
  }
  at += sequence.length;
  return point >= sequence.smallest && point <= 0x10FFFF && !isHighSurrogate(point) &&
         !isLowSurrogate(point);
}

void appendUtf8(std::string& out, char32_t point) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (point >> shift & 0x3F)); };
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | point >> 6);
    tail(0);
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0 | point >> 12);
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | point >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

std::u16string utf16From(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (size_t at = 0; at < utf8.size();) {
    char32_t point = 0;
    if (!takeCodePoint(utf8, at, point)) return {};
    if (point < 0x10000) {
      out += static_cast<char16_t>(point);
    } else {
      out += static_cast<char16_t>(0xD7C0 + (point >> 10));
      out += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    }
  }
  return out;
}

std::string utf8From(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size());
  for (size_t i = 0; i < utf16.size(); ++i) {
    char32_t point = utf16[i];
    if (isHighSurrogate(point) && i + 1 < utf16.size() && isLowSurrogate(utf16[i + 1])) {
      point = 0x10000 + ((point - 0xD800) << 10) + (utf16[++i] - 0xDC00U);
    } else if (isHighSurrogate(point) || isLowSurrogate(point)) {
      point = kReplacement;
    }
    appendUtf8(out, point);
  }
  return out;
}

std::u16string decimal(int64_t value) {
  const std::string digits = std::to_string(value);
  return {digits.begin(), digits.end()};
}

}  // namespace mrl
