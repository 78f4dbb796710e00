#include "settings_window/window_look.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "settings_window/control_look.h"

namespace mrl {
namespace {

constexpr int kUsualDpi = 96;
constexpr Size kClient{1040, 740};

bool holds(const Drawing& drawing, const Shape& shape) {
  return std::ranges::find(drawing, shape) != drawing.end();
}

TEST(WindowLookTest, ThePagesColourIsBehindEverything) {
  EXPECT_EQ(drawWindow(kClient, 0, kUsualDpi).front(), Shape(Area{{0, 0, 1040, 740}, kPageFill}));
}

TEST(WindowLookTest, TheSidebarIsWhiteWithALineAtItsRight) {
  const Drawing drawing = drawWindow(kClient, 0, kUsualDpi);
  EXPECT_TRUE(holds(drawing, Area{{0, 0, 184, 740}, kWhite}));
  EXPECT_TRUE(holds(drawing, Line{{183, 0}, {183, 740}, kHairline, 1}));
}

TEST(WindowLookTest, TheProgramsIconAndNamesHeadTheSidebar) {
  const Drawing drawing = drawWindow(kClient, 0, kUsualDpi);
  EXPECT_TRUE(holds(drawing, ProgramIcon{{20, 26, 56, 62}}));
  EXPECT_TRUE(holds(drawing, Label{u"Marlune", {67, 25, 174, 52}, Face::SectionTitle, kInk}));
  EXPECT_TRUE(holds(drawing, Label{u"演示计时", {68, 53, 174, 74}, Face::Small, kMuted}));
}

TEST(WindowLookTest, HeaderAndFooterAreWhiteEachWithALineToThePage) {
  const Drawing drawing = drawWindow(kClient, 0, kUsualDpi);
  EXPECT_TRUE(holds(drawing, Area{{184, 0, 1040, 68}, kWhite}));
  EXPECT_TRUE(holds(drawing, Line{{184, 68}, {1040, 68}, kHairline, 1}));
  EXPECT_TRUE(holds(drawing, Area{{184, 674, 1040, 740}, kWhite}));
  EXPECT_TRUE(holds(drawing, Line{{184, 674}, {1040, 674}, kHairline, 1}));
}

TEST(WindowLookTest, ModeVersionAndAuthorStandAtTheFootOfTheSidebar) {
  const Drawing drawing = drawWindow(kClient, 0, kUsualDpi);
  EXPECT_TRUE(holds(drawing, Label{u"控制模式", {20, 610, 168, 634}, Face::Small, kMuted}));
  EXPECT_TRUE(holds(drawing, Label{u"Marlune 0.3.15", {20, 686, 176, 708}, Face::Small, kMuted}));
  EXPECT_TRUE(holds(drawing, Label{u"by：Dorvane", {20, 710, 176, 732}, Face::Small, kMuted}));
}

TEST(WindowLookTest, AllIsScaledButTheLinesWidth) {
  const Drawing drawing = drawWindow({2080, 1480}, 0, 192);
  EXPECT_TRUE(holds(drawing, Line{{366, 0}, {366, 1480}, kHairline, 1}));
  EXPECT_TRUE(holds(drawing, Line{{368, 1348}, {2080, 1348}, kHairline, 1}));
  EXPECT_TRUE(holds(drawing, ProgramIcon{{40, 52, 112, 124}}));
  EXPECT_TRUE(holds(drawing, Label{u"by：Dorvane", {40, 1420, 352, 1464}, Face::Small, kMuted}));
  EXPECT_TRUE(holds(drawing, Label{u"计时与动作", {432, 166, 2032, 242}, Face::PageTitle, kInk}));
}

struct HeadRow {
  int page;
  std::u16string title;
  std::u16string subtitle;
};
class PageHeadTest : public testing::TestWithParam<HeadRow> {};

TEST_P(PageHeadTest, HasItsTitleAndSubtitle) {
  const auto& [page, title, subtitle] = GetParam();
  const Drawing drawing = drawWindow(kClient, page, kUsualDpi);
  EXPECT_TRUE(holds(drawing, Label{title, {216, 83, 1016, 121}, Face::PageTitle, kInk}));
  EXPECT_TRUE(holds(drawing, Label{subtitle, {216, 126, 1016, 150}, Face::Body, kMuted}));
}

INSTANTIATE_TEST_SUITE_P(
    Table, PageHeadTest,
    testing::Values(HeadRow{0, u"计时与动作", u"设置计时规则，以及归零后发生的动作"},
                    HeadRow{1, u"悬浮窗外观", u"调整颜色、字体与尺寸，实时查看悬浮窗效果"},
                    HeadRow{2, u"阶段提醒", u"在关键时间点提醒，让演示节奏更从容"},
                    HeadRow{3, u"远程遥控", u"连接手机或电脑，远程控制计时与幻灯片"},
                    HeadRow{4, u"PPT控制", u"管理 PPT / WPS 文件与逐文件计时规则"}));

TEST(PaneLookTest, TheCardsAreWhiteWithRoundCornersAndAThinLine) {
  const Rect cards[] = {{16, 0, 800, 264}, {16, 288, 800, 494}};
  EXPECT_EQ(
      drawPane({824, 492}, cards, kUsualDpi),
      (Drawing{Area{{0, 0, 824, 492}, kPageFill}, RoundedRect{cards[0], 12, kWhite, kCardLine, 1},
               RoundedRect{cards[1], 12, kWhite, kCardLine, 1}}));
}

TEST(PaneLookTest, AtTwiceTheResolutionOnlyTheCornersGrow) {
  const Rect cards[] = {{32, 0, 1600, 528}};
  EXPECT_EQ(drawPane({1648, 984}, cards, 192).back(),
            Shape(RoundedRect{cards[0], 24, kWhite, kCardLine, 1}));
}

TEST(PaneLookTest, ACardEndsWhereAScrollBarBegins) {
  const Rect cards[] = {{16, 0, 808, 264}};
  EXPECT_EQ(drawPane({807, 492}, cards, kUsualDpi).back(),
            Shape(RoundedRect{{16, 0, 807, 264}, 12, kWhite, kCardLine, 1}));
}

TEST(PreviewHostLookTest, IsDarkBehindTextAloneAndLightOtherwise) {
  EXPECT_EQ(drawPreviewHost({736, 112}, true), (Drawing{Area{{0, 0, 736, 112}, kHostDark}}));
  EXPECT_EQ(drawPreviewHost({736, 112}, false), (Drawing{Area{{0, 0, 736, 112}, kHostLight}}));
}

TEST(QrCodeLookTest, EveryDarkModuleIsABlackSquareOnWhite) {
  const QrMatrix matrix{{true, true}, {false, false}};  // differs from its transpose
  const QrPlace place = placeQrCode(100, 100, 2);
  const int side = place.modulePixels;
  EXPECT_EQ(
      drawQrCode({100, 100}, matrix),
      (Drawing{Area{{0, 0, 100, 100}, kWhite}, Area{squareAt({place.left, place.top}, side), 0},
               Area{squareAt({place.left + side, place.top}, side), 0}}));
}

TEST(QrCodeLookTest, WithoutACodeItIsWhite) {
  EXPECT_EQ(drawQrCode({100, 100}, {}), (Drawing{Area{{0, 0, 100, 100}, kWhite}}));
}

TEST(ComboRowLookTest, IsInkOnWhite) {
  EXPECT_EQ(drawComboRow({5, 32, 149, 64}, u"Row", false, kUsualDpi),
            (Drawing{Area{{5, 32, 149, 64}, kWhite},
                     Label{u"Row", {17, 32, 149, 64}, Face::Body, kInk}}));
}

TEST(ComboRowLookTest, SelectedIsAccentOnATint) {
  EXPECT_EQ(drawComboRow({0, 0, 144, 32}, u"Row", true, kUsualDpi),
            (Drawing{Area{{0, 0, 144, 32}, kReadOnlyFill},
                     Label{u"Row", {12, 0, 144, 32}, Face::Body, kAccent}}));
}

constexpr Rect kRow{0, 54, 700, 108};

TEST(FileRowLookTest, ATimedFileHasAnEmptyCheckSquare) {
  EXPECT_EQ(drawFileRow(kRow, u"[正常计时] talk.pptx", false, kUsualDpi),
            (Drawing{Area{kRow, kWhite}, Glyph{{14, 70, 36, 92}, 4, kMuted},
                     Label{u"talk.pptx", {48, 59, 560, 84}, Face::BodyStrong, kInk},
                     Label{u"正常计时", {48, 84, 560, 108}, Face::Small, kMuted},
                     RoundedRect{{572, 72, 590, 90}, 4, kWhite, kMuted, 1},
                     Label{u"跳过计时", {598, 54, 692, 108}, Face::Body, kInk}}));
}

TEST(FileRowLookTest, AnExcludedFileHasATickedSquareAndSaysSo) {
  EXPECT_EQ(drawFileRow(kRow, u"[跳过计时] talk.pptx", false, kUsualDpi),
            (Drawing{Area{kRow, kWhite}, Glyph{{14, 70, 36, 92}, 4, kMuted},
                     Label{u"talk.pptx", {48, 59, 560, 84}, Face::BodyStrong, kInk},
                     Label{u"已排除", {48, 84, 560, 108}, Face::Small, 0xA87426},
                     RoundedRect{{572, 72, 590, 90}, 4, kAccent, kAccent, 1},
                     Line{{576, 81}, {579, 84}, kWhite, 2}, Line{{579, 84}, {586, 77}, kWhite, 2},
                     Label{u"跳过计时", {598, 54, 692, 108}, Face::Body, kInk}}));
}

TEST(FileRowLookTest, TheSelectedRowIsTintedAndItsSignHasTheAccent) {
  const Drawing drawing = drawFileRow(kRow, u"[正常计时] talk.pptx", true, kUsualDpi);
  EXPECT_EQ(drawing[0], Shape(Area{kRow, kSelectFill}));
  EXPECT_EQ(drawing[1], Shape(Glyph{{14, 70, 36, 92}, 4, kAccent}));
}

TEST(FileRowLookTest, ABracketInTheNameStaysInIt) {
  const Drawing drawing = drawFileRow(kRow, u"[跳过计时] [old] talk.pptx", false, kUsualDpi);
  EXPECT_EQ(drawing[2],
            Shape(Label{u"[old] talk.pptx", {48, 59, 560, 84}, Face::BodyStrong, kInk}));
}

TEST(FileRowLookTest, ARowThatCouldNotBeReadIsPaintedWithoutAName) {
  EXPECT_EQ(drawFileRow(kRow, u"", false, kUsualDpi)[2],
            Shape(Label{u"", {48, 59, 560, 84}, Face::BodyStrong, kInk}));
}

TEST(FileRowLookTest, AtTwiceTheResolutionTheTickGrows) {
  const Drawing drawing = drawFileRow({0, 0, 1400, 108}, u"[跳过计时] talk.pptx", false, 192);
  EXPECT_TRUE(holds(drawing, RoundedRect{{1144, 36, 1180, 72}, 8, kAccent, kAccent, 1}));
  EXPECT_TRUE(holds(drawing, Line{{1152, 54}, {1158, 60}, kWhite, 4}));
  EXPECT_TRUE(holds(drawing, Line{{1158, 60}, {1172, 46}, kWhite, 4}));
}

TEST(StatusLineLookTest, IsSmallAndMutedAndWarnsWhileInputWaits) {
  EXPECT_EQ(drawStatusLine({688, 34}, u"Done.", false),
            (Drawing{Area{{0, 0, 688, 34}, kWhite},
                     Label{u"Done.", {0, 0, 688, 34}, Face::Small, kMuted, false, true}}));
  EXPECT_EQ(drawStatusLine({688, 34}, u"Done.", true)[1],
            Shape(Label{u"Done.", {0, 0, 688, 34}, Face::Small, kWarnText, false, true}));
}

TEST(FileRowLookTest, OnlyARowThatIsNotSelectedNeedsTheMarkOfTheKeyboard) {
  EXPECT_EQ(drawFileRow(kRow, u"[正常计时] a.ppt", false, kUsualDpi, true).back(),
            Shape(FocusMark{insetBy(kRow, 2)}));
  EXPECT_EQ(drawFileRow(kRow, u"[正常计时] a.ppt", true, kUsualDpi, true),
            drawFileRow(kRow, u"[正常计时] a.ppt", true, kUsualDpi));
}

TEST(EmptyListLookTest, AListWithTheKeyboardShowsItThoughItIsEmpty) {
  EXPECT_EQ(drawEmptyList({700, 204}, 192, true).back(), Shape(FocusMark{{4, 4, 696, 200}}));
}

TEST(EmptyListLookTest, SaysThatNothingIsThereAndWhatToDo) {
  EXPECT_EQ(drawEmptyList({700, 204}, kUsualDpi),
            (Drawing{Area{{0, 0, 700, 204}, kWhite},
                     Label{u"尚未添加演示文稿", {8, 74, 692, 104}, Face::BodyStrong, kInk, true},
                     Label{u"选择文件夹后，PPT / WPS 文件将显示在这里",
                           {8, 106, 692, 138},
                           Face::Small,
                           kMuted,
                           true}}));
}

}  // namespace
}  // namespace mrl
