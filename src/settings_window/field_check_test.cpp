// Every field of the form: what it accepts, what it rejects, and that it changes nothing else.
#include "settings_window/field_check.h"

#include "base/text.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

class FieldCheckTest : public SettingsFixture {
 protected:
  void expectApplied(const Settings& expected, int id) {
    EXPECT_EQ(status(), kApplied) << id;
    EXPECT_EQ(app.settings, expected) << id;
    EXPECT_EQ(saved(), expected) << id;
    EXPECT_FALSE(isPending(id)) << id;
  }
  void expectRefused(int id, int redId, const std::u16string& error) {
    EXPECT_EQ(status(), error + kNotApplied) << id;
    EXPECT_TRUE(isRed(redId)) << id;
    EXPECT_EQ(app.settings, Settings{}) << id;
    EXPECT_EQ(app.form.pendingEdits.at(queuedId(id)), kNotDue) << id;
  }
};

struct CheckCase {
  int id;
  bool& (*field)(Settings&);
};
constexpr CheckCase kChecks[] = {
    {205, [](Settings& s) -> bool& { return s.perSlide; }},
    {244, [](Settings& s) -> bool& { return s.hideNoDocument; }},
    {245, [](Settings& s) -> bool& { return s.hideZero; }},
    {246, [](Settings& s) -> bool& { return s.hideExcluded; }},
    {209, [](Settings& s) -> bool& { return s.exitShow; }},
    {208, [](Settings& s) -> bool& { return s.black; }},
    {206, [](Settings& s) -> bool& { return s.blink; }},
    {207, [](Settings& s) -> bool& { return s.sound; }},
    {210, [](Settings& s) -> bool& { return s.switchPpt; }},
    {260, [](Settings& s) -> bool& { return s.transparent; }},
    {266, [](Settings& s) -> bool& { return s.machineTime; }},
    {271, [](Settings& s) -> bool& { return s.remoteAutoStart; }},
    {400, [](Settings& s) -> bool& { return s.prompt1.enabled; }},
    {403, [](Settings& s) -> bool& { return s.prompt1.blinkWindow; }},
    {404, [](Settings& s) -> bool& { return s.prompt1.blinkBackground; }},
    {405, [](Settings& s) -> bool& { return s.prompt1.sound; }},
    {420, [](Settings& s) -> bool& { return s.prompt2.enabled; }},
    {423, [](Settings& s) -> bool& { return s.prompt2.blinkWindow; }},
    {424, [](Settings& s) -> bool& { return s.prompt2.blinkBackground; }},
    {425, [](Settings& s) -> bool& { return s.prompt2.sound; }},
};

TEST_F(FieldCheckTest, EveryCheckChangesItsFieldAtOnceAndNothingElse) {
  for (const CheckCase& row : kChecks) {
    openWith(Settings{});
    Settings expected;
    row.field(expected) = !row.field(expected);
    view().click(row.id);
    expectApplied(expected, row.id);
  }
}

TEST_F(FieldCheckTest, TheRadioButtonsChooseTheDirection) {
  view().click(kUpRadio);
  Settings expected;
  expected.down = false;
  expectApplied(expected, kUpRadio);
  view().click(kDownRadio);
  expectApplied(Settings{}, kDownRadio);
}

