// The list of presentations as a user operates it: its switch, its buttons, its folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/wide_win.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsFilesTest : public SettingsHand {
 protected:
  void SetUp() override {
    for (const wchar_t* name : {L"a.pptx", L"b.dps", L"c.txt", L"d.ppt"}) {
      std::ofstream(std::filesystem::path(decks.path() + L"\\" + name)) << "x";
    }
    Settings settings = quiet();
    settings.pptFolder = u16From(decks.path());
    ASSERT_NO_FATAL_FAILURE(open(settings));
    turnTo(4);
    ASSERT_TRUE(hasRows({L"[正常计时] a.pptx", L"[正常计时] b.dps", L"[正常计时] d.ppt"}));
  }
  int listRow() const { return static_cast<int>(ask(control(kFileList), LB_GETCURSEL)); }
  std::wstring rowText(int row) const {
    wchar_t text[300]{};
    ask(control(kFileList), LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    return text;
  }
  bool hasRows(const std::vector<std::wstring>& expected) const {
    return waitUntil([&] {
      std::vector<std::wstring> rows(static_cast<size_t>(ask(control(kFileList), LB_GETCOUNT)));
      for (size_t i = 0; i < rows.size(); ++i) rows[i] = rowText(static_cast<int>(i));
      return rows == expected;
    });
  }
  /// The middle of a row, or of the switch at its end.
  POINT rowPoint(int row, bool onSwitch) const {
    reveal(kFileList);
    RECT list{};
    GetWindowRect(control(kFileList), &list);
    const auto height = static_cast<LONG>(ask(control(kFileList), LB_GETITEMHEIGHT));
    const LONG x = onSwitch ? list.right - scaled(70) : list.left + scaled(60);
    return {x, list.top + height * row + height / 2};
  }
  /// The vertical middle of the first row, `units` of 1/96 inch before its end.
  POINT beforeTheEnd(int units) const {
    POINT point = rowPoint(0, false);
    RECT list{};
    GetWindowRect(control(kFileList), &list);
    point.x = list.right - scaled(units);
    return point;
  }
  bool excludes(size_t count) {
    return waitUntil([&] { return program.settings().skipList.size() == count; });
  }

  const TemporaryFolder decks{L"decks of marlune"};
};

TEST_F(SettingsFilesTest, AClickOnTheSwitchExcludesTheFileAndAnotherTakesItBack) {
  clickMouse(rowPoint(1, true));
  EXPECT_TRUE(excludes(1));
  EXPECT_TRUE(says(kApplied));
  EXPECT_TRUE(hasRows({L"[正常计时] a.pptx", L"[跳过计时] b.dps", L"[正常计时] d.ppt"}));
  EXPECT_EQ(listRow(), 1);
  EXPECT_EQ(focusedId(), kFileList);
  clickMouse(rowPoint(2, true));
  EXPECT_TRUE(excludes(2));
  clickMouse(rowPoint(1, true));
  EXPECT_TRUE(excludes(1));
  EXPECT_TRUE(hasRows({L"[正常计时] a.pptx", L"[正常计时] b.dps", L"[跳过计时] d.ppt"}));
}

TEST_F(SettingsFilesTest, ADoubleClickOnTheSwitchTurnsItOnce) {
  clickMouse(rowPoint(0, true), 2);
  EXPECT_TRUE(excludes(1));
  clickMouse(rowPoint(2, true));
  EXPECT_TRUE(excludes(2)) << "the second click of the first row has long been read";
}

TEST_F(SettingsFilesTest, AClickBesideTheSwitchOnlySelects) {
  clickMouse(rowPoint(2, false));
  EXPECT_TRUE(waitUntil([&] { return listRow() == 2 && isEnabled(kPlayFileButton); }));
  EXPECT_TRUE(program.settings().skipList.empty());
  EXPECT_EQ(status(), L"设置自动生效");
}

TEST_F(SettingsFilesTest, TheSwitchBeginsAHundredAndFortyUnitsBeforeTheEndOfTheRow) {
  clickMouse(beforeTheEnd(145));
  ASSERT_TRUE(waitUntil([&] { return listRow() == 0; }));
  clickMouse(beforeTheEnd(135));
  EXPECT_TRUE(excludes(1));
  EXPECT_TRUE(hasRows({L"[跳过计时] a.pptx", L"[正常计时] b.dps", L"[正常计时] d.ppt"}));
}

