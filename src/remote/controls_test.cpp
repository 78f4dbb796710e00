#include "remote/controls.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "core/app_fixture.h"

namespace mrl {
namespace {

constexpr char16_t kUnfinishedInput[] = u"电脑有尚未完成的输入，请先修正或完成输入。";
constexpr char16_t kMalformed[] = u"设置格式无效。";
constexpr char16_t kStale[] = u"电脑设置已更新。遥控端草稿已保留，请重新加载后确认。";
constexpr char16_t kIncomplete[] = u"设置字段不完整。";
constexpr char16_t kNoBoolean[] = u"开关字段无效。";
constexpr char16_t kUnknownField[] = u"请求包含不支持的字段，未修改任何设置。";
constexpr char16_t kConflict[] = u"全屏黑屏不能与退出放映或播放指定文稿同时开启。";

const std::string kDefaultValues =
    R"({"duration":900,"down":true,"perSlide":false,"hideNoDocument":false,"hideZero":false,)"
    R"("hideExcluded":false,"resetDelay":0,"exitShow":false,"black":false,"blink":true,)"
    R"("blinkSeconds":0,"sound":false,"soundSeconds":0,"switchPpt":false,"foreground":16448767,)"
    R"("background":33023,"alert":12597547,"opacity":80,"transparent":false,"shape":1,)"
    R"("fontWeight":700,"blinkOn":500,"blinkOff":500,"machineTime":false,)"
    R"("prompt1.enabled":false,"prompt1.advance":300,"prompt1.blinkWindow":true,)"
    R"("prompt1.blinkBackground":true,"prompt1.sound":false,"prompt1.blinkSeconds":10,)"
    R"("prompt1.soundSeconds":0,"prompt2.enabled":true,"prompt2.advance":30,)"
    R"("prompt2.blinkWindow":true,"prompt2.blinkBackground":true,"prompt2.sound":false,)"
    R"("prompt2.blinkSeconds":0,"prompt2.soundSeconds":0})";

class ControlsTest : public AppFixture {
 protected:
  void SetUp() override {
    startWith(Settings{});
    app.lastError.clear();
  }

  std::string bytesOnDisk() { return files().bytesOf(kSettingsPath); }

