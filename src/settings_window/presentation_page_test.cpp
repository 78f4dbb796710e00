#include "settings_window/presentation_page.h"

#include "remote/state.h"
#include "settings_window/commands.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

using FileRows = std::vector<std::u16string>;

constexpr char16_t kChoose[] = u"请先选择演示文稿。";

class PresentationPageTest : public SettingsFixture {
 protected:
  void SetUp() override {
    for (const char16_t* name : {u"a.pptx", u"b.ppt", u"c.dps"}) {
      files().putFile(u"C:\\decks\\" + std::u16string(name), "");
    }
    Settings settings;
    settings.pptFolder = u"C:\\decks";
    settings.skipList = {u"C:\\decks\\b.ppt"};
    openWith(settings);
  }
  FileRows rows() { return view().lists[kFileList]; }
};

TEST_F(PresentationPageTest, TheListShowsTheFolderAndWhatIsExcluded) {
  EXPECT_EQ(rows(), (FileRows{u"[正常计时] a.pptx", u"[跳过计时] b.ppt", u"[正常计时] c.dps"}));
  EXPECT_EQ(view().text(kFileCount), u"共 3 个文件 · 勾选后立即生效");
}

TEST_F(PresentationPageTest, NoFolderAsksForOne) {
  view().type(kFolderBox, u"");
  EXPECT_EQ(view().text(kFileCount), u"请选择 PPT 文件夹");
  EXPECT_EQ(rows(), FileRows{});
}

TEST_F(PresentationPageTest, AFolderWithoutDecksSaysSo) {
  files().putFile(u"C:\\empty\\a.txt", "");
  for (const char16_t* folder : {u"C:\\empty", u"C:\\none"}) {
    view().type(kFolderBox, folder);
    EXPECT_EQ(view().text(kFileCount), u"文件夹不存在、不可访问或没有演示文稿");
    EXPECT_EQ(rows(), FileRows{});
  }
}

TEST_F(PresentationPageTest, TheSelectionAndTheTopFollowTheirFiles) {
  view().setRow(kFileList, 1);
  view().setTopRow(kFileList, 2);
  files().putFile(u"C:\\decks\\aa.pptx", "");
  view().click(kReloadListButton);
  EXPECT_EQ(rows().size(), 4u);
  EXPECT_EQ(rows()[view().row(kFileList)], u"[跳过计时] b.ppt");
  EXPECT_EQ(view().topRow(kFileList), 2);
}

TEST_F(PresentationPageTest, AFileThatIsGoneIsSelectedNoMore) {
  view().setRow(kFileList, 2);
  view().setTopRow(kFileList, 2);
  files().remove(u"C:\\decks\\c.dps");
  view().click(kReloadListButton);
  EXPECT_EQ(view().row(kFileList), -1);
  EXPECT_EQ(view().topRow(kFileList), 1);
  EXPECT_FALSE(isEnabled(kOpenFileButton) && view().row(kFileList) >= 0);
}

TEST_F(PresentationPageTest, AnEmptiedFolderIsNotScrolled) {
  view().setTopRow(kFileList, 2);
  for (const char16_t* name : {u"a.pptx", u"b.ppt", u"c.dps"}) {
    files().remove(u"C:\\decks\\" + std::u16string(name));
  }
  view().click(kReloadListButton);
  EXPECT_GE(view().topRow(kFileList), 0);
}

TEST_F(PresentationPageTest, TheReloadReadsTheFormFirst) {
  files().putFile(u"C:\\more\\x.pptx", "");
  view().texts[kFolderBox] = u"C:\\more";
  view().click(kReloadListButton);
  EXPECT_EQ(rows(), (FileRows{u"[正常计时] x.pptx"}));
}

TEST_F(PresentationPageTest, ASwitchedRowIsSavedAtOnceAndStaysSelected) {
  view().setRow(kFileList, 0);
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_EQ(saved().skipList, (FileRows{u"C:\\decks\\b.ppt", u"C:\\decks\\a.pptx"}));
  EXPECT_EQ(rows()[0], u"[跳过计时] a.pptx");
  EXPECT_EQ(view().row(kFileList), 0);
  EXPECT_TRUE(isEnabled(kOpenFileButton));
  EXPECT_EQ(status(), kApplied);
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_EQ(saved().skipList, (FileRows{u"C:\\decks\\b.ppt"}));
  EXPECT_EQ(rows()[0], u"[正常计时] a.pptx");
}