struct NumberCase {
  int id;
  uint32_t lowest;
  uint32_t highest;
  uint32_t& (*field)(Settings&);
};
constexpr NumberCase kNumbers[] = {
    {247, 0, 3600, [](Settings& s) -> uint32_t& { return s.resetDelay; }},
    {248, 0, 3600, [](Settings& s) -> uint32_t& { return s.blinkSeconds; }},
    {254, 0, 3600, [](Settings& s) -> uint32_t& { return s.soundSeconds; }},
    {227, 120, 1200, [](Settings& s) -> uint32_t& { return s.windowWidth; }},
    {228, 50, 600, [](Settings& s) -> uint32_t& { return s.windowHeight; }},
    {259, 10, 100, [](Settings& s) -> uint32_t& { return s.opacity; }},
    {264, 50, 10000, [](Settings& s) -> uint32_t& { return s.blinkOn; }},
    {265, 50, 10000, [](Settings& s) -> uint32_t& { return s.blinkOff; }},
    {408, 0, 3600, [](Settings& s) -> uint32_t& { return s.prompt1.blinkSeconds; }},
    {409, 0, 3600, [](Settings& s) -> uint32_t& { return s.prompt1.soundSeconds; }},
    {428, 0, 3600, [](Settings& s) -> uint32_t& { return s.prompt2.blinkSeconds; }},
    {429, 0, 3600, [](Settings& s) -> uint32_t& { return s.prompt2.soundSeconds; }},
};

TEST_F(FieldCheckTest, EveryNumberBoxTakesBothEndsOfItsRange) {
  for (const NumberCase& row : kNumbers) {
    for (const uint32_t value : {row.lowest, row.highest}) {
      openWith(Settings{});
      Settings expected;
      row.field(expected) = value;
      enter(row.id, decimal(value));
      expectApplied(expected, row.id);
    }
  }
}

