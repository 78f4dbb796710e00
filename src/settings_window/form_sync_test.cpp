#include "settings_window/form_sync.h"

#include "settings/settings_sample.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

class FormSyncTest : public SettingsFixture {
 protected:
  /// Every field differs from its default and can be shown by its control.
  static Settings record() {
    Settings record = fullRecord();
    record.fontWeight = 900;
    record.duration = record.prompt1.advance = 999 * 60 + 59;
    return record;
  }
};

TEST_F(FormSyncTest, FillingAndReadingBackGivesTheSameRecord) {
  app.settings = record();
  refillForm(app);
  app.form.settings = Settings{.autoMode = app.settings.autoMode,
                               .windowX = app.settings.windowX,
                               .windowY = app.settings.windowY,
                               .skipList = app.settings.skipList};
  syncForm(app);
  EXPECT_EQ(app.form.settings, app.settings);
}

TEST_F(FormSyncTest, FillingBooksNothing) {
  const int before = saves();
  app.settings.duration = 77;
  refillForm(app);
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_FALSE(app.form.settingsDirty);
  EXPECT_FALSE(app.form.controlsSuppressed);
  EXPECT_EQ(saves(), before);
  EXPECT_EQ(view().text(kMinutesBox), u"1");
  EXPECT_EQ(view().text(kSecondsBox), u"17");
}

TEST_F(FormSyncTest, ARefillTakesPlaceOnlyInAnOpenWindow) {
  closeSettingsWindow(app);
  app.settings.duration = 77;
  refillForm(app);
  EXPECT_NE(app.form.settings.duration, 77u);
}

TEST_F(FormSyncTest, ColoursAreWrittenInUpperCase) {
  enter(kAlertBox, u"#abcdef");
  refillForm(app);
  EXPECT_EQ(view().text(kAlertBox), u"#ABCDEF");
}

TEST_F(FormSyncTest, ARefillPaintsTheColourPickersAnew) {
  view().invalidated.clear();
  refillForm(app);
  for (const int id : {267, 268, 269}) {
    EXPECT_EQ(std::ranges::count(view().invalidated, id), 1) << id;
  }
}

TEST_F(FormSyncTest, EveryWeightHasItsRow) {
  for (const auto& [weight, row] :
       std::map<uint32_t, int>{{300, 0}, {400, 1}, {700, 2}, {900, 3}, {500, 2}, {0, 2}}) {
    app.settings.fontWeight = weight;
    refillForm(app);
    EXPECT_EQ(view().row(kFontWeightCombo), row) << weight;
  }
}

TEST_F(FormSyncTest, TheModeBoxShowsTheMode) {
  for (const bool automatic : {false, true}) {
    app.settings.autoMode = automatic;
    refillForm(app);
    EXPECT_EQ(view().row(kModeCombo), automatic ? 0 : 1);
  }
}

TEST_F(FormSyncTest, ABoxThatCanNotBeReadKeepsThePresentValue) {
  const Settings before = record();
  app.settings = before;
  refillForm(app);
  for (const Field& field : allFields()) {
    if (field.kind == FieldKind::Number || field.kind == FieldKind::Time ||
        field.kind == FieldKind::Colour) {
      view().texts[field.id] = u"x";
    }
    if (field.kind == FieldKind::Time) view().texts[field.secondsId] = u"";
  }
  syncForm(app);
  EXPECT_EQ(app.form.settings, before);
}

TEST_F(FormSyncTest, TheFormTakesNumbersOfAnyRangeButHoldsTimesWithinTheirs) {
  view().texts[kWidthBox] = u"99999";
  view().texts[kMinutesBox] = u"5000";
  view().texts[kSecondsBox] = u"300";
  syncForm(app);
  EXPECT_EQ(app.form.settings.windowWidth, 99999u);
  EXPECT_EQ(app.form.settings.duration, 999u * 60 + 59);
  EXPECT_FALSE(app.form.settingsDirty);
}

TEST_F(FormSyncTest, AComboWithoutARowCountsAsItsFirst) {
  view().selected.clear();
  syncForm(app);
  EXPECT_EQ(app.form.settings.shape, 0u);
  EXPECT_EQ(app.form.settings.fontWeight, 300u);
}

struct EnableCase {
  std::vector<int> ids;
  void (*turnOff)(Settings&);
};

TEST_F(FormSyncTest, ControlsThatHaveNothingToSayAreGrey) {
  Settings all;
  all.sound = all.switchPpt = all.blink = true;
  all.prompt1.enabled = all.prompt1.sound = all.prompt2.enabled = all.prompt2.sound = true;
  const EnableCase cases[] = {
      {{252, 253, 254, 606}, [](Settings& s) { s.sound = false; }},
      {{224, 225}, [](Settings& s) { s.switchPpt = false; }},
      {{248, 605}, [](Settings& s) { s.blink = false; }},
      {{401, 402, 403, 404, 405, 406, 407, 408, 409},
       [](Settings& s) { s.prompt1.enabled = false; }},
      {{406, 407, 409}, [](Settings& s) { s.prompt1.sound = false; }},
      {{421, 422, 423, 424, 425, 426, 427, 428, 429},
       [](Settings& s) { s.prompt2.enabled = false; }},
      {{426, 427, 429}, [](Settings& s) { s.prompt2.sound = false; }},
  };
  const std::set<int> always = {272, 274, 215, 275};  // the service is stopped, no file is selected
  for (const EnableCase& row : cases) {
    app.settings = all;
    refillForm(app);
    EXPECT_EQ(view().disabled, always);
    row.turnOff(app.settings);
    refillForm(app);
    std::set<int> expected = always;
    expected.insert(row.ids.begin(), row.ids.end());
    EXPECT_EQ(view().disabled, expected);
  }
}

TEST_F(FormSyncTest, BlackBlinksToo) {
  app.settings.blink = false;
  app.settings.black = true;
  refillForm(app);
  EXPECT_TRUE(isEnabled(kBlinkSecondsBox));
}

TEST_F(FormSyncTest, FileButtonsNeedAFileAndTheCopyARunningService) {
  app.form.filePaths = {kDeck};
  view().setRow(kFileList, 0);
  app.remote.running = true;
  refreshEnableStates(app);
  for (const int id : {274, 215, 275, 272}) EXPECT_TRUE(isEnabled(id)) << id;
  EXPECT_EQ(view().invalidated.back(), kPreviewHost);
}

TEST_F(FormSyncTest, EnablingFollowsTheFormBeforeItApplies) {
  app.settingsWritable = false;
  EXPECT_FALSE(isEnabled(kSoundFileBox));
  view().click(kSoundCheck);
  EXPECT_TRUE(isEnabled(kSoundFileBox));
}

}  // namespace
}  // namespace mrl