TEST_F(PresentationPageTest, AFailedSaveKeepsTheChangeInTheFormOnly) {
  view().setRow(kFileList, 0);
  failSaves();
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_TRUE(status().starts_with(u"设置保存失败，此项尚未生效："));
  EXPECT_EQ(app.form.settings.skipList.size(), 2u);
  EXPECT_EQ(app.settings.skipList.size(), 1u);
  EXPECT_EQ(rows()[0], u"[正常计时] a.pptx");
  EXPECT_EQ(view().row(kFileList), 0);
  reloadFileList(app);
  EXPECT_EQ(rows()[0], u"[跳过计时] a.pptx");
}

TEST_F(PresentationPageTest, WithoutASelectionFilesAreAskedFor) {
  for (const int row : {-1, 7}) {
    for (const int id : {214, 274, 215, 275}) {
      view().setRow(kFileList, row);
      setStatus(app, u"");
      onSettingsCommand(app, id, kClicked);
      EXPECT_EQ(status(), kChoose) << id;
    }
  }
  EXPECT_EQ(saved().skipList.size(), 1u);
}

TEST_F(PresentationPageTest, ASelectionEnablesTheFileButtons) {
  EXPECT_FALSE(isEnabled(kOpenFileButton));
  view().select(kFileList, 1);
  for (const int id : {274, 215, 275}) EXPECT_TRUE(isEnabled(id));
  EXPECT_TRUE(app.form.pendingEdits.empty());
}

TEST_F(PresentationPageTest, AFileIsOpenedPlayedAndClosed) {
  view().select(kFileList, 0);
  view().click(kOpenFileButton);
  ASSERT_EQ(program->decks.size(), 1u);
  EXPECT_TRUE(program->shows.empty());
  view().click(kPlayFileButton);
  EXPECT_EQ(program->shows.size(), 1u);
  view().click(kCloseFileButton);
  EXPECT_TRUE(program->decks.empty());
}

TEST_F(PresentationPageTest, ADoubleClickOpensTheFile) {
  view().doubleClick(kFileList, 0);
  EXPECT_EQ(program->decks.size(), 1u);
}

TEST_F(PresentationPageTest, AFileThatCanNotBeOpenedIsTold) {
  view().select(kFileList, 0);
  files().remove(u"C:\\decks\\a.pptx");
  for (const int id : {274, 215, 275}) {
    setStatus(app, u"");
    view().click(id);
    EXPECT_FALSE(status().empty()) << id;
  }
}

TEST_F(PresentationPageTest, ADriveThatFailsIsToldAndEndsNothing) {
  view().select(kFileList, 0);
  files().failing = {FilesFake::Operation::Status};
  setStatus(app, u"");
  view().click(kOpenFileButton);
  EXPECT_FALSE(status().empty());
}

TEST_F(PresentationPageTest, TheShowButtonsDriveTheShow) {
  startShow(kDeck, 3);
  view().click(kNextSlideButton);
  EXPECT_EQ(program->shows.front()->slide, 4);
  view().click(kPreviousSlideButton);
  EXPECT_EQ(program->shows.front()->slide, 3);
  view().click(kBeginShowButton);
  EXPECT_EQ(program->shows.front()->slide, 1);
  view().click(kExitShowButton);
  EXPECT_TRUE(program->shows.empty());
  view().click(kCurrentSlideButton);
  EXPECT_EQ(program->shows.size(), 1u);
}

TEST_F(PresentationPageTest, AShowThatIsNotThereIsTold) {
  for (const int id : {216, 217, 218, 219, 220}) {
    setStatus(app, u"");
    view().click(id);
    EXPECT_FALSE(status().empty()) << id;
  }
}

TEST_F(PresentationPageTest, WithoutAWindowNothingIsListed) {
  closeSettingsWindow(app);
  files().done.clear();
  reloadFileList(app);
  EXPECT_TRUE(files().done.empty());
}

/// Whether the remote's state reports the file as excluded from timing.
bool isSkippedForPhone(App& app, const std::string& name) {
  return buildStateJson(app).find("\"name\":\"" + name + "\",\"skip\":true") != std::string::npos;
}

