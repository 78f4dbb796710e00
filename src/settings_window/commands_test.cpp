#include "settings_window/commands.h"

#include "settings_window/fixture.h"

namespace mrl {
namespace {

class SettingsCommandsTest : public SettingsFixture {};

TEST_F(SettingsCommandsTest, TheHeadsButtonsDriveTheTimer) {
  view().click(kToggleButton);
  EXPECT_EQ(phase(), TimerPhase::Running);
  view().click(kToggleButton);
  EXPECT_EQ(phase(), TimerPhase::Paused);
  view().click(kResetButton);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(SettingsCommandsTest, WhatMeansNothingIsLeftToTheSystem) {
  EXPECT_FALSE(onSettingsCommand(app, kMinutesBox, kFocusTaken));
  EXPECT_FALSE(onSettingsCommand(app, kModeCombo, 7));
  EXPECT_FALSE(onSettingsCommand(app, kShapeCombo, kDoubleClicked));
  EXPECT_TRUE(app.form.pendingEdits.empty());
}

TEST_F(SettingsCommandsTest, WithoutAWindowNothingHappens) {
  closeSettingsWindow(app);
  onSettingsCommand(app, kToggleButton, kClicked);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(SettingsCommandsTest, OnlyANumberBoxThatIsLeftEmptyGetsAZero) {
  enter(kSoundFileBox, u"");
  EXPECT_EQ(view().text(kSoundFileBox), u"");
  enter(kResetDelayBox, u"");
  EXPECT_EQ(view().text(kResetDelayBox), u"0");
}

struct PickCase {
  int button;
  int box;
  const char16_t* path;
  std::vector<FileFilter> filters;
};

TEST_F(SettingsCommandsTest, EveryPickerFillsItsBoxWhichBooksTheEdit) {
  files().putFile(u"C:\\decks\\a.wav", "");
  const PickCase cases[] = {
      {212, 211, u"C:\\decks", {}},
      {225, 224, u"C:\\decks\\a.wav", {FileFilter::Presentation}},
      {253, 252, u"C:\\decks\\a.wav", {FileFilter::Audio}},
      {407, 406, u"C:\\decks\\a.wav", {FileFilter::Audio}},
      {427, 426, u"C:\\decks\\a.wav", {FileFilter::Audio}},
  };
  for (const PickCase& row : cases) {
    openWith(Settings{});
    dialogs().filters.clear();
    dialogs().picked = row.path;
    view().click(row.button);
    EXPECT_EQ(dialogs().filters, row.filters);
    EXPECT_EQ(view().text(row.box), row.path);
    EXPECT_EQ(app.form.pendingEdits.at(row.box), clock.nowMs() + kEditDelayMs);
    EXPECT_TRUE(app.form.settingsDirty);
    EXPECT_EQ(status(), kEditing);
    runFor(800);
    EXPECT_EQ(status(), kApplied);
  }
}

TEST_F(SettingsCommandsTest, ACancelledPickerLeavesItsBox) {
  for (const int button : {212, 225, 253, 407, 427}) view().click(button);
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_EQ(app.form.settings, Settings{});
}

TEST_F(SettingsCommandsTest, AWindowClosedUnderItsPickerIsLeftAlone) {
  dialogs().picked = u"C:\\decks";
  dialogs().pickedColour = 0x00AB12;
  dialogs().meanwhile = [this] {
    destroySettingsWindow(app);
    view().written.clear();
  };
  for (const int button : {kPickFolderButton, kPickAlertButton}) {
    openWith(Settings{});
    view().click(button);
    EXPECT_EQ(view().written, std::vector<int>{});
  }
}

TEST_F(SettingsCommandsTest, AFolderThatIsPickedIsListedAtOnce) {
  files().putFile(u"C:\\decks\\a.pptx", "");
  dialogs().picked = u"C:\\decks";
  view().click(kPickFolderButton);
  EXPECT_EQ(view().lists[kFileList].size(), 1u);
}

TEST_F(SettingsCommandsTest, EveryColourPickerStartsAtItsColourAndAppliesItsChoice) {
  const struct {
    int button;
    int box;
    uint32_t& (*field)(Settings&);
  } cases[] = {
      {267, 256, [](Settings& s) -> uint32_t& { return s.foreground; }},
      {268, 257, [](Settings& s) -> uint32_t& { return s.background; }},
      {269, 258, [](Settings& s) -> uint32_t& { return s.alert; }},
  };
  for (const auto& row : cases) {
    openWith(Settings{});
    Settings expected;
    dialogs().pickedColour = 0x00AB12;
    view().click(row.button);
    EXPECT_EQ(dialogs().offeredColours.back(), row.field(expected));
    row.field(expected) = 0x00AB12;
    EXPECT_EQ(view().text(row.box), u"#00AB12");
    EXPECT_EQ(saved(), expected);
    EXPECT_EQ(status(), kApplied);
    EXPECT_EQ(app.form.customColours[0], 0x00AB12u);
  }
}

TEST_F(SettingsCommandsTest, AColourPickerIsPaintedAnewWithEveryKeyInItsBox) {
  view().invalidated.clear();
  view().type(kAlertBox, u"#12");
  EXPECT_EQ(std::ranges::count(view().invalidated, int{kPickAlertButton}), 1);
}

TEST_F(SettingsCommandsTest, ACancelledColourPickerChangesNothing) {
  view().click(kPickAlertButton);
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_EQ(app.settings, Settings{});
}

TEST_F(SettingsCommandsTest, TheDefaultSizeIsTypedInAndApplied) {
  enter(kWidthBox, u"400");
  enter(kHeightBox, u"9");
  ASSERT_TRUE(isRed(kHeightBox));
  view().click(kDefaultSizeButton);
  EXPECT_EQ(saved().windowWidth, 183u);
  EXPECT_EQ(saved().windowHeight, 82u);
  EXPECT_FALSE(isRed(kHeightBox));
  EXPECT_EQ(clockWindow.place.width(), 183);
  EXPECT_EQ(preview().placed.width(), 183);
  EXPECT_EQ(status(), kApplied);
}

}  // namespace
}  // namespace mrl
