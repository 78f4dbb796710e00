#include "http/json_text.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(JsonTextTest, TextStandsInQuotes) {
  EXPECT_EQ(jsonString(u"abc"), "\"abc\"");
  EXPECT_EQ(jsonString(u""), "\"\"");
}

TEST(JsonTextTest, QuotationMarksAndBackslashesAreEscaped) {
  EXPECT_EQ(jsonString(u"a\"b\\c"), "\"a\\\"b\\\\c\"");
}

TEST(JsonTextTest, EveryControlCharacterGetsFourLowerCaseDigits) {
  EXPECT_EQ(jsonString(u"\n"), "\"\\u000a\"") << "there is no short form";
  EXPECT_EQ(jsonString(u"\t\x1f"), "\"\\u0009\\u001f\"");
  EXPECT_EQ(jsonString(std::u16string(1, u'\0')), "\"\\u0000\"");
}

TEST(JsonTextTest, BlankAndDeleteAreCopied) { EXPECT_EQ(jsonString(u" \x7f"), "\" \x7f\""); }

TEST(JsonTextTest, ChineseIsRawUtf8) {
  EXPECT_EQ(jsonString(u"演示"), "\"\xE6\xBC\x94\xE7\xA4\xBA\"");
}

TEST(JsonTextTest, ASurrogatePairIsOneCharacterAndALoneOneIsReplaced) {
  EXPECT_EQ(jsonString(u"\xD83D\xDE00"), "\"\xF0\x9F\x98\x80\"");
  EXPECT_EQ(jsonString(u"\xD83D"), "\"\xEF\xBF\xBD\"");
}

TEST(JsonTextTest, BooleansAreWords) {
  EXPECT_EQ(jsonBoolean(true), "true");
  EXPECT_EQ(jsonBoolean(false), "false");
}

}  // namespace
}  // namespace mrl