TEST_F(PresentationPageTest, ASwitchedRowIsSwitchedOnThePhoneToo) {
  view().setRow(kFileList, 0);
  EXPECT_FALSE(isSkippedForPhone(app, "a.pptx"));
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_TRUE(isSkippedForPhone(app, "a.pptx"));
  EXPECT_TRUE(isSkippedForPhone(app, "b.ppt"));
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_FALSE(isSkippedForPhone(app, "a.pptx"));
  failSaves();
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_FALSE(isSkippedForPhone(app, "a.pptx")) << "which was not saved";
}

TEST_F(PresentationPageTest, ASwitchTakesOtherSpellingsOfTheFileAlong) {
  Settings settings = app.settings;
  settings.skipList = {u"C:\\DECKS\\A.pptx", u"C:\\other.pptx", u"c:\\decks\\a.PPTX"};
  openWith(settings);
  view().setRow(kFileList, 0);
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_EQ(saved().skipList, (FileRows{u"C:\\other.pptx"}));
}

TEST_F(PresentationPageTest, AnAppliedFolderIsListedAnew) {
  enter(kFolderBox, u"C:\\late");
  EXPECT_EQ(rows(), FileRows{});
  files().putFile(u"C:\\late\\x.pptx", "");
  applyPending(app, true);
  EXPECT_EQ(rows(), (FileRows{u"[正常计时] x.pptx"}));
  EXPECT_EQ(view().text(kFileCount), u"共 1 个文件 · 勾选后立即生效");
}

TEST_F(PresentationPageTest, TheSwitchedRowIsTheOneThatStaysSelected) {
  for (const bool saveFails : {false, true}) {
    if (saveFails) failSaves();
    for (const int row : {2, 1}) {
      view().setRow(kFileList, row);
      onSettingsCommand(app, kToggleExclusion, kClicked);
      EXPECT_EQ(view().row(kFileList), row);
    }
  }
}

TEST_F(PresentationPageTest, ASwitchedFileThatHasGoneLeavesItsRowToTheNext) {
  view().setRow(kFileList, 0);
  files().remove(u"C:\\decks\\a.pptx");
  onSettingsCommand(app, kToggleExclusion, kClicked);
  EXPECT_EQ(rows(), (FileRows{u"[跳过计时] b.ppt", u"[正常计时] c.dps"}));
  EXPECT_EQ(view().row(kFileList), 0);
  EXPECT_TRUE(isEnabled(kOpenFileButton));
}

TEST(ListWheelTest, AListKeepsTheWheelUntilItIsAtItsEnd) {
  // Twelve rows, of which three and a part are visible.
  const ListWheel middle{.delta = -120, .topRow = 4, .rows = 12, .height = 204, .rowHeight = 54};
  ListWheel wheel = middle;
  EXPECT_FALSE(handsWheelOn(wheel));
  wheel.topRow = 8;
  EXPECT_FALSE(handsWheelOn(wheel));
  wheel.topRow = 9;
  EXPECT_TRUE(handsWheelOn(wheel)) << "at the bottom, downwards";
  wheel.delta = 120;
  EXPECT_FALSE(handsWheelOn(wheel)) << "upwards it can";
  wheel.topRow = 0;
  EXPECT_TRUE(handsWheelOn(wheel)) << "at the top";
  wheel.delta = -120;
  EXPECT_FALSE(handsWheelOn(wheel));
}

TEST(ListWheelTest, WithNothingToScrollThePageTakesIt) {
  EXPECT_TRUE(handsWheelOn({.delta = -120, .rows = 0, .height = 204, .rowHeight = 54}));
  EXPECT_TRUE(handsWheelOn({.delta = -120, .rows = 3, .height = 204, .rowHeight = 54}));
  EXPECT_FALSE(handsWheelOn({.delta = -120, .rows = 2, .height = 20, .rowHeight = 54}))
      << "one row at least counts as seen";
  EXPECT_TRUE(
      handsWheelOn({.isInside = false, .delta = -120, .rows = 90, .height = 204, .rowHeight = 54}))
      << "the cursor is elsewhere";
}

TEST_F(PresentationPageTest, AFileRenamedInItsCaseStaysSelected) {
  view().setRow(kFileList, 2);
  files().remove(u"C:\\decks\\c.dps");
  files().putFile(u"C:\\decks\\C.DPS", "");
  view().click(kReloadListButton);
  EXPECT_EQ(rows()[0], u"[正常计时] C.DPS");
  EXPECT_EQ(view().row(kFileList), 0);
}

}  // namespace
}  // namespace mrl