  static std::string textOf(const ControlField& field) {
    if (const auto* const flag = std::get_if<bool*>(&field.target)) return **flag ? "1" : "0";
    return std::to_string(*std::get<uint32_t*>(field.target));
  }
  /// The complete form with the current values, except that `name` is set to `value`.
  std::string formWith(const std::string& name = "", const std::string& value = "") {
    Settings copy = app.settings;
    std::string form = "revision=" + controlsRevision(app.settings);
    for (const ControlField& field : controlFields(copy)) {
      form += '&' + field.name + '=' + (field.name == name ? value : textOf(field));
    }
    return form;
  }
  void expectAccepted(const std::string& form) {
    std::u16string error;
    EXPECT_TRUE(applyControlsForm(app, form, error)) << form << utf8From(error);
    EXPECT_EQ(error, u"");
    EXPECT_EQ(saved(), app.settings);
  }
  /// Expects a refusal that changes nothing: settings, file, clock, last error.
  void expectRefused(const std::string& form, const std::u16string& reason) {
    const Settings record = app.settings;
    const std::string bytes = bytesOnDisk();
    clockWindow.calls.clear();
    std::u16string error;
    EXPECT_FALSE(applyControlsForm(app, form, error)) << form;
    EXPECT_EQ(utf8From(error), utf8From(reason));
    EXPECT_EQ(app.settings, record);
    EXPECT_EQ(bytesOnDisk(), bytes);
    EXPECT_TRUE(clockWindow.calls.empty());
    EXPECT_EQ(app.lastError, u"");
  }
};

TEST_F(ControlsTest, TheValuesStandInTheOrderOfTheTable) {
  EXPECT_EQ(controlsValuesJson(Settings{}), kDefaultValues);
}

TEST_F(ControlsTest, ThereAre38Rows) {
  Settings settings;
  EXPECT_EQ(controlFields(settings).size(), 38u);
}

TEST_F(ControlsTest, TheSnapshotIsTheRevisionAndTheValues) {
  EXPECT_EQ(controlsSnapshotJson(app), "{\"revision\":\"" + controlsRevision(app.settings) +
                                           "\",\"values\":" + kDefaultValues + '}');
}

TEST_F(ControlsTest, TheRevisionIs16LowerCaseHexadecimalDigits) {
  const std::string revision = controlsRevision(Settings{});
  EXPECT_EQ(revision.size(), 16u);
  EXPECT_EQ(revision.find_first_not_of("0123456789abcdef"), std::string::npos);
}

TEST_F(ControlsTest, TheRevisionIsTheHashOfTheValuesBytes) {
  // Computed independently: 64-bit FNV-1a over the text of the values.
  Settings settings;
  EXPECT_EQ(controlsRevision(settings), "35d0fa1fa1184d75");
  settings.duration = 12;
  EXPECT_EQ(controlsRevision(settings), "007e6decb27cfe3d") << "zeros in front stay";
}

TEST_F(ControlsTest, AChangeThatIsUndoneBringsTheOldRevisionBack) {
  Settings settings;
  const std::string before = controlsRevision(settings);
  settings.opacity = 50;
  EXPECT_NE(controlsRevision(settings), before);
  settings.opacity = 80;
  EXPECT_EQ(controlsRevision(settings), before);
}

TEST_F(ControlsTest, EveryRowEntersTheRevision) {
  Settings settings;
  const std::string before = controlsRevision(settings);
  for (const ControlField& field : controlFields(settings)) {
    const auto flip = [](auto* value) { *value = !*value; };
    std::visit(flip, field.target);
    EXPECT_NE(controlsRevision(settings), before) << field.name;
    settings = Settings{};
  }
}

TEST_F(ControlsTest, WhatIsOutsideTheTableDoesNotEnterTheRevision) {
  Settings settings;
  const std::string before = controlsRevision(settings);
  settings.autoMode = false;
  settings.windowX = 1;
  settings.pptFolder = u"C:\\talks";
  settings.skipList = {u"C:\\talks\\a.pptx"};
  settings.fontName = u"Times";
  settings.remotePort = 1024;
  EXPECT_EQ(controlsRevision(settings), before);
}

TEST_F(ControlsTest, TheSnapshotsOwnValuesCanBePostedBackAndAreSaved) {
  const std::string revision = controlsRevision(app.settings);
  files().remove(kSettingsPath);
  expectAccepted(formWith());
  EXPECT_EQ(controlsRevision(app.settings), revision);
}

TEST_F(ControlsTest, EveryNumberPassesAtItsLimitsAndFailsBeyondThem) {
  Settings rows;
  for (const ControlField& field : controlFields(rows)) {
    if (!std::holds_alternative<uint32_t*>(field.target)) continue;
    const std::u16string reason = u"数值超出范围：" + utf16From(field.name);
    for (const int32_t good : {field.minimum, field.maximum}) {
      expectAccepted(formWith(field.name, std::to_string(good)));
    }
    for (const int32_t bad : {field.minimum - 1, field.maximum + 1}) {
      expectRefused(formWith(field.name, std::to_string(bad)), reason);
    }
  }
}

struct Limits {
  const char* name;
  int32_t minimum;
  int32_t maximum;
};

TEST_F(ControlsTest, TheLimitsOfTheNumbers) {
  const Limits expected[] = {{"duration", 0, 59999},
                             {"resetDelay", 0, 3600},
                             {"blinkSeconds", 0, 3600},
                             {"soundSeconds", 0, 3600},
                             {"foreground", 0, 16777215},
                             {"background", 0, 16777215},
                             {"alert", 0, 16777215},
                             {"opacity", 10, 100},
                             {"shape", 0, 2},
                             {"fontWeight", 100, 999},
                             {"blinkOn", 50, 10000},
                             {"blinkOff", 50, 10000},
                             {"prompt1.advance", 0, 59999},
                             {"prompt1.blinkSeconds", 0, 3600},
                             {"prompt1.soundSeconds", 0, 3600},
                             {"prompt2.advance", 0, 59999},
                             {"prompt2.blinkSeconds", 0, 3600},
                             {"prompt2.soundSeconds", 0, 3600}};
  Settings settings;
  size_t next = 0;
  for (const ControlField& field : controlFields(settings)) {
    if (!std::holds_alternative<uint32_t*>(field.target)) continue;
    ASSERT_LT(next, std::size(expected));
    EXPECT_EQ(field.name, expected[next].name);
    EXPECT_EQ(field.minimum, expected[next].minimum) << field.name;
    EXPECT_EQ(field.maximum, expected[next].maximum) << field.name;
    ++next;
  }
  EXPECT_EQ(next, std::size(expected));
}

TEST_F(ControlsTest, EveryBooleanIsExactlyZeroOrOne) {
  Settings rows;
  for (const ControlField& field : controlFields(rows)) {
    if (!std::holds_alternative<bool*>(field.target)) continue;
    if (field.name == "black" || field.name == "exitShow" || field.name == "switchPpt") continue;
    expectAccepted(formWith(field.name, "1"));
    expectAccepted(formWith(field.name, "0"));
    for (const char* bad : {"", "2", "true", "01", " 1", "1 "}) {
      expectRefused(formWith(field.name, bad), kNoBoolean);
    }
  }
}

TEST_F(ControlsTest, ANumberIsAnOptionalMinusAndDigitsAndNothingElse) {
  for (const char* bad : {"", "-", "+7", "7 ", " 7", "7.0", "1e3", "0x10", "4294967297",
                          "99999999999999999999", "-2147483649", "七"}) {
    expectRefused(formWith("duration", bad), u"数值超出范围：duration");
  }
}

TEST_F(ControlsTest, LeadingZerosAndMinusZeroPass) {
  expectAccepted(formWith("duration", "007"));
  EXPECT_EQ(app.settings.duration, 7u);
  expectAccepted(formWith("duration", "-0"));
  EXPECT_EQ(app.settings.duration, 0u);
}

TEST_F(ControlsTest, UnfinishedInputOfTheDesktopIsNeverOverwritten) {
  app.form.isOpen = true;
  app.form.settingsDirty = true;
  expectRefused(formWith("duration", "60"), kUnfinishedInput);
  expectRefused("", kUnfinishedInput);
}

TEST_F(ControlsTest, AMalformedFormIsRefused) {
  const std::string form = formWith();
  for (const std::string& bad : {form + "&&x=1", "&" + form, form + "&lonely", std::string("&"),
                                 "duration&" + form, form + "&duration=900"}) {
    expectRefused(bad, kMalformed);
  }
}

TEST_F(ControlsTest, AMalformedFormIsToldBeforeAStaleOne) {
  expectRefused("revision=0&revision=0", kMalformed);
  expectRefused("lonely", kMalformed);
}

TEST_F(ControlsTest, WhatIsOutsideTheTableIsNotReached) {
  for (const char* name :
       {"autoMode", "windowX", "windowWidth", "pptFolder", "switchDeck", "skipList", "fontName",
        "remotePort", "remoteAutoStart", "prompt3.enabled", "Duration", ""}) {
    expectRefused(formWith() + '&' + name + "=1", kUnknownField);
  }
}

TEST_F(ControlsTest, AFinalAmpersandIsHarmless) { expectAccepted(formWith() + '&'); }

TEST_F(ControlsTest, NothingIsDecoded) {
  expectRefused(formWith("duration", "%37"), u"数值超出范围：duration");
  expectRefused(formWith("shape", "+1"), u"数值超出范围：shape");
}

TEST_F(ControlsTest, AnEmptyFormAndAMissingRevisionAreStale) {
  expectRefused("", kStale);
  expectRefused("duration=900", kStale);
}

TEST_F(ControlsTest, ARevisionInUpperCaseIsStale) {
  std::string form = formWith();
  for (size_t i = 9; i < 25; ++i) form[i] = static_cast<char>(toupper(form[i]));
  form[9] = 'X';
  expectRefused(form, kStale);
}

TEST_F(ControlsTest, AStaleFormWithBadValuesIsToldThatItIsStale) {
  const std::string form = formWith("duration", "x") + "&unknown=1";
  app.settings.opacity = 50;
  expectRefused(form, kStale);
}

TEST_F(ControlsTest, TheSecondOfTwoEditorsIsRefusedUnlessTheFirstChangedNothing) {
  const std::string same = formWith();
  const std::string second = formWith("opacity", "60");
  expectAccepted(same);
  const std::string third = formWith("opacity", "70");
  expectAccepted(second);
  expectRefused(third, kStale);
}

TEST_F(ControlsTest, TheRevisionAloneIsAnIncompleteForm) {
  expectRefused("revision=" + controlsRevision(app.settings), kIncomplete);
}

TEST_F(ControlsTest, EveryRowIsNeeded) {
  Settings rows;
  for (const ControlField& field : controlFields(rows)) {
    std::string form = formWith();
    const size_t at = form.find('&' + field.name + '=');
    form.erase(at, form.find('&', at + 1) - at);
    expectRefused(form, kIncomplete);
  }
}

TEST_F(ControlsTest, TheFirstBadRowInTheTablesOrderDecidesTheMessage) {
  expectRefused(formWith("down", "x") + "&extra=1", kNoBoolean);
  std::string form = formWith("opacity", "101");
  form.replace(form.find("&shape=1"), 8, "&shape=3");
  expectRefused(form, u"数值超出范围：opacity");
}

TEST_F(ControlsTest, AnUnknownFieldIsRefusedBeforeTheConflict) {
  std::string form = formWith("black", "1");
  form.replace(form.find("&exitShow=0"), 11, "&exitShow=1");
  expectRefused(form + "&fontName=x", kUnknownField);
  expectRefused(form, kConflict);
}

TEST_F(ControlsTest, BlackGoesAloneAndExitAndSwitchGoTogether) {
  expectAccepted(formWith("black", "1"));
  expectRefused(formWith("exitShow", "1"), kConflict);
  expectRefused(formWith("switchPpt", "1"), kConflict);
  expectAccepted(formWith("black", "0"));
  expectAccepted(formWith("exitShow", "1"));
  expectAccepted(formWith("switchPpt", "1"));
  expectRefused(formWith("black", "1"), kConflict);
}

TEST_F(ControlsTest, AFailedSaveTellsItsReasonAndChangesNothing) {
  files().failing.insert(FilesFake::Operation::Replace);
  expectRefused(formWith("opacity", "60"), u"Atomic configuration replacement failed");
}

TEST_F(ControlsTest, AFormReplacesARefusedFile) {
  app.settingsWritable = false;
  files().putFile(kSettingsPath, "something else");
  expectAccepted(formWith("duration", "60"));
  EXPECT_EQ(saved().duration, 60u);
}

TEST_F(ControlsTest, TheClocksShapeIsMadeAnewAndTheHideRulesApplyAtOnce) {
  clockWindow.calls.clear();
  expectAccepted(formWith("hideNoDocument", "1"));
  EXPECT_EQ(clockWindow.calls, (std::vector<std::string>{"dropRegion", "hide"}));
  EXPECT_TRUE(app.hiddenByRule);
}

TEST_F(ControlsTest, AClockThatWasHiddenWhileItsLookChangedComesBackWithTheNewOne) {
  expectAccepted(formWith("hideNoDocument", "1"));
  ASSERT_FALSE(clockWindow.visible);
  expectAccepted(formWith("background", "123456"));
  expectAccepted(formWith("hideNoDocument", "0"));
  clockWindow.paintIfDue();
  EXPECT_TRUE(clockWindow.visible);
  EXPECT_EQ(seen.background, 123456u);
}

TEST_F(ControlsTest, AnOpenSettingsWindowIsFilledAnewAndSaysSo) {
  app.form.isOpen = true;
  expectAccepted(formWith("opacity", "60"));
  EXPECT_EQ(app.form.settings, app.settings);
  EXPECT_EQ(app.lastError, u"遥控参数已保存并应用。");
}

TEST_F(ControlsTest, AClosedSettingsWindowSaysNothing) {
  expectAccepted(formWith("opacity", "60"));
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(ControlsTest, ANewDurationDoesNotRestartTheClock) {
  startTimer(app.timer, clock.nowMs());
  clock.advance(5000);
  expectAccepted(formWith("duration", "60"));
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(elapsedMs(), 5000);
}

}  // namespace
}  // namespace mrl