TEST_F(SettingsFilesTest, AClickBelowTheRowsExcludesNothing) {
  std::filesystem::remove(decks.path() + L"\\d.ppt");  // leaves part of the list empty
  press(kReloadListButton);
  ASSERT_TRUE(hasRows({L"[正常计时] a.pptx", L"[正常计时] b.dps"}));
  clickMouse(rowPoint(2, true));
  clickMouse(rowPoint(0, true));
  EXPECT_TRUE(hasRows({L"[跳过计时] a.pptx", L"[正常计时] b.dps"}));
  EXPECT_TRUE(excludes(1));
}

TEST_F(SettingsFilesTest, SpaceTurnsTheSwitchOfTheSelectedRow) {
  clickMouse(rowPoint(2, false));
  ASSERT_TRUE(isFocused(kFileList));
  pressKeys(VK_SPACE);
  EXPECT_TRUE(excludes(1));
  EXPECT_TRUE(hasRows({L"[正常计时] a.pptx", L"[正常计时] b.dps", L"[跳过计时] d.ppt"}));
  pressKeys(VK_SPACE);
  EXPECT_TRUE(excludes(0));
}

TEST_F(SettingsFilesTest, ATypedFolderIsListedAtOnceAndSavedWhenItExists) {
  const TemporaryFolder other(L"other decks");
  std::ofstream(std::filesystem::path(other.path() + L"\\new.pps")) << "x";
  retype(kFolderBox, other.path());
  EXPECT_TRUE(hasRows({L"[正常计时] new.pps"}));
  EXPECT_EQ(text(kFileCount), L"共 1 个文件 · 勾选后立即生效");
  EXPECT_TRUE(saved(&Settings::pptFolder, u16From(other.path())));
  retype(kFolderBox, other.path() + L"gone");
  EXPECT_TRUE(reads(kFileCount, L"文件夹不存在、不可访问或没有演示文稿"));
  EXPECT_TRUE(becomesRed(kFolderBox));
  EXPECT_TRUE(hasRows({}));
  retype(kFolderBox, L"");
  EXPECT_TRUE(reads(kFileCount, L"请选择 PPT 文件夹"));
  EXPECT_TRUE(saved(&Settings::pptFolder, u""));
}

TEST_F(SettingsFilesTest, TheListFollowsTheFolderOnItsButton) {
  std::ofstream(std::filesystem::path(decks.path() + L"\\e.pptx")) << "x";
  std::filesystem::remove(decks.path() + L"\\a.pptx");
  press(kReloadListButton);
  EXPECT_TRUE(hasRows({L"[正常计时] b.dps", L"[正常计时] d.ppt", L"[正常计时] e.pptx"}));
  EXPECT_EQ(text(kFileCount), L"共 3 个文件 · 勾选后立即生效");
}

TEST_F(SettingsFilesTest, AFileThatHasGoneCanNotBeOpened) {
  clickMouse(rowPoint(0, false));
  ASSERT_TRUE(waitUntil([&] { return isEnabled(kOpenFileButton); }));
  std::filesystem::remove(decks.path() + L"\\a.pptx");
  press(kOpenFileButton);
  EXPECT_TRUE(says(L"演示文件不存在"));
  press(kCloseFileButton);
  EXPECT_TRUE(says(L"指定文稿没有打开"));
  clickMouse(rowPoint(1, false));
  ASSERT_TRUE(waitUntil([&] { return listRow() == 1; }));
  std::filesystem::remove(decks.path() + L"\\b.dps");
  clickMouse(rowPoint(1, false), 2);
  EXPECT_TRUE(says(L"演示文件不存在")) << "by a double click";
}

TEST_F(SettingsFilesTest, WithoutAShowItsButtonsSayWhy) {
  for (int id = kBeginShowButton; id <= kExitShowButton; ++id) {
    SCOPED_TRACE(id);
    press(id);
    EXPECT_TRUE(says(L"未检测到可控制的 PowerPoint/WPS 窗口"));
    press(kHideExcludedCheck);
    EXPECT_TRUE(says(kApplied));
  }
}

}  // namespace
}  // namespace mrl
