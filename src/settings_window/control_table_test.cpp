#include "settings_window/control_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrl {
namespace {

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

TEST(ControlTableTest, TheRadioButtonsAreAGroupOfTheirOwn) {
  bool inGroup = false;
  for (const Control& control : allControls()) {
    if (control.startsGroup) inGroup = control.id == kDownRadio;
    if (isInteractive(control.kind)) {
      EXPECT_EQ(inGroup, control.kind == ControlKind::Radio) << control.id;
    }
  }
}

TEST(ControlTableTest, WhatIsReadHasATextAndWhatIsFilledInHasNone) {
  for (const Control& control : allControls()) {
    switch (control.kind) {
      case ControlKind::Section:
      case ControlKind::Button:
      case ControlKind::Check:
      case ControlKind::Radio:
      case ControlKind::Title: EXPECT_NE(*control.text, u'\0') << control.id; break;
      case ControlKind::NumberBox:
      case ControlKind::TextBox:
      case ControlKind::AddressBox:
      case ControlKind::Combo:
      case ControlKind::List:
      case ControlKind::StatusLine:
      case ControlKind::TimerLine: EXPECT_EQ(*control.text, u'\0') << control.id; break;
      default: break;
    }
  }
}

TEST(ControlTableTest, OnlyABoxToTypeInHasACue) {
  for (const Control& control : allControls()) {
    const bool typedIn =
        control.kind == ControlKind::NumberBox || control.kind == ControlKind::TextBox;
    if (!typedIn) {
      EXPECT_EQ(control.cue, nullptr) << control.id;
    }
  }
}

TEST(ControlTableTest, AComboOffersSeveralRowsAndNoneTwice) {
  for (const Control& control : allControls()) {
    if (control.kind != ControlKind::Combo) {
      EXPECT_TRUE(control.rows.empty() || control.kind == ControlKind::Tabs) << control.id;
      continue;
    }
    const std::set<std::u16string_view> rows(control.rows.begin(), control.rows.end());
    EXPECT_GE(rows.size(), 2U) << control.id;
    EXPECT_EQ(rows.size(), control.rows.size()) << control.id;
  }
}

TEST(ControlTableTest, TheSidebarAndTheTabsNameEachPage) {
  EXPECT_EQ(findControl(kTabs)->rows.size(), size_t{kPageCount});
  std::set<std::u16string_view> names;
  for (int page = 0; page < kPageCount; ++page) {
    const Control* section = findControl(kFirstSection + page);
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(section->kind, ControlKind::Section);
    EXPECT_TRUE(names.insert(section->text).second) << page;
  }
}

TEST(ControlTableTest, TheStagesDifferInTheirTitlesAlone) {
  std::vector<const Control*> stages[2];
  for (const Control& control : allControls()) {
    if (control.page == kStagePage) stages[control.place.stage - 1].push_back(&control);
  }
  ASSERT_EQ(stages[0].size(), stages[1].size());
  for (size_t i = 0; i < stages[0].size(); ++i) {
    const Control& first = *stages[0][i];
    const Control& second = *stages[1][i];
    EXPECT_EQ(first.kind, second.kind) << first.id;
    const bool isTitle = first.kind == ControlKind::Title;
    EXPECT_EQ(std::u16string_view(first.text) != second.text, isTitle) << first.id;
    EXPECT_EQ(first.cue ? std::u16string_view(first.cue) : u"",
              second.cue ? std::u16string_view(second.cue) : u"")
        << first.id;
    EXPECT_EQ(first.place.y, second.place.y) << first.id;
    EXPECT_EQ(first.place.height, second.place.height) << first.id;
  }
}

TEST(ControlTableTest, AnUnknownIdIsNoControl) { EXPECT_EQ(findControl(214), nullptr); }

/// The name a screen reader uses: the explicit one, else the control's text, else the label before.
std::u16string spokenOf(const Control& control) {
  for (const SpokenName& spoken : spokenNames()) {
    if (spoken.id == control.id) return spoken.name;
  }
  if (*control.text != u'\0') return control.text;
  const Control& before = *(&control - 1);
  return before.kind == ControlKind::Caption ? before.text : u"";
}

TEST(ControlTableTest, WhateverTakesTheKeyboardIsCalledByAName) {
  for (const Control& control : allControls()) {
    if (!isInteractive(control.kind) || control.kind == ControlKind::Tabs) continue;
    EXPECT_NE(spokenOf(control), u"") << control.id;
  }
}

TEST(ControlTableTest, NoTwoBoxesOfAPageAreCalledTheSame) {
  std::set<std::pair<int, std::u16string>> names;
  for (const Control& control : allControls()) {
    if (!isEditBox(control.kind) && control.kind != ControlKind::Combo) continue;
    EXPECT_TRUE(names.emplace(control.page, spokenOf(control)).second) << control.id;
  }
}

TEST(ControlTableTest, EverySpokenNameIsOfAControlThatTakesTheKeyboard) {
  for (const SpokenName& spoken : spokenNames()) {
    const Control* control = findControl(spoken.id);
    ASSERT_NE(control, nullptr) << spoken.id;
    EXPECT_TRUE(isInteractive(control->kind)) << spoken.id;
  }
}

TEST(ControlTableTest, EveryFieldHasAControlOfItsKind) {
  for (const Field& field : allFields()) {
    if (field.kind == FieldKind::SkipList) continue;
    const Control* control = findControl(field.id);
    ASSERT_NE(control, nullptr) << field.id;
    switch (field.kind) {
      case FieldKind::Flag: EXPECT_EQ(control->kind, ControlKind::Check); break;
      case FieldKind::DownRadio: EXPECT_EQ(control->kind, ControlKind::Radio); break;
      case FieldKind::Number:
      case FieldKind::Time: EXPECT_EQ(control->kind, ControlKind::NumberBox) << field.id; break;
      case FieldKind::ShapeRow:
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
      EXPECT_NE(findField(queuedId(control.id)), nullptr) << control.id;
    }
  }
}

}  // namespace
}  // namespace mrl
