#include "base/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace mrl {
namespace {

TEST(TextTest, EverySequenceLengthGoesBothWays) {
  const std::u16string wide = u"A\u007F\u0080é\u07FF\u0800中\uFFFF\U00010000😀\U0010FFFF";
  const std::string utf8 =
      "A\x7F\xC2\x80\xC3\xA9\xDF\xBF\xE0\xA0\x80\xE4\xB8\xAD\xEF\xBF\xBF\xF0\x90\x80\x80"
      "\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF";
  EXPECT_EQ(utf8From(wide), utf8);
  EXPECT_EQ(utf16From(utf8), wide);
}

TEST(TextTest, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(utf16From(""), u"");
  EXPECT_EQ(utf8From(u""), "");
}

TEST(TextTest, AZeroByteIsACharacterLikeAnyOther) {
  EXPECT_EQ(utf16From(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
  EXPECT_EQ(utf8From(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(TextTest, BadBytesGiveTheEmptyTextAsAWhole) {
  const std::string_view bad[] = {
      "\x80",              // continuation byte without a lead
      "\xC3",              // truncated
      "\xE4\xB8",          // truncated
      "\xF0\x9F\x98",      // truncated
      "\xC3(",             // no continuation byte
      "\xC0\x80",          // overlong
      "\xE0\x80\x80",      // overlong
      "\xF0\x80\x80\x80",  // overlong
      "\xED\xA0\x80",      // surrogate
      "\xED\xBF\xBF",      // surrogate
      "\xF4\x90\x80\x80",  // beyond the last code point
      "\xF8\x88\x80\x80\x80",
      "\xFF",
  };
  for (const std::string_view bytes : bad) {
    EXPECT_EQ(utf16From("good " + std::string(bytes) + " good"), u"") << bytes;
    EXPECT_EQ(utf16From(bytes), u"") << bytes;
  }
}

TEST(TextTest, AnUnpairedSurrogateBecomesTheReplacementCharacter) {
  const char16_t high = 0xD83D;
  const char16_t low = 0xDE00;
  EXPECT_EQ(utf8From(std::u16string{high}), "\xEF\xBF\xBD");
  EXPECT_EQ(utf8From(std::u16string{low}), "\xEF\xBF\xBD");
  EXPECT_EQ(utf8From(std::u16string{high, u'x'}), "\xEF\xBF\xBDx");
  EXPECT_EQ(utf8From(std::u16string{low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(utf8From(std::u16string{high, high, low}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(TextTest, DecimalWritesPlainDigitsWithAMinusSignWhereNeeded) {
  EXPECT_EQ(decimal(0), u"0");
  EXPECT_EQ(decimal(604800), u"604800");
  EXPECT_EQ(decimal(-1200), u"-1200");
  EXPECT_EQ(decimal(std::numeric_limits<int64_t>::min()), u"-9223372036854775808");
  EXPECT_EQ(decimal(std::numeric_limits<int64_t>::max()), u"9223372036854775807");
}

}  // namespace
}  // namespace mrl
