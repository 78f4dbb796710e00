#include "settings/settings_format.h"

#include <gtest/gtest.h>

#include <functional>
#include <string_view>

#include "base/text.h"
#include "settings/settings_sample.h"

namespace mrl {
namespace {

constexpr std::u16string_view kBadFormat = u"配置格式无效，已使用默认值；原文件未覆盖。";
constexpr std::u16string_view kBadList = u"配置列表不完整";
constexpr std::u16string_view kBadExtension = u"配置扩展字段无效";
constexpr std::u16string_view kBadPrompt = u"预警配置无效";

constexpr std::string_view kDefaultFile =
    "MarluneNative2\n"
    "900 1 1 0\n"
    "300 10 183 82\n"
    "1 0 0 0 0\n"
    "\"\"\n"
    "\"\"\n"
    "0\n"
    "0 0 0 0 0\n"
    "0 0 500 500\n"
    "16448767 33023 12597547 80 1 700\n"
    "\"Arial\"\n"
    "\"\"\n"
    "0 22222 1\n"
    "0 1 1 0 300 10 0 \"\"\n"
    "1 1 1 0 30 0 0 \"\"\n";

constexpr std::string_view kFullFile =
    "MarluneNative2\n"
    "604800 0 0 1\n"
    "-1200 -7 1600 1000\n"
    "0 1 0 1 1\n"
    "\"C:\\\\演示 文稿\"\n"
    "\"\\\\\\\\server\\\\share\\\\😀.pptx\"\n"
    "3\n"
    "\"C:\\\\a \\\"b\\\"\\\\c.pptx\"\n"
    "\"\"\n"
    "\"two\nlines.pptx\"\n"
    "1 1 1 1 1\n"
    "3600 3599 50 10000\n"
    "16777215 1 1193046 10 2 999\n"
    "\"微软雅黑\"\n"
    "\"C:\\\\end.wav\"\n"
    "100000 65535 0\n"
    "1 0 0 1 604800 3600 3598 \"C:\\\\one.wav\"\n"
    "0 0 0 1 1 2 3 \"C:\\\\two.wav\"\n";

/// The default file with one piece of text replaced.
std::string withText(std::string_view piece, std::string_view other) {
  std::string file(kDefaultFile);
  const size_t at = file.find(piece);
  EXPECT_NE(at, std::string::npos) << piece;
  return file.replace(at, piece.size(), other);
}

/// REQUIRES: the file loads.
Settings loaded(const std::string& file) {
  Settings record;
  std::u16string error;
  EXPECT_TRUE(parseSettings(file, record, error)) << utf8From(error);
  EXPECT_EQ(error, u"");
  return record;
}

/// The message for a refused file; the record must be unchanged.
std::u16string refusal(const std::string& file) {
  const Settings before = fullRecord();
  Settings record = before;
  std::u16string error;
  EXPECT_FALSE(parseSettings(file, record, error));
  EXPECT_EQ(record, before);
  return error;
}

Settings changedBy(const std::function<void(Settings&)>& change) {
  Settings record;
  change(record);
  return record;
}

// --- writing ---

TEST(ComposeSettingsTest, TheDefaultRecordGivesExactlyTheseBytes) {
  EXPECT_EQ(composeSettings(Settings{}), kDefaultFile);
}

TEST(ComposeSettingsTest, AFullRecordGivesExactlyTheseBytes) {
  EXPECT_EQ(composeSettings(fullRecord()), kFullFile);
}

struct FlagPlace {
  void (*flip)(Settings&);
  std::string_view piece;  // of the default file
  std::string_view flipped;
};

const FlagPlace kFlagPlaces[] = {
    {[](Settings& s) { s.down = false; }, "900 1 1 0", "900 0 1 0"},
    {[](Settings& s) { s.autoMode = false; }, "900 1 1 0", "900 1 0 0"},
    {[](Settings& s) { s.perSlide = true; }, "900 1 1 0", "900 1 1 1"},
    {[](Settings& s) { s.blink = false; }, "1 0 0 0 0", "0 0 0 0 0"},
    {[](Settings& s) { s.sound = true; }, "1 0 0 0 0", "1 1 0 0 0"},
    {[](Settings& s) { s.black = true; }, "1 0 0 0 0", "1 0 1 0 0"},
    {[](Settings& s) { s.exitShow = true; }, "1 0 0 0 0", "1 0 0 1 0"},
    {[](Settings& s) { s.switchPpt = true; }, "1 0 0 0 0", "1 0 0 0 1"},
    {[](Settings& s) { s.hideNoDocument = true; }, "0 0 0 0 0", "1 0 0 0 0"},
    {[](Settings& s) { s.hideZero = true; }, "0 0 0 0 0", "0 1 0 0 0"},
    {[](Settings& s) { s.hideExcluded = true; }, "0 0 0 0 0", "0 0 1 0 0"},
    {[](Settings& s) { s.transparent = true; }, "0 0 0 0 0", "0 0 0 1 0"},
    {[](Settings& s) { s.machineTime = true; }, "0 0 0 0 0", "0 0 0 0 1"},
    {[](Settings& s) { s.remoteAutoStart = false; }, "22222 1", "22222 0"},
    {[](Settings& s) { s.prompt1.enabled = true; }, "0 1 1 0 300", "1 1 1 0 300"},
    {[](Settings& s) { s.prompt1.blinkWindow = false; }, "0 1 1 0 300", "0 0 1 0 300"},
    {[](Settings& s) { s.prompt1.blinkBackground = false; }, "0 1 1 0 300", "0 1 0 0 300"},
    {[](Settings& s) { s.prompt1.sound = true; }, "0 1 1 0 300", "0 1 1 1 300"},
};

TEST(ComposeSettingsTest, EveryFlagStandsAtItsOwnPlace) {
  for (const FlagPlace& place : kFlagPlaces) {
    EXPECT_EQ(composeSettings(changedBy(place.flip)), withText(place.piece, place.flipped));
  }
}

TEST(ComposeSettingsTest, AnUnpairedSurrogateIsWrittenAsTheReplacementCharacter) {
  Settings record;
  record.fontName = std::u16string{u'a', 0xD800};
  EXPECT_NE(composeSettings(record).find("\"a\xEF\xBF\xBD\"\n"), std::string::npos);
}

// --- reading: what loads ---

TEST(ParseSettingsTest, ADefaultRecordComesBackInEveryField) {
  EXPECT_EQ(loaded(composeSettings(Settings{})), Settings{});
}

TEST(ParseSettingsTest, AFullRecordComesBackInEveryField) {
  EXPECT_EQ(loaded(composeSettings(fullRecord())), fullRecord());
}

TEST(ParseSettingsTest, WhatTheRecordHeldBeforeIsReplacedAsAWhole) {
  Settings record = fullRecord();
  std::u16string error;
  ASSERT_TRUE(parseSettings(std::string(kDefaultFile), record, error));
  EXPECT_EQ(record, Settings{});
}

TEST(ParseSettingsTest, APlaceLeftOfThePrimaryMonitorComesBack) {
  EXPECT_EQ(loaded(withText("300 10 183", "-1200 10 183")).windowX, -1200);
}

TEST(ParseSettingsTest, ALoadedBlackScreenGivesWayToLeavingTheShow) {
  const Settings record = loaded(withText("1 0 0 0 0", "1 0 1 1 0"));
  EXPECT_FALSE(record.black);
  EXPECT_TRUE(record.exitShow);
}

TEST(ParseSettingsTest, ALoadedBlackScreenGivesWayToAnotherDeck) {
  const Settings record = loaded(withText("1 0 0 0 0", "1 0 1 0 1"));
  EXPECT_FALSE(record.black);
  EXPECT_TRUE(record.switchPpt);
}

TEST(ParseSettingsTest, ALoadedBlackScreenAloneStays) {
  EXPECT_EQ(loaded(withText("1 0 0 0 0", "1 0 1 0 0")),
            changedBy([](Settings& s) { s.black = true; }));
}

TEST(ParseSettingsTest, TheSoundsLengthHasNoLimit) {
  EXPECT_EQ(loaded(withText("0 22222 1", "100000 22222 1")).soundSeconds, 100000U);
  EXPECT_EQ(loaded(withText("0 22222 1", "4294967295 22222 1")).soundSeconds, 4294967295U);
}

TEST(ParseSettingsTest, AnEmptyFontNameLoads) {
  EXPECT_EQ(loaded(withText("\"Arial\"", "\"\"")).fontName, u"");
}

TEST(ParseSettingsTest, ACarriageReturnBehindTheMagicIsDropped) {
  EXPECT_EQ(loaded(withText("Native2\n", "Native2\r\n")), Settings{});
}

TEST(ParseSettingsTest, CarriageReturnsOnEveryLineAreWhiteSpace) {
  std::string file;
  for (const char byte : kDefaultFile)
    file += byte == '\n' ? std::string("\r\n") : std::string{byte};
  EXPECT_EQ(loaded(file), Settings{});
}

TEST(ParseSettingsTest, BehindTheMagicAnyWhiteSpaceParts) {
  std::string file(kDefaultFile);
  for (size_t at = 15; at < file.size(); ++at) {
    if (file[at] == '\n') file[at] = '\t';
  }
  EXPECT_EQ(loaded(file), Settings{});
}

TEST(ParseSettingsTest, WhatFollowsTheLastFieldIsIgnored) {
  EXPECT_EQ(loaded(std::string(kDefaultFile) + "more\n\"open"), Settings{});
}

TEST(ParseSettingsTest, TheLastLineNeedsNoEnd) {
  EXPECT_EQ(loaded(std::string(kDefaultFile.substr(0, kDefaultFile.size() - 1))), Settings{});
}

TEST(ParseSettingsTest, QuotesAndBackslashesOfAPathComeBack) {
  const Settings record = changedBy([](Settings& s) { s.skipList = {u"\\\"\\\\a\"b\\"}; });
  EXPECT_EQ(loaded(composeSettings(record)), record);
}

TEST(ParseSettingsTest, ATextWithoutQuotesEndsAtWhiteSpace) {
  EXPECT_EQ(loaded(withText("\"Arial\"", "Arial")).fontName, u"Arial");
  EXPECT_EQ(loaded(withText("\"Arial\"", "Ar\"ial\\")).fontName, u"Ar\"ial\\");
}

TEST(ParseSettingsTest, InsideQuotesABackslashTakesTheNextByteAsItIs) {
  EXPECT_EQ(loaded(withText("\"Arial\"", "\"A\\rial\\\"\"")).fontName, u"Arial\"");
}

TEST(ParseSettingsTest, ATextWithBadBytesLoadsAsEmpty) {
  const Settings record = loaded(withText("\"Arial\"", "\"Ar\xFFial\""));
  EXPECT_EQ(record, changedBy([](Settings& s) { s.fontName = u""; }));
}

TEST(ParseSettingsTest, AnEntryWithBadBytesStaysInTheListAsEmpty) {
  const std::string file = withText("\n0\n0 0 0 0 0", "\n2\n\"\xC3\" \"b\"\n0 0 0 0 0");
  EXPECT_EQ(loaded(file).skipList, (std::vector<std::u16string>{u"", u"b"}));
}

TEST(ParseSettingsTest, NumbersMayCarrySignsAndLeadingZeros) {
  EXPECT_EQ(loaded(withText("900 1 1 0", "+0060 01 +1 -0")),
            changedBy([](Settings& s) { s.duration = 60; }));
}

TEST(ParseSettingsTest, TenThousandEntriesLoad) {
  Settings record;
  for (int i = 0; i < 10000; ++i) record.skipList.push_back(u"C:\\" + decimal(i));
  EXPECT_EQ(loaded(composeSettings(record)), record);
}

TEST(ParseSettingsTest, TheOlderVersionTakesDefaultsBehindTheList) {
  Settings expected;
  const Settings full = fullRecord();
  expected.duration = full.duration;
  expected.down = full.down;
  expected.autoMode = full.autoMode;
  expected.perSlide = full.perSlide;
  expected.windowX = full.windowX;
  expected.windowY = full.windowY;
  expected.windowWidth = full.windowWidth;
  expected.windowHeight = full.windowHeight;
  expected.blink = full.blink;
  expected.sound = full.sound;
  expected.exitShow = full.exitShow;
  expected.switchPpt = full.switchPpt;
  expected.pptFolder = full.pptFolder;
  expected.switchDeck = full.switchDeck;
  expected.skipList = full.skipList;
  std::string file(kFullFile.substr(0, kFullFile.find("1 1 1 1 1")));
  file[13] = '1';
  EXPECT_EQ(loaded(file), expected);
}

TEST(ParseSettingsTest, BehindTheListOfTheOlderVersionNothingIsRead) {
  std::string file(kFullFile);
  file[13] = '1';
  EXPECT_EQ(loaded(file).fontName, u"Arial");
}

TEST(ParseSettingsTest, TheOlderVersionIsNormalisedToo) {
  std::string file = withText("1 0 0 0 0", "1 0 1 1 0");
  file[13] = '1';
  EXPECT_FALSE(loaded(file).black);
}

// --- reading: what is refused ---

TEST(ParseSettingsTest, AnEmptyFileIsRefused) { EXPECT_EQ(refusal(""), kBadFormat); }

TEST(ParseSettingsTest, AnyOtherFirstLineIsRefused) {
  for (const std::string_view magic :
       {"MarluneNative3", "MarluneNative", "MarluneNative2 ", " MarluneNative2", "marlunenative2",
        "MarluneNative2\r\r", "\xEF\xBB\xBFMarluneNative2", "\nMarluneNative2", "PK\x03\x04"}) {
    EXPECT_EQ(refusal(withText("MarluneNative2", magic)), kBadFormat) << magic;
  }
}

TEST(ParseSettingsTest, TheMagicAloneIsRefused) {
  EXPECT_EQ(refusal("MarluneNative2"), kBadFormat);
  EXPECT_EQ(refusal("MarluneNative1\n"), kBadFormat);
}

TEST(ParseSettingsTest, ABooleanOtherThanZeroOrOneIsRefused) {
  EXPECT_EQ(refusal(withText("900 1 1 0", "900 2 1 0")), kBadFormat);
  EXPECT_EQ(refusal(withText("900 1 1 0", "900 true 1 0")), kBadFormat);
  EXPECT_EQ(refusal(withText("900 1 1 0", "900 -1 1 0")), kBadFormat);
  EXPECT_EQ(refusal(withText("0 0 0 0 0", "0 0 0 0 2")), kBadExtension);
  EXPECT_EQ(refusal(withText("22222 1", "22222 2")), kBadExtension);
  EXPECT_EQ(refusal(withText("1 1 1 0 30", "1 1 1 2 30")), kBadPrompt);
}

TEST(ParseSettingsTest, ANegativeNumberInACheckedFieldIsRefused) {
  EXPECT_EQ(refusal(withText("900 1", "-1 1")), kBadFormat);
  EXPECT_EQ(refusal(withText("10 183", "10 -183")), kBadFormat);
  EXPECT_EQ(refusal(withText("\n0\n0 0", "\n-1\n0 0")), kBadFormat);
  EXPECT_EQ(refusal(withText(" 80 1", " -80 1")), kBadExtension);
  EXPECT_EQ(refusal(withText(" 30 0", " -30 0")), kBadPrompt);
}

TEST(ParseSettingsTest, ANegativeNumberThatWouldWrapIntoItsRangeIsRefusedToo) {
  EXPECT_EQ(refusal(withText("900 1", "-4294967196 1")), kBadFormat);
  EXPECT_EQ(refusal(withText("10 183", "10 -4294967113")), kBadFormat);
  EXPECT_EQ(refusal(withText("\n0\n0 0", "\n-18446744073709551615\n0 0")), kBadFormat);
  EXPECT_EQ(refusal(withText(" 80 1", " -4294967216 1")), kBadExtension);
  EXPECT_EQ(refusal(withText(" 30 0", " -4294967266 0")), kBadPrompt);
}

TEST(ParseSettingsTest, ANegativeSoundLengthWrapsBecauseNothingChecksIt) {
  EXPECT_EQ(loaded(withText("0 22222 1", "-1 22222 1")).soundSeconds, 4294967295U);
}

TEST(ParseSettingsTest, ANumberThatDoesNotFitIsRefused) {
  EXPECT_EQ(refusal(withText("900 1", "4294967296 1")), kBadFormat);
  EXPECT_EQ(refusal(withText("300 10", "2147483648 10")), kBadFormat);
  EXPECT_EQ(refusal(withText("300 10", "-2147483649 10")), kBadFormat);
  EXPECT_EQ(refusal(withText("\n0\n0 0", "\n18446744073709551616\n0 0")), kBadFormat);
  EXPECT_EQ(refusal(withText("0 22222 1", "4294967296 22222 1")), kBadExtension);
  EXPECT_EQ(loaded(withText("300 10", "2147483647 -2147483648")).windowX, 2147483647);
}

TEST(ParseSettingsTest, AWordInPlaceOfANumberIsRefused) {
  EXPECT_EQ(refusal(withText("900 1", "long 1")), kBadFormat);
  EXPECT_EQ(refusal(withText("900 1", "0x10 1")), kBadFormat);
  EXPECT_EQ(refusal(withText("900 1", "9,00 1")), kBadFormat);
  EXPECT_EQ(refusal(withText("500 500", "500 half")), kBadExtension);
  EXPECT_EQ(refusal(withText("300 10 0", "300 ten 0")), kBadPrompt);
}

TEST(ParseSettingsTest, TenThousandAndOneEntriesAreRefusedEvenWhenTheyFollow) {
  Settings record;
  record.skipList.assign(10001, u"x");
  EXPECT_EQ(refusal(composeSettings(record)), kBadFormat);
}

TEST(ParseSettingsTest, AListThatEndsEarlyIsRefused) {
  EXPECT_EQ(refusal("MarluneNative1\n900 1 1 0\n300 10 183 82\n1 0 0 0 0\n\"\"\n\"\"\n3\n"
                    "\"a\"\n\"b\"\n"),
            kBadList);
}

TEST(ParseSettingsTest, AnEntryWithoutItsClosingQuoteIsRefused) {
  EXPECT_EQ(refusal("MarluneNative2\n900 1 1 0\n300 10 183 82\n1 0 0 0 0\n\"\"\n\"\"\n1\n\"a\n"),
            kBadList);
  EXPECT_EQ(refusal("MarluneNative2\n900 1 1 0\n300 10 183 82\n1 0 0 0 0\n\"\"\n\"\"\n1\n\"a\\\""),
            kBadList);
}

TEST(ParseSettingsTest, TheCurrentVersionCutBehindTheListIsRefusedAndTheOlderOneLoads) {
  std::string file(kDefaultFile.substr(0, kDefaultFile.find("0 0 0 0 0\n0 0 500")));
  EXPECT_EQ(refusal(file), kBadExtension);
  file[13] = '1';
  EXPECT_EQ(loaded(file), Settings{});
}

TEST(ParseSettingsTest, AFileCutInsideTheSecondStageIsRefused) {
  EXPECT_EQ(refusal(std::string(kDefaultFile.substr(0, kDefaultFile.find(" 30 0")))), kBadPrompt);
}

TEST(ParseSettingsTest, AFileCutInsideTheFirstStageIsRefused) {
  EXPECT_EQ(refusal(std::string(kDefaultFile.substr(0, kDefaultFile.find(" 300 10 0")))),
            kBadPrompt);
}

// --- ranges ---

struct RangeRow {
  const char* name;
  std::function<void(Settings&, uint32_t)> set;
  uint32_t low;
  uint32_t high;
  std::u16string_view message;
};

const RangeRow kRangeRows[] = {
    {"duration", [](Settings& s, uint32_t v) { s.duration = v; }, 0, 604800, kBadFormat},
    {"windowWidth", [](Settings& s, uint32_t v) { s.windowWidth = v; }, 90, 1600, kBadFormat},
    {"windowHeight", [](Settings& s, uint32_t v) { s.windowHeight = v; }, 40, 1000, kBadFormat},
    {"resetDelay", [](Settings& s, uint32_t v) { s.resetDelay = v; }, 0, 3600, kBadExtension},
    {"blinkSeconds", [](Settings& s, uint32_t v) { s.blinkSeconds = v; }, 0, 3600, kBadExtension},
    {"blinkOn", [](Settings& s, uint32_t v) { s.blinkOn = v; }, 50, 10000, kBadExtension},
    {"blinkOff", [](Settings& s, uint32_t v) { s.blinkOff = v; }, 50, 10000, kBadExtension},
    {"foreground", [](Settings& s, uint32_t v) { s.foreground = v; }, 0, 0xFFFFFF, kBadExtension},
    {"background", [](Settings& s, uint32_t v) { s.background = v; }, 0, 0xFFFFFF, kBadExtension},
    {"alert", [](Settings& s, uint32_t v) { s.alert = v; }, 0, 0xFFFFFF, kBadExtension},
    {"opacity", [](Settings& s, uint32_t v) { s.opacity = v; }, 10, 100, kBadExtension},
    {"shape", [](Settings& s, uint32_t v) { s.shape = v; }, 0, 2, kBadExtension},
    {"fontWeight", [](Settings& s, uint32_t v) { s.fontWeight = v; }, 100, 999, kBadExtension},
    {"remotePort", [](Settings& s, uint32_t v) { s.remotePort = v; }, 1024, 65535, kBadExtension},
    {"prompt1.advance", [](Settings& s, uint32_t v) { s.prompt1.advance = v; }, 0, 604800,
     kBadPrompt},
    {"prompt1.blinkSeconds", [](Settings& s, uint32_t v) { s.prompt1.blinkSeconds = v; }, 0, 3600,
     kBadPrompt},
    {"prompt1.soundSeconds", [](Settings& s, uint32_t v) { s.prompt1.soundSeconds = v; }, 0, 3600,
     kBadPrompt},
    {"prompt2.advance", [](Settings& s, uint32_t v) { s.prompt2.advance = v; }, 0, 604800,
     kBadPrompt},
    {"prompt2.blinkSeconds", [](Settings& s, uint32_t v) { s.prompt2.blinkSeconds = v; }, 0, 3600,
     kBadPrompt},
    {"prompt2.soundSeconds", [](Settings& s, uint32_t v) { s.prompt2.soundSeconds = v; }, 0, 3600,
     kBadPrompt},
};

TEST(ParseSettingsTest, EveryRangeLoadsAtBothItsEnds) {
  for (const RangeRow& row : kRangeRows) {
    for (const uint32_t value : {row.low, row.high}) {
      const Settings record = changedBy([&](Settings& s) { row.set(s, value); });
      EXPECT_EQ(loaded(composeSettings(record)), record) << row.name << value;
    }
  }
}

TEST(ParseSettingsTest, EveryRangeRefusesWhatLiesBeyondItsEnds) {
  for (const RangeRow& row : kRangeRows) {
    for (const uint32_t value : {row.low - 1, row.high + 1}) {  // 0 - 1 wraps to the largest number
      const Settings record = changedBy([&](Settings& s) { row.set(s, value); });
      EXPECT_EQ(refusal(composeSettings(record)), row.message) << row.name << value;
    }
  }
}

// --- damage ---

/// For any bytes: a loadable record, or a refusal that changes nothing.
void expectSound(const std::string& file) {
  const Settings before = fullRecord();
  Settings record = before;
  std::u16string error;
  if (parseSettings(file, record, error)) {
    EXPECT_TRUE(isLoadable(record));
    EXPECT_EQ(error, u"");
  } else {
    EXPECT_EQ(record, before);
    EXPECT_TRUE(error == kBadFormat || error == kBadList || error == kBadExtension ||
                error == kBadPrompt);
  }
}

TEST(DamagedSettingsTest, AFileCutAtAnyByteIsRefusedUnlessOnlyItsLastLineEndIsGone) {
  for (size_t length = 0; length + 1 < kFullFile.size(); ++length) {
    refusal(std::string(kFullFile.substr(0, length)));
  }
}

TEST(DamagedSettingsTest, AnOlderFileCutAtAnyByteIsSound) {
  std::string file(kFullFile.substr(0, kFullFile.find("1 1 1 1 1")));
  file[13] = '1';
  for (size_t length = 0; length <= file.size(); ++length) expectSound(file.substr(0, length));
}

TEST(DamagedSettingsTest, AnyFlippedBitGivesASoundRecordOrARefusal) {
  for (const std::string_view whole : {kDefaultFile, kFullFile}) {
    for (size_t bit = 0; bit < whole.size() * 8; ++bit) {
      std::string file(whole);
      file[bit / 8] = static_cast<char>(file[bit / 8] ^ (1 << (bit % 8)));
      expectSound(file);
    }
  }
}

TEST(DamagedSettingsTest, AHugeNumberIsRefused) {
  const std::string digits(100'000'000, '9');
  EXPECT_EQ(refusal(withText("900 1", digits + " 1")), kBadFormat);
}

TEST(DamagedSettingsTest, AHugeFirstLineIsRefused) {
  EXPECT_EQ(refusal(std::string(100'000'000, 'M')), kBadFormat);
}

TEST(DamagedSettingsTest, HugeEntriesLoad) {
  Settings record;
  record.skipList.assign(1000, std::u16string(10'000, u'x'));
  EXPECT_EQ(loaded(composeSettings(record)), record);
}

TEST(DamagedSettingsTest, ALongListThatIsNotThereIsRefused) {
  EXPECT_EQ(refusal(std::string(kDefaultFile.substr(0, kDefaultFile.find("\n0\n") + 1)) + "10000"),
            kBadList);
}

}  // namespace
}  // namespace mrl
