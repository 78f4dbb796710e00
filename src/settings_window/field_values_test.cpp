#include "settings_window/field_values.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(FieldValuesTest, ANumberIsDecimalDigits) {
  EXPECT_EQ(numberFrom(u"0"), 0u);
  EXPECT_EQ(numberFrom(u"120"), 120u);
  EXPECT_EQ(numberFrom(u"007"), 7u);
  EXPECT_EQ(numberFrom(u"  12"), 12u);
}

TEST(FieldValuesTest, DigitsOfFullWidthCountAsDigits) {
  EXPECT_EQ(numberFrom(u"１５"), 15u);
  EXPECT_EQ(numberFrom(u" ０９8"), 98u);
  EXPECT_EQ(numberFrom(u"４２９４９６７２９６"), std::nullopt);
}

TEST(FieldValuesTest, ANumberEndsAt32Bits) {
  EXPECT_EQ(numberFrom(u"4294967295"), 4294967295u);
  EXPECT_EQ(numberFrom(u"4294967296"), std::nullopt);
  EXPECT_EQ(numberFrom(u"99999999999999999999999999"), std::nullopt);
  EXPECT_EQ(numberFrom(std::u16string(32'000, u'9')), std::nullopt);
}

TEST(FieldValuesTest, AnythingElseIsNoNumber) {
  for (const char16_t* text : {u"", u" ", u"-1", u"+1", u"1.5", u"1,5", u"12abc", u"abc", u"0x10",
                               u"一", u"1 2", u"\"1\"", u"A", u"1\r\n2", u"／", u"：", u"−1"}) {
    EXPECT_EQ(numberFrom(text), std::nullopt);
  }
}

TEST(FieldValuesTest, AColourIsSixHexadecimalDigitsBehindASharp) {
  EXPECT_EQ(colourFromText(u"#123456"), 0x123456u);
  EXPECT_EQ(colourFromText(u"#ABCDEF"), 0xABCDEFu);
  EXPECT_EQ(colourFromText(u"#abcdef"), 0xABCDEFu);
  EXPECT_EQ(colourFromText(u"#000000"), 0u);
  EXPECT_EQ(colourFromText(u"#FFFFFF"), 0xFFFFFFu);
}

TEST(FieldValuesTest, AnythingElseIsNoColour) {
  for (const char16_t* text :
       {u"", u"#", u"#12345", u"#1234567", u"1234567", u"#GGGGGG", u"#12345G", u"# 12345",
        u"#-12345", u"#+12345", u"#0x1234", u"#１２３４５６", u"#123 56", u"\"12345\""}) {
    EXPECT_EQ(colourFromText(text), std::nullopt);
  }
  EXPECT_EQ(colourFromText(std::u16string(32'000, u'#')), std::nullopt);
}

TEST(FieldValuesTest, AColourIsWrittenInUpperCaseWithAllItsDigits) {
  EXPECT_EQ(colourText(0), u"#000000");
  EXPECT_EQ(colourText(0xABCDEF), u"#ABCDEF");
  EXPECT_EQ(colourText(0x0080FF), u"#0080FF");
}

}  // namespace
}  // namespace mrl
