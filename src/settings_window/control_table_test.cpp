#include "settings_window/control_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>
#include <vector>

#include "settings_window/field_table.h"

namespace mrl {
namespace {

std::vector<int> idsOf(int page) {
  std::vector<int> ids;
  for (const Control& control : allControls()) {
    if (control.page == page) ids.push_back(control.id);
  }
  return ids;
}

TEST(ControlTableTest, EachPageHasItsControlsInTheOrderOfTheTabKey) {
  EXPECT_EQ(idsOf(kNoPage), (std::vector{240}));
  EXPECT_EQ(idsOf(kEveryPage),
            (std::vector{500, 501, 502, 503, 504, 277, 278, 279, 280, 226, 201}));
  EXPECT_EQ(idsOf(0),
            (std::vector{600, 601, 241, 602, 242, 603, 203, 243, 244, 205, 245, 604, 282, 209,
                         208, 206, 605, 248, 207, 252, 253, 606, 254, 210, 224, 225, 607, 247}));
  EXPECT_EQ(idsOf(1), (std::vector{610, 651, 255, 611, 223, 612, 227, 228, 229, 652, 653,
                                   613, 256, 267, 614, 257, 268, 615, 258, 269, 616, 259,
                                   260, 617, 261, 618, 262, 619, 263, 620, 264, 265, 266}));
  EXPECT_EQ(idsOf(2),
            (std::vector{630, 400, 631, 401, 402, 403, 404, 405, 406, 407, 632, 408, 409,
                         633, 420, 634, 421, 422, 423, 424, 425, 426, 427, 635, 428, 429}));
  EXPECT_EQ(idsOf(3),
            (std::vector{640, 283, 222, 272, 110, 221, 511, 641, 642, 270, 512, 271, 643}));
  EXPECT_EQ(idsOf(4), (std::vector{650, 655, 656, 211, 212, 273, 281, 213, 246, 274, 215, 275, 216,
                                   217, 218, 219, 220}));
}

TEST(ControlTableTest, TheTabsComeFirstThenSidebarPagesAndFrame) {
  std::vector<int> pages;
  for (const Control& control : allControls()) {
    if (pages.empty() || pages.back() != control.page) pages.push_back(control.page);
  }
  EXPECT_EQ(pages, (std::vector{kNoPage, kEveryPage, 0, 1, 2, 3, 4, kEveryPage}));
}

TEST(ControlTableTest, OnlyAParagraphHasSeveralLines) {
  for (const Control& control : allControls()) {
    if (control.kind == ControlKind::Paragraph) continue;
    EXPECT_EQ(std::u16string_view(control.text).find(u'\n'), std::u16string_view::npos)
        << control.id;
  }
}

TEST(ControlTableTest, NoIdStandsTwice) {
  std::set<int> ids;
  for (const Control& control : allControls()) EXPECT_TRUE(ids.insert(control.id).second);
}

TEST(ControlTableTest, WhatAPersonReadsOrClicksHasAText) {
  for (const Control& control : allControls()) {
    const bool isWrittenLater = control.id == kStatusText || control.id == kExpirySummary ||
                                control.id == kFileCount || control.kind == ControlKind::TimerLine;
    const bool needsText =
        control.kind == ControlKind::Section || control.kind == ControlKind::Button ||
        control.kind == ControlKind::Check || control.kind == ControlKind::Radio ||
        control.kind == ControlKind::Title || control.kind == ControlKind::Caption ||
        control.kind == ControlKind::Paragraph;
    if (needsText && !isWrittenLater) {
      EXPECT_FALSE(std::u16string_view(control.text).empty()) << control.id;
    }
    const bool isCombo = control.kind == ControlKind::Combo;
    EXPECT_EQ(!control.rows.empty(), isCombo || control.kind == ControlKind::Tabs) << control.id;
  }
}

TEST(ControlTableTest, TheRadioButtonsAreAGroupOfTheirOwn) {
  bool inGroup = false;
  for (const Control& control : allControls()) {
    if (control.startsGroup) inGroup = control.id == kDownRadio;
    if (isInteractive(control.kind)) {
      EXPECT_EQ(inGroup, control.kind == ControlKind::Radio) << control.id;
    }
  }
}

TEST(ControlTableTest, BoxesSayWhatBelongsIntoThem) {
  EXPECT_EQ(findControl(kMinutesBox)->cue, std::u16string_view(u"8"));
  EXPECT_EQ(findControl(kSecondsBox)->cue, std::u16string_view(u"0"));
  EXPECT_EQ(findControl(kSoundFileBox)->cue,
            std::u16string_view(u"选择提示音文件，留空使用系统提示音"));
  EXPECT_EQ(findControl(kSwitchDeckBox)->cue, std::u16string_view(u"选择计时结束后播放的演示文稿"));
  EXPECT_EQ(findControl(kFolderBox)->cue, std::u16string_view(u"选择包含 PPT / WPS 文件的文件夹"));
  for (const int base : kStageBases) {
    EXPECT_EQ(findControl(base + kStageSoundFile)->cue, std::u16string_view(u"选择音频文件"));
  }
}

TEST(ControlTableTest, AnUnknownIdIsNoControl) { EXPECT_EQ(findControl(214), nullptr); }

TEST(ControlTableTest, EveryFieldHasAControlOfItsKind) {
  for (const Field& field : allFields()) {
    if (field.kind == FieldKind::SkipList) continue;
    const Control* control = findControl(field.id);
    ASSERT_NE(control, nullptr) << field.id;
    switch (field.kind) {
      case FieldKind::Check: EXPECT_EQ(control->kind, ControlKind::Check); break;
      case FieldKind::DownRadio: EXPECT_EQ(control->kind, ControlKind::Radio); break;
      case FieldKind::Number:
      case FieldKind::Time: EXPECT_EQ(control->kind, ControlKind::NumberBox) << field.id; break;
      case FieldKind::Shape:
      case FieldKind::FontWeight: EXPECT_EQ(control->kind, ControlKind::Combo); break;
      default: EXPECT_EQ(control->kind, ControlKind::TextBox) << field.id;
    }
  }
}

TEST(ControlTableTest, EveryCheckAndBoxOfThePagesEditsAField) {
  for (const Control& control : allControls()) {
    const bool edits = control.kind == ControlKind::Check || control.kind == ControlKind::Radio ||
                       control.kind == ControlKind::NumberBox ||
                       control.kind == ControlKind::TextBox;
    if (edits) {
      EXPECT_NE(findField(bookedId(control.id)), nullptr) << control.id;
    }
  }
}

}  // namespace
}  // namespace mrl
