#include "core/menu.h"

#include "core/app_fixture.h"
#include "core/blackout.h"
#include "core/commands.h"
#include "core/expiry.h"

namespace mrl {
namespace {

using Items = std::vector<MenuItem>;

class MenuTest : public AppFixture {
 protected:
  void SetUp() override { startWith(Settings{}); }

  void coverScreen() {
    startShow(kDeck);
    waitForPoll();
    setBlack(app, true);
    ASSERT_TRUE(blackScreen.covering);
  }
  Items clockMenu() { return menuItems(app, clockWindow.handle()); }
};

TEST_F(MenuTest, TheClocksMenuHoldsTheseItemsInThisOrder) {
  const MenuItem separator;
  EXPECT_EQ(clockMenu(), (Items{{100, u"开始/暂停计时 (F2)"},
                                {101, u"重置并停止 (F4)"},
                                separator,
                                {103, u"调整大小（拖动四角）"},
                                {102, u"打开设置"},
                                separator,
                                {113, u"自动模式", true},
                                {112, u"手动模式", false},
                                separator,
                                {107, u"退出 Marlune"}}));
}

TEST_F(MenuTest, InManualModeTheOtherModeIsChecked) {
  runCommand(app, kCommandManualMode);
  EXPECT_EQ(clockMenu()[6], (MenuItem{113, u"自动模式", false}));
  EXPECT_EQ(clockMenu()[7], (MenuItem{112, u"手动模式", true}));
}

TEST_F(MenuTest, InResizeModeItOffersTheWayOut) {
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_EQ(clockMenu()[3], (MenuItem{103, u"完成大小调整"}));
}

TEST_F(MenuTest, ASizeThatCannotBeSavedStillOffersTheWayOut) {
  runCommand(app, kCommandToggleResizeMode);
  files().failing = {FilesFake::Operation::Create};
  runCommand(app, kCommandToggleResizeMode);
  EXPECT_EQ(clockMenu()[3], (MenuItem{103, u"完成大小调整"}));
  EXPECT_EQ(app.lastError, u"Cannot create temporary configuration");
}

TEST_F(MenuTest, ABlackWindowsMenuHoldsOneItem) {
  coverScreen();
  EXPECT_EQ(menuItems(app, BlackScreenFake::kWindow), (Items{{106, u"退出黑屏"}}));
}

TEST_F(MenuTest, TheClocksMenuIsTheSameDuringABlackScreen) {
  coverScreen();
  EXPECT_EQ(clockMenu().size(), 10u);
}

TEST_F(MenuTest, WhatIsChosenIsRun) {
  menu.choice = kCommandToggleTimer;
  showMenu(app, clockWindow.handle(), {10, 20});
  EXPECT_EQ(phase(), TimerPhase::Running);
  EXPECT_EQ(menu.lastOwner, clockWindow.handle());
  EXPECT_EQ(menu.lastPoint, (Point{10, 20}));
  EXPECT_EQ(menu.lastItems, clockMenu());
}

TEST_F(MenuTest, WhenNothingIsChosenNothingRuns) {
  clockWindow.invalidations = 0;
  showMenu(app, clockWindow.handle(), {10, 20});
  EXPECT_EQ(clockWindow.invalidations, 0);
}

TEST_F(MenuTest, ARightClickOpensItWhereTheMessageSays) {
  clockWindow.cursorAt = {500, 600};
  onContextMenu(app, clockWindow.handle(), {10, -20});
  EXPECT_EQ(menu.lastPoint, (Point{10, -20}));
}

TEST_F(MenuTest, OnlyTheFirstNumberTellsTheKeyboardFromAMouseAtTheEdgeOfAScreen) {
  clockWindow.cursorAt = {500, 600};
  onContextMenu(app, clockWindow.handle(), {10, -1});
  EXPECT_EQ(menu.lastPoint, (Point{10, -1}));
  onContextMenu(app, clockWindow.handle(), {-1, 20});
  EXPECT_EQ(menu.lastPoint, (Point{500, 600}));
}

TEST_F(MenuTest, TheKeyboardOpensItAtTheCursor) {
  clockWindow.cursorAt = {500, 600};
  onContextMenu(app, clockWindow.handle(), {-1, -1});
  EXPECT_EQ(menu.lastPoint, (Point{500, 600}));
}

TEST_F(MenuTest, ARightClickOnABlackWindowLeavesTheBlackScreen) {
  coverScreen();
  menu.choice = kCommandToggleBlack;
  onContextMenu(app, BlackScreenFake::kWindow, {10, 20});
  EXPECT_EQ(menu.lastItems.size(), 1u);
  EXPECT_FALSE(blackScreen.covering);
  EXPECT_FALSE(app.blackActive);
}

}  // namespace
}  // namespace mrl