TEST_F(FieldCheckTest, EveryNumberBoxRefusesWhatIsNoNumberOfItsRange) {
  for (const NumberCase& row : kNumbers) {
    const std::u16string error =
        u"请输入有效数值（" + decimal(row.lowest) + u"–" + decimal(row.highest) + u"）。";
    std::vector<std::u16string> inputs = {
        decimal(row.highest + 1ll),  u"4294967296", u"-1", u"12abc", u"垃圾",
        std::u16string(32'000, u'9')};
    if (row.lowest > 0) inputs.push_back(decimal(row.lowest - 1ll));
    for (const std::u16string& input : inputs) {
      openWith(Settings{});
      enter(row.id, input);
      expectRefused(row.id, row.id, error);
    }
  }
}

TEST_F(FieldCheckTest, EveryNumberBoxLeftEmptyCountsAsZero) {
  for (const NumberCase& row : kNumbers) {
    openWith(Settings{});
    enter(row.id, u"");
    EXPECT_EQ(view().text(row.id), u"0") << row.id;
    EXPECT_EQ(isRed(row.id), row.lowest > 0) << row.id;
  }
}

struct TimeCase {
  int minutes;
  int seconds;
  uint32_t& (*field)(Settings&);
};
constexpr TimeCase kTimes[] = {
    {241, 242, [](Settings& s) -> uint32_t& { return s.duration; }},
    {401, 402, [](Settings& s) -> uint32_t& { return s.prompt1.advance; }},
    {421, 422, [](Settings& s) -> uint32_t& { return s.prompt2.advance; }},
};

TEST_F(FieldCheckTest, MinutesAndSecondsMakeOneField) {
  for (const TimeCase& row : kTimes) {
    openWith(Settings{});
    enter(row.minutes, u"999");
    enter(row.seconds, u"59");
    Settings expected;
    row.field(expected) = 999 * 60 + 59;
    expectApplied(expected, row.minutes);
    EXPECT_FALSE(isPending(row.seconds));
  }
}

TEST_F(FieldCheckTest, TheBoxOfAPairThatIsWrongTurnsRed) {
  for (const TimeCase& row : kTimes) {
    openWith(Settings{});
    enter(row.minutes, u"1000");
    expectRefused(row.minutes, row.minutes, u"请输入有效数值（0–999）。");
    EXPECT_FALSE(isRed(row.seconds));
    openWith(Settings{});
    enter(row.seconds, u"70");
    expectRefused(row.seconds, row.seconds, u"请输入有效数值（0–59）。");
    EXPECT_FALSE(isRed(row.minutes));
  }
}

TEST_F(FieldCheckTest, OfTwoWrongBoxesOfAPairTheSecondIsNamed) {
  for (const TimeCase& row : kTimes) {
    openWith(Settings{});
    view().type(row.minutes, u"1000");
    enter(row.seconds, u"60");
    EXPECT_EQ(status(), std::u16string(u"请输入有效数值（0–59）。") + kNotApplied);
    EXPECT_TRUE(isRed(row.seconds));
  }
}

TEST_F(FieldCheckTest, ACorrectedPairLosesItsRed) {
  for (const TimeCase& row : kTimes) {
    openWith(Settings{});
    enter(row.seconds, u"70");
    view().texts[row.seconds] = u"7";  // typing would clear the mark by itself
    enter(row.minutes, u"3");
    EXPECT_EQ(status(), kApplied);
    EXPECT_FALSE(isRed(row.seconds));
  }
}

constexpr struct {
  int id;
  uint32_t& (*field)(Settings&);
} kColours[] = {
    {256, [](Settings& s) -> uint32_t& { return s.foreground; }},
    {257, [](Settings& s) -> uint32_t& { return s.background; }},
    {258, [](Settings& s) -> uint32_t& { return s.alert; }},
};

TEST_F(FieldCheckTest, EveryColourBoxTakesAColour) {
  for (const auto& row : kColours) {
    openWith(Settings{});
    enter(row.id, u"#12abEF");
    Settings expected;
    row.field(expected) = 0x12ABEF;
    expectApplied(expected, row.id);
    EXPECT_EQ(view().text(row.id), u"#12abEF");  // as it was typed
  }
}

TEST_F(FieldCheckTest, EveryColourBoxRefusesTheRest) {
  for (const auto& row : kColours) {
    for (const std::u16string& input :
         {std::u16string(), std::u16string(u"#12345"), std::u16string(u"#GGGGGG"),
          std::u16string(u"red"), std::u16string(32'000, u'A')}) {
      openWith(Settings{});
      enter(row.id, input);
      expectRefused(row.id, row.id, u"颜色请输入 #RRGGBB 格式。");
    }
  }
}

TEST_F(FieldCheckTest, AColourStaysRedUntilItIsOne) {
  enter(kAlertBox, u"#12345");
  EXPECT_TRUE(isRed(kAlertBox));
  applyPending(app, true);
  EXPECT_TRUE(isRed(kAlertBox));
  enter(kAlertBox, u"#123456");
  EXPECT_FALSE(isRed(kAlertBox));
  EXPECT_EQ(app.settings.alert, 0x123456u);
}

TEST_F(FieldCheckTest, TheShapeIsItsRow) {
  for (const int row : {0, 2, 1}) {
    view().select(kShapeCombo, row);
    EXPECT_EQ(app.settings.shape, static_cast<uint32_t>(row));
    EXPECT_EQ(status(), kApplied);
  }
  view().select(kShapeCombo, 9);
  EXPECT_EQ(app.settings.shape, 2u);
  view().select(kShapeCombo, -1);
  EXPECT_EQ(app.settings.shape, 0u);
}

TEST_F(FieldCheckTest, TheWeightGoesByItsRow) {
  const uint32_t weights[] = {300, 400, 700, 900};
  for (const int row : {0, 1, 2, 3}) {
    view().select(kFontWeightCombo, row);
    EXPECT_EQ(app.settings.fontWeight, weights[row]);
    EXPECT_EQ(status(), kApplied);
  }
  view().select(kFontWeightCombo, 4);
  EXPECT_EQ(app.settings.fontWeight, 900u);
  view().select(kFontWeightCombo, -1);
  EXPECT_EQ(app.settings.fontWeight, 300u);
}

TEST_F(FieldCheckTest, AnyFontNameGoesButNone) {
  enter(kFontNameBox, u"\"宋体\" 1");
  EXPECT_EQ(app.settings.fontName, u"\"宋体\" 1");
  EXPECT_EQ(saved().fontName, u"\"宋体\" 1");
  enter(kFontNameBox, u"");
  EXPECT_EQ(status(), std::u16string(u"请输入字体名称。") + kNotApplied);
  EXPECT_TRUE(isRed(kFontNameBox));
  EXPECT_EQ(app.settings.fontName, u"\"宋体\" 1");
}

struct PathCase {
  int id;
  const char16_t* fits;
  const char16_t* isOther;  // exists, but is of the wrong kind
  const char16_t* error;
  std::u16string& (*field)(Settings&);
};
constexpr PathCase kPaths[] = {
    {211, u"C:\\decks", u"C:\\decks\\a.wav", u"文件夹不存在或无法访问。",
     [](Settings& s) -> std::u16string& { return s.pptFolder; }},
    {224, u"C:\\decks\\a.wav", u"C:\\decks", u"文件不存在或无法访问。",
     [](Settings& s) -> std::u16string& { return s.switchDeck; }},
    {252, u"C:\\decks\\a.wav", u"C:\\decks", u"文件不存在或无法访问。",
     [](Settings& s) -> std::u16string& { return s.soundFile; }},
    {406, u"C:\\decks\\a.wav", u"C:\\decks", u"提示音文件不存在或无法访问。",
     [](Settings& s) -> std::u16string& { return s.prompt1.soundFile; }},
    {426, u"C:\\decks\\a.wav", u"C:\\decks", u"提示音文件不存在或无法访问。",
     [](Settings& s) -> std::u16string& { return s.prompt2.soundFile; }},
};

TEST_F(FieldCheckTest, EveryPathBoxTakesWhatStandsThereOrNothing) {
  files().putFile(u"C:\\decks\\a.wav", "");
  for (const PathCase& row : kPaths) {
    openWith(Settings{});
    enter(row.id, row.fits);
    Settings expected;
    row.field(expected) = row.fits;
    expectApplied(expected, row.id);
    enter(row.id, u"");
    expectApplied(Settings{}, row.id);
  }
}

TEST_F(FieldCheckTest, EveryPathBoxRefusesWhatDoesNot) {
  files().putFile(u"C:\\decks\\a.wav", "");
  for (const PathCase& row : kPaths) {
    for (const std::u16string& input :
         {std::u16string(row.isOther), std::u16string(u"C:\\none"),
          u"\"" + std::u16string(row.fits) + u"\"", u"C:\\" + std::u16string(32'000, u'x')}) {
      openWith(Settings{});
      enter(row.id, input);
      expectRefused(row.id, row.id, row.error);
    }
  }
}

TEST_F(FieldCheckTest, APathThatCanNotBeAskedForIsRefused) {
  files().putFile(u"C:\\decks\\a.wav", "");
  files().denyAccess(u"C:\\decks\\a.wav");
  enter(kSwitchDeckBox, u"C:\\decks\\a.wav");
  expectRefused(kSwitchDeckBox, kSwitchDeckBox, u"文件不存在或无法访问。");
}

TEST_F(FieldCheckTest, ThePortGoesFrom1024To65535) {
  for (const auto& [text, isValid] : std::map<std::u16string, bool>{
           {u"1023", false}, {u"1024", true}, {u"65535", true}, {u"65536", false}, {u"", false}}) {
    openWith(Settings{});
    view().type(kPortBox, text);
    view().click(kApplyPortButton);
    EXPECT_EQ(isRed(kPortBox), !isValid);
    EXPECT_EQ(status(),
              isValid ? kApplied : std::u16string(u"请输入有效数值（1024–65535）。") + kNotApplied);
    if (isValid) {
      EXPECT_EQ(decimal(saved().remotePort), text);
    }
  }
}

TEST_F(FieldCheckTest, TheZeroThatFillsAnEmptyBoxBooksNoEdit) {
  view().texts[kResetDelayBox] = u"";
  Settings candidate;
  candidate.resetDelay = 9;
  EXPECT_TRUE(takeField(app, *findField(kResetDelayBox), candidate).valid);
  EXPECT_EQ(candidate.resetDelay, 0u);
  EXPECT_EQ(view().text(kResetDelayBox), u"0");
  EXPECT_TRUE(app.form.pendingEdits.empty());
}

}  // namespace
}  // namespace mrl
