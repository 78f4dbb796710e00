#include "base/char_rules.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(CharRulesTest, ToLowerChangesAToZOnly) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const bool capital = unit >= 'A' && unit <= 'Z';
    EXPECT_EQ(toLower(static_cast<char16_t>(unit)), capital ? unit + 32 : unit);
  }
}

TEST(CharRulesTest, LowerCopyTakesEachUnitByItself) {
  EXPECT_EQ(lowerCopy(u"DEMO É Ж 中.PPTX"), u"demo É Ж 中.pptx");
  EXPECT_EQ(lowerCopy(u""), u"");
}

TEST(CharRulesTest, LettersAndDigitsOfAnyScriptAreAlphanumeric) {
  for (const char16_t unit :
       std::u16string_view(u"09azAZéßıſµªºÀÿΩωЖяאع中文一龥あア한０９Ａｚ٣०²³¹Ⅳ")) {
    EXPECT_TRUE(isAlphanumeric(unit)) << std::hex << +unit;
  }
}

TEST(CharRulesTest, SignsBlanksAndHalvesOfPairsAreNotAlphanumeric) {
  for (const char16_t unit :
       std::u16string_view(u" _-.,()[]|/\\:@`{~【】（）—，。、·×÷€½①\u00A0\u3000\uFEFF\uFFFF")) {
    EXPECT_FALSE(isAlphanumeric(unit)) << std::hex << +unit;
  }
  EXPECT_FALSE(isAlphanumeric(0xD83D));
  EXPECT_FALSE(isAlphanumeric(0xDE00));
}

TEST(CharRulesTest, RangesEndWhereTheyEnd) {
  EXPECT_FALSE(isAlphanumeric(u'0' - 1));
  EXPECT_FALSE(isAlphanumeric(u'9' + 1));
  EXPECT_FALSE(isAlphanumeric(u'A' - 1));
  EXPECT_FALSE(isAlphanumeric(u'Z' + 1));
  EXPECT_FALSE(isAlphanumeric(u'a' - 1));
  EXPECT_FALSE(isAlphanumeric(u'z' + 1));
}

TEST(CharRulesTest, WhiteSpaceIsExactlyTheSpaceType) {
  const std::u16string spaces =
      u"\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
      u"\u200A\u2028\u2029\u202F\u205F\u3000";
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const bool listed = spaces.find(static_cast<char16_t>(unit)) != std::u16string::npos;
    EXPECT_EQ(isSpace(static_cast<char16_t>(unit)), listed) << std::hex << unit;
  }
}

TEST(CharRulesTest, CaseIsIgnoredInEveryScriptThatHasIt) {
  EXPECT_TRUE(equalsIgnoringCase(u"C:\\Demo.PPTX", u"c:\\dEMO.pptx"));
  EXPECT_TRUE(equalsIgnoringCase(u"é", u"É"));
  EXPECT_TRUE(equalsIgnoringCase(u"ÿ", u"Ÿ"));
  EXPECT_TRUE(equalsIgnoringCase(u"αβγω", u"ΑΒΓΩ"));
  EXPECT_TRUE(equalsIgnoringCase(u"жя", u"ЖЯ"));
  EXPECT_TRUE(equalsIgnoringCase(u"ａｚ", u"ＡＺ"));
  EXPECT_TRUE(equalsIgnoringCase(u"āą", u"ĀĄ"));
}

TEST(CharRulesTest, OnlyPairsThatMapBackFold) {
  EXPECT_FALSE(equalsIgnoringCase(u"ß", u"ẞ"));
  EXPECT_FALSE(equalsIgnoringCase(u"ß", u"ss"));
  EXPECT_FALSE(equalsIgnoringCase(u"ß", u"SS"));
  EXPECT_FALSE(equalsIgnoringCase(u"ı", u"I"));
  EXPECT_FALSE(equalsIgnoringCase(u"ı", u"i"));
  EXPECT_FALSE(equalsIgnoringCase(u"İ", u"i"));
  EXPECT_FALSE(equalsIgnoringCase(u"ſ", u"s"));
  EXPECT_FALSE(equalsIgnoringCase(u"ς", u"σ"));
  EXPECT_FALSE(equalsIgnoringCase(u"µ", u"μ"));
}

TEST(CharRulesTest, NeighboursOfARunDoNotFold) {
  EXPECT_FALSE(equalsIgnoringCase(u"÷", u"×"));  // lie between the letters of Latin-1
  EXPECT_FALSE(equalsIgnoringCase(u"@", u"`"));
  EXPECT_FALSE(equalsIgnoringCase(u"[", u"{"));
  EXPECT_FALSE(equalsIgnoringCase(u"Ā", u"Ă"));
}

TEST(CharRulesTest, UnitsBehindTheLastLetterFoldWithNothing) {
  EXPECT_FALSE(equalsIgnoringCase(u"￥", u"￦"));
  EXPECT_FALSE(equalsIgnoringCase(u"￥", u"a"));
}

TEST(CharRulesTest, HalvesOfPairsDoNotFold) {
  EXPECT_FALSE(equalsIgnoringCase(u"\U00010428", u"\U00010400"));
  EXPECT_TRUE(equalsIgnoringCase(u"\U00010428", u"\U00010428"));
}

TEST(CharRulesTest, LengthsMustAgree) {
  EXPECT_TRUE(equalsIgnoringCase(u"", u""));
  EXPECT_FALSE(equalsIgnoringCase(u"a", u""));
  EXPECT_FALSE(equalsIgnoringCase(u"a", u"aa"));
}

}  // namespace
}  // namespace mrl
