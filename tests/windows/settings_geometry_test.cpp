// Where the controls of the real settings window stand, at the resolution of the desktop that the
// test runs on, and what the pages look like on the screen.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "settings_window/control_ids.h"
#include "settings_window/layout.h"
#include "windows/picture.h"
#include "windows/settings_screen.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsGeometryTest : public SettingsScreen {
 protected:
  /// What the system makes of the height that a control was given.
  int heightOf(const Control* row, int given, int now) const {
    // Only an open combo shows its list, which was counted; a list shows no part of a row.
    if (row && row->kind == ControlKind::Combo) return std::clamp(now, scaled(32), scaled(40));
    if (row && row->kind == ControlKind::List) return given - given % scaled(54);
    return given;
  }
  void expectPlaces(const std::vector<Placement>& placements) {
    for (const auto& [id, given] : placements) {
      const Rect now = id == kContentPane ? placeInParent(pane()) : rect(id);
      Rect expected = given;
      expected.bottom = given.top + heightOf(findControl(id), given.height(), now.height());
      EXPECT_EQ(now, expected) << id << " on page " << page();
    }
  }
  /// All of the present page stands where the layout says, scrolled by `scroll`.
  void expectLaidOut(int scroll) {
    ASSERT_EQ(dpi(), static_cast<int>(GetDpiForSystem()));
    const PageLayout layout = layOut(clientSize(), dpi(), page(), scroll);
    ASSERT_EQ(layout.scroll, scroll);
    expectPlaces(layout.frame);
    expectPlaces(layout.page);
  }
  int endOfPage() const {
    const PageLayout layout = layOut(clientSize(), dpi(), page(), 0);
    return std::max(layout.extent - layout.paneHeight, 0);
  }
  void expectEveryPageLaidOut() {
    for (int index = 0; index < kPageCount; ++index) {
      ASSERT_TRUE(openPage(index));
      expectLaidOut(0);
      ask(pane(), WM_VSCROLL, SB_BOTTOM);
      expectLaidOut(endOfPage());
    }
  }
  std::wstring shotName(const std::wstring& what) const {
    return what + L"-" + std::to_wstring(dpi()) + L".png";
  }
};

TEST_F(SettingsGeometryTest, EveryPageStandsAsLaidOutAtItsTopAndAtItsEnd) {
  ASSERT_NO_FATAL_FAILURE(open());
  expectEveryPageLaidOut();
  ASSERT_TRUE(openPage(1));
  EXPECT_GT(endOfPage(), 0) << "a page that does not scroll would prove nothing";
}

TEST_F(SettingsGeometryTest, EveryPageStandsAsLaidOutInAWindowOfTheSmallestSize) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(900), scaled(620)});
  expectEveryPageLaidOut();
}

TEST_F(SettingsGeometryTest, EveryPageStandsAsLaidOutInAWideWindow) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(1180), scaled(700)});
  expectEveryPageLaidOut();
}

TEST_F(SettingsGeometryTest, AWiderWindowPutsTheStagesSideBySideAndEndsTheScrolling) {
  ASSERT_NO_FATAL_FAILURE(open());
  resize({scaled(900), scaled(620)});
  ASSERT_TRUE(openPage(2));
  EXPECT_EQ(rect(kFirstStageTitle).left, rect(kSecondStageTitle).left);
  ask(pane(), WM_VSCROLL, SB_BOTTOM);
  ASSERT_GT(scrollPosition(), scaled(200));
  resize({scaled(1040), scaled(620)});
  EXPECT_EQ(rect(kFirstStageTitle).top, rect(kSecondStageTitle).top);
  EXPECT_EQ(scrollPosition(), endOfPage());
  expectLaidOut(endOfPage());
}

TEST_F(SettingsGeometryTest, AnotherPageBeginsAtItsTop) {
  ASSERT_NO_FATAL_FAILURE(open());
  ask(pane(), WM_VSCROLL, SB_BOTTOM);
  ASSERT_GT(scrollPosition(), 0);
  ASSERT_TRUE(openPage(1));
  expectLaidOut(0);
}

TEST_F(SettingsGeometryTest, EveryPageLooksLikeNoOtherOnTheScreen) {
  ASSERT_NO_FATAL_FAILURE(open());
  std::vector<Picture> pictures;
  for (int index = 0; index < kPageCount; ++index) {
    ASSERT_TRUE(openPage(index));
    const Picture picture = settledShot();
    EXPECT_TRUE(savePng(picture, shotName(L"page-" + std::to_wstring(index))));
    const std::set<uint32_t> colours(picture.pixels.begin(), picture.pixels.end());
    EXPECT_GT(colours.size(), 50u) << "texts and shapes have soft edges";
    EXPECT_EQ(std::ranges::count(pictures, picture), 0) << index;
    pictures.push_back(picture);
  }
}

}  // namespace
}  // namespace mrl
