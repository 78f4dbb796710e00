#include "presentation/window_scan.h"

#include <gtest/gtest.h>

#include "presentation/window_system_fake.h"

namespace mrl {
namespace {

class WindowScanTest : public testing::Test {
 protected:
  WindowSystemFake::Log log;
  WindowSystemFake windows{log};

  // Handles count from 1 in the order in which windows are added, topmost first.
  FakeWindow& add(const std::u16string& title, const std::u16string& className) {
    const int64_t handle = static_cast<int64_t>(windows.windows.size()) + 1;
    windows.windows.push_back({.handle = {handle}, .title = title, .className = className});
    return windows.windows.back();
  }
  FakeWindow& addShow(const std::u16string& title = u"show") { return add(title, u"screenClass"); }
  WindowScan scan(const std::u16string& filter = u"") {
    ProgramWindows programs(windows);
    return scanPresentationWindows(programs, filter);
  }
  bool accepts(const std::u16string& title, const std::u16string& className) {
    windows.windows.clear();
    add(title, className);
    return scan().found;
  }
  bool takesForShow(const std::u16string& title, const std::u16string& className) {
    return accepts(title, className) && scan().fullScreenWindow;
  }
  bool takesForPresentation(const std::u16string& title, const std::u16string& className) {
    return accepts(title, className) && !scan().fullScreenWindow;
  }
  bool acceptsImage(const std::u16string& image) {
    windows.windows.clear();
    addShow().image = image;
    return scan().found;
  }
  bool showCounts(const Rect& rect, const Rect& monitor = {0, 0, 1920, 1080}) {
    windows.windows.clear();
    addShow().rect = rect;
    windows.windows.back().monitor = monitor;
    return static_cast<bool>(scan().fullScreenWindow);
  }
};

TEST_F(WindowScanTest, AnEmptyDesktopGivesAnEmptyRecord) {
  const WindowScan seen = scan();
  EXPECT_FALSE(seen.firstWindow);
  EXPECT_FALSE(seen.fullScreenWindow);
  EXPECT_FALSE(seen.found);
  EXPECT_EQ(seen.fullScreenTitle, u"");
  EXPECT_TRUE(seen.titles.empty());
}

TEST_F(WindowScanTest, TheRecordRepeatsTheFilter) {
  EXPECT_EQ(scan(u"C:\\a.pptx").documentFilter, u"C:\\a.pptx");
  EXPECT_EQ(scan().documentFilter, u"");
}

TEST_F(WindowScanTest, AHiddenWindowIsNotSeen) {
  addShow().visible = false;
  EXPECT_FALSE(scan().found);
}

TEST_F(WindowScanTest, AMinimisedShowIsNotSeenAtAll) {
  addShow().iconic = true;
  const WindowScan seen = scan();
  EXPECT_FALSE(seen.found);
  EXPECT_FALSE(seen.fullScreenWindow);
  EXPECT_TRUE(seen.titles.empty());
}

TEST_F(WindowScanTest, AWindowWhoseProcessCanNotBeLookedAtIsPassedOver) {
  addShow(u"closed").image = u"";
  addShow(u"open");
  EXPECT_EQ(scan().titles, std::vector<std::u16string>{u"open"});
}

TEST_F(WindowScanTest, PowerpntIsAPresentationProgram) {
  EXPECT_TRUE(acceptsImage(u"C:\\x\\powerpnt.exe"));
}
TEST_F(WindowScanTest, WppIsAPresentationProgram) { EXPECT_TRUE(acceptsImage(u"C:\\x\\wpp.exe")); }
TEST_F(WindowScanTest, WpsIsAPresentationProgram) { EXPECT_TRUE(acceptsImage(u"C:\\x\\wps.exe")); }
TEST_F(WindowScanTest, WpspptIsAPresentationProgram) {
  EXPECT_TRUE(acceptsImage(u"C:\\x\\wpsppt.exe"));
}
TEST_F(WindowScanTest, WpsofficeIsAPresentationProgram) {
  EXPECT_TRUE(acceptsImage(u"C:\\x\\wpsoffice.exe"));
}

TEST_F(WindowScanTest, AnImageNameInUpperCaseIsAccepted) {
  EXPECT_TRUE(acceptsImage(u"C:\\OFFICE\\POWERPNT.EXE"));
}

TEST_F(WindowScanTest, AnImageNameMustBeOneOfTheFiveExactly) {
  EXPECT_FALSE(acceptsImage(u"C:\\x\\xpowerpnt.exe"));
  EXPECT_FALSE(acceptsImage(u"C:\\x\\powerpnt.exe.exe"));
  EXPECT_FALSE(acceptsImage(u"C:\\x\\powerpnt"));
  EXPECT_FALSE(acceptsImage(u"C:\\powerpnt.exe\\other.exe"));
  EXPECT_FALSE(acceptsImage(u"C:\\x\\"));
}

TEST_F(WindowScanTest, AnImageNameWithoutAFolderIsAName) { EXPECT_TRUE(acceptsImage(u"wpp.exe")); }

TEST_F(WindowScanTest, OnlyAToZAreLowerCasedInAnImageName) {
  EXPECT_FALSE(acceptsImage(u"C:\\x\\ｗpp.exe"));
  EXPECT_FALSE(acceptsImage(u"C:\\x\\wpp.ẼXE"));
}

TEST_F(WindowScanTest, ATitleOfAnotherProgramNeverCounts) {
  add(u"Slide Show - a.pptx", u"screenClass").image = u"C:\\x\\browser.exe";
  EXPECT_FALSE(scan().found);
}

TEST_F(WindowScanTest, AWindowThatMeetsNoRowIsNotAccepted) {
  EXPECT_FALSE(accepts(u"table.xlsx", u"KSheetFrame"));
  EXPECT_FALSE(accepts(u"", u""));
}

TEST_F(WindowScanTest, Row1ClassScreenclassIsAShow) {
  EXPECT_TRUE(takesForShow(u"", u"xscreenclassx"));
}
TEST_F(WindowScanTest, Row2ClassPptviewIsAShow) { EXPECT_TRUE(takesForShow(u"", u"xpptviewx")); }
TEST_F(WindowScanTest, Row3ClassWppviewIsAShow) { EXPECT_TRUE(takesForShow(u"", u"xwppviewx")); }
TEST_F(WindowScanTest, Row4TheChineseTitleIsAShow) {
  EXPECT_TRUE(takesForShow(u"WPS 幻灯片放映 - [甲]", u"any"));
}
TEST_F(WindowScanTest, Row5TheEnglishTitleIsAShow) {
  EXPECT_TRUE(takesForShow(u"PowerPoint Slide Show - [a]", u"any"));
}
TEST_F(WindowScanTest, Row6TitleWithPptIsAPresentation) {
  EXPECT_TRUE(takesForPresentation(u"a.pptx - PowerPoint", u"any"));
}
TEST_F(WindowScanTest, Row7TitleWithDpsIsAPresentation) {
  EXPECT_TRUE(takesForPresentation(u"a.dps - WPS", u"any"));
}
TEST_F(WindowScanTest, Row8ClassPptIsAPresentation) {
  EXPECT_TRUE(takesForPresentation(u"", u"xpptx"));
}
TEST_F(WindowScanTest, Row9ClassWppIsAPresentation) {
  EXPECT_TRUE(takesForPresentation(u"", u"xwppx"));
}

TEST_F(WindowScanTest, ShowRowsComeBeforePresentationRows) {
  EXPECT_TRUE(takesForShow(u"a.pptx", u"screenClass"));
  EXPECT_TRUE(takesForShow(u"Slide Show a.pptx", u"PPTFrameClass"));
}

TEST_F(WindowScanTest, AClassNameIsLowerCasedFirst) {
  EXPECT_TRUE(takesForShow(u"", u"screenClass"));
  EXPECT_TRUE(takesForPresentation(u"", u"PPTFrameClass"));
}

TEST_F(WindowScanTest, ATitleIsSensitiveToCase) {
  EXPECT_FALSE(accepts(u"slide show", u"any"));
  EXPECT_FALSE(accepts(u"A.PPTX", u"any"));
  EXPECT_FALSE(accepts(u"A.DPS", u"any"));
}

TEST_F(WindowScanTest, WordsOfAClassNameInATitleMeanNothingAndTheOtherWayRound) {
  EXPECT_FALSE(accepts(u"screenclass pptview wpp", u"any"));
  EXPECT_FALSE(accepts(u"any", u"Slide Show .dps 幻灯片放映"));
}

TEST_F(WindowScanTest, TheWordsAreSoughtOnlyInWhatFitsTheTextBuffers) {
  EXPECT_TRUE(accepts(std::u16string(2043, u'x') + u".ppt", u"any"));
  EXPECT_FALSE(accepts(std::u16string(2044, u'x') + u".ppt", u"any"));
  EXPECT_TRUE(accepts(u"", std::u16string(252, u'x') + u"wpp"));
  EXPECT_FALSE(accepts(u"", std::u16string(253, u'x') + u"wpp"));
}

TEST_F(WindowScanTest, AMaximisedEditingWindowIsNoShow) {
  add(u"a.pptx - PowerPoint", u"PPTFrameClass");
  const WindowScan seen = scan();
  EXPECT_TRUE(seen.found);
  EXPECT_EQ(seen.firstWindow, WindowHandle{1});
  EXPECT_FALSE(seen.fullScreenWindow);
}

TEST_F(WindowScanTest, TitlesOfAllAcceptedWindowsStayInOrderWithDuplicates) {
  add(u"b.pptx", u"PPTFrameClass");
  addShow(u"a");
  add(u"b.pptx", u"PPTFrameClass");
  add(u"other", u"other");
  addShow(u"");
  EXPECT_EQ(scan().titles, (std::vector<std::u16string>{u"b.pptx", u"a", u"b.pptx", u""}));
}

TEST_F(WindowScanTest, TheFirstWindowIsTheTopmostAcceptedOne) {
  add(u"other", u"other");
  add(u"a.pptx", u"PPTFrameClass");
  addShow();
  EXPECT_EQ(scan().firstWindow, WindowHandle{2});
}

TEST_F(WindowScanTest, AShowIsReportedWithItsTitle) {
  addShow(u"Slide Show - a");
  const WindowScan seen = scan();
  EXPECT_EQ(seen.fullScreenWindow, WindowHandle{1});
  EXPECT_EQ(seen.fullScreenTitle, u"Slide Show - a");
}

TEST_F(WindowScanTest, OfTwoCoveringShowsTheLaterOneWinsAndTheEarlierStaysFirst) {
  addShow(u"left");
  addShow(u"right");
  windows.windows[1].rect = windows.windows[1].monitor = {1920, 0, 3840, 1080};
  const WindowScan seen = scan();
  EXPECT_EQ(seen.fullScreenWindow, WindowHandle{2});
  EXPECT_EQ(seen.fullScreenTitle, u"right");
  EXPECT_EQ(seen.firstWindow, WindowHandle{1});
}

TEST_F(WindowScanTest, AnyAcceptedWindowBelowAShowLeavesTheShowInPlace) {
  addShow(u"a");
  addShow(u"small").rect = {0, 0, 640, 480};
  add(u"a.pptx", u"PPTFrameClass");
  EXPECT_EQ(scan().fullScreenWindow, WindowHandle{1});
}

TEST_F(WindowScanTest, AShowTenPixelsShortOfEachEdgeCovers) {
  EXPECT_TRUE(showCounts({10, 10, 1910, 1070}));
}

TEST_F(WindowScanTest, AShowSixteenPixelsShortOfEachEdgeStillCovers) {
  EXPECT_TRUE(showCounts({16, 16, 1904, 1064}));
}

TEST_F(WindowScanTest, AShowSeventeenPixelsShortOnTheLeftDoesNotCover) {
  EXPECT_FALSE(showCounts({17, 0, 1920, 1080}));
}
TEST_F(WindowScanTest, AShowSeventeenPixelsShortAtTheTopDoesNotCover) {
  EXPECT_FALSE(showCounts({0, 17, 1920, 1080}));
}
TEST_F(WindowScanTest, AShowSeventeenPixelsShortOnTheRightDoesNotCover) {
  EXPECT_FALSE(showCounts({0, 0, 1903, 1080}));
}
TEST_F(WindowScanTest, AShowSeventeenPixelsShortAtTheBottomDoesNotCover) {
  EXPECT_FALSE(showCounts({0, 0, 1920, 1063}));
}

TEST_F(WindowScanTest, AShowLargerThanItsMonitorCovers) {
  EXPECT_TRUE(showCounts({-8, -8, 1928, 1088}));
}

TEST_F(WindowScanTest, AMonitorLeftOfThePrimaryOneIsCoveredLikeAnyOther) {
  EXPECT_TRUE(showCounts({-1910, -100, 0, 980}, {-1920, -100, 0, 980}));
  EXPECT_FALSE(showCounts({-1900, -100, 0, 980}, {-1920, -100, 0, 980}));
}

TEST_F(WindowScanTest, AShowThatNamesTheFilterDocumentCounts) {
  addShow(u"Slide Show - a.pptx");
  EXPECT_EQ(scan(u"C:\\decks\\a.pptx").fullScreenWindow, WindowHandle{1});
}

TEST_F(WindowScanTest, AShowOfAnotherDocumentIsSeenButNotTaken) {
  addShow(u"Slide Show - b.pptx");
  const WindowScan seen = scan(u"C:\\decks\\a.pptx");
  EXPECT_TRUE(seen.found);
  EXPECT_EQ(seen.titles, std::vector<std::u16string>{u"Slide Show - b.pptx"});
  EXPECT_EQ(seen.firstWindow, WindowHandle{1});
  EXPECT_FALSE(seen.fullScreenWindow);
  EXPECT_EQ(seen.fullScreenTitle, u"");
}

TEST_F(WindowScanTest, TheFilterLetsALaterShowOfAnotherDocumentNotOverwrite) {
  addShow(u"Slide Show - a.pptx");
  addShow(u"Slide Show - b.pptx");
  EXPECT_EQ(scan(u"C:\\decks\\a.pptx").fullScreenWindow, WindowHandle{1});
}

// Recognising a show takes seven queries: visible, iconic, image, title, class, rectangle, monitor.
TEST_F(WindowScanTest, AWindowThatVanishesDuringTheScanIsNeverAShow) {
  for (int looks = 0; looks < 7; ++looks) {
    windows.windows.clear();
    addShow().queriesLeft = looks;
    EXPECT_FALSE(scan().fullScreenWindow) << looks;
  }
  windows.windows.clear();
  addShow().queriesLeft = 7;
  EXPECT_TRUE(scan().fullScreenWindow);
}

TEST_F(WindowScanTest, ATitleAloneIsEnoughWhenTheClassNameIsGone) {
  EXPECT_TRUE(takesForShow(u"Slide Show", u""));
}

TEST_F(WindowScanTest, TheScanTouchesNoWindow) {
  addShow();
  add(u"a.pptx", u"PPTFrameClass");
  EXPECT_TRUE(scan().found);
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace mrl
