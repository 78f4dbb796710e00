// Quirks of real presentation programs: being busy, cloud files, a black end screen, and unusual
// windows.
#include "base/wide_win.h"
#include "windows/show_following_fixture.h"

namespace mrl {
namespace {

using standin::TemporaryDeck;

class RealProgramsTest : public ShowFollowingTest {
 protected:
  void putOnScreen(const Settings& settings = {}) {
    startPresentations();
    open(demo);
    tell(L"show");
    startTimer(settings);
  }
  static Settings perSlide() {
    Settings settings;
    settings.perSlide = true;
    return settings;
  }
  bool stateHas(const std::wstring& words) {
    return presentations.command(L"state").find(words) != std::wstring::npos;
  }
};

// --- busy ---

TEST_F(RealProgramsTest, WhileItIsBusyItsWindowIsBelievedAndTheClockGoesOn) {
  putOnScreen();
  ASSERT_TRUE(program.waitForText(L"14:57"));
  tell(L"reject SlideShowWindows");
  EXPECT_TRUE(program.waitForText(L"14:52")) << "over several polls";
  tell(L"reject SlideShowWindows off");
  EXPECT_TRUE(program.waitForText(L"14:48")) << "and afterwards";
}

TEST_F(RealProgramsTest, WhileItIsBusyAShowThatDoesNotFillItsScreenPausesTheClock) {
  putOnScreen();
  tell(L"inset-show 100");
  ASSERT_TRUE(program.isCounting());
  tell(L"reject SlideShowWindows");
  EXPECT_TRUE(isPaused());
  tell(L"reject SlideShowWindows off");
  EXPECT_TRUE(program.isCounting());
}

TEST_F(RealProgramsTest, OneRejectedPollRestartsTheClockOfASlide) {
  putOnScreen(perSlide());
  ASSERT_TRUE(program.waitForText(L"14:55"));
  tell(L"reject SlideShowWindows 1");
  EXPECT_TRUE(hasRestarted(L"14:56")) << "without the number it counts as another slide";
}

TEST_F(RealProgramsTest, WhenItIsNoLongerBusyTheClockOfTheSlideRestartsOnceMore) {
  putOnScreen(perSlide());
  tell(L"reject SlideShowWindows");
  ASSERT_TRUE(program.waitForText(L"14:55"));
  tell(L"reject SlideShowWindows off");
  EXPECT_TRUE(hasRestarted(L"14:56"));
}

TEST_F(RealProgramsTest, AnExitThatIsRejectedIsDoneByAKey) {
  startPresentations();
  open(demo);
  Settings settings;
  settings.duration = 3;
  settings.exitShow = true;
  tell(L"reject Exit");
  tell(L"show");
  startTimer(settings);
  EXPECT_TRUE(showEnds());
  EXPECT_TRUE(logHas(L"key 0x1B"));
}

TEST_F(RealProgramsTest, AnApplicationThatIsBusyWhenItIsTestedIsLookedUpAgain) {
  startPresentations();
  open(demo);
  Settings settings;
  settings.duration = 3;
  settings.exitShow = true;
  tell(L"reject Name");
  tell(L"show");
  startTimer(settings);
  EXPECT_TRUE(showEnds());
  EXPECT_TRUE(logHas(L"get Application.Name"));
  EXPECT_TRUE(logHas(L"call SlideShowView.Exit"));
  EXPECT_FALSE(logHas(L"key 0x1B"));
}

// --- files in the cloud ---

class CloudTest : public RealProgramsTest {
 protected:
  void startCloud() {
    startPresentations();
    tell(L"cloud-fullname on");
    open(demo);
  }
};

TEST_F(CloudTest, ADeckInTheCloudIsFollowedToItsEndAndItsClosing) {
  startCloud();
  startTimer();
  tell(L"show");
  ASSERT_TRUE(program.isCounting());
  tell(L"exit");
  EXPECT_TRUE(isPaused());
  tell(L"close");
  EXPECT_TRUE(isIdle());
}

TEST_F(CloudTest, SlidesInTheCloudAreToldApart) {
  startCloud();
  startTimer(perSlide());
  tell(L"show");
  ASSERT_TRUE(program.waitForText(L"14:56"));
  tell(L"next");
  EXPECT_TRUE(hasRestarted(L"14:57"));
}

TEST_F(CloudTest, AnExcludedFileInTheCloudIsTimedAllTheSame) {
  startCloud();
  Settings settings;
  settings.skipList = {u16From(demo.path)};
  startTimer(settings);
  tell(L"show");
  EXPECT_TRUE(program.isCounting()) << "an address is not the path that was excluded";
}

// --- the end screen ---

TEST_F(RealProgramsTest, OnTheEndScreenTheClockGoesOnUntilTheShowEnds) {
  putOnScreen();
  tell(L"end-screen on");
  tell(L"goto 10");
  ASSERT_TRUE(program.isCounting());
  tell(L"next");
  ASSERT_TRUE(stateHas(L"show end"));
  EXPECT_TRUE(program.isCounting());
  tell(L"next");
  EXPECT_TRUE(isPaused());
}

TEST_F(RealProgramsTest, TheEndScreenCountsAsOneMoreSlide) {
  putOnScreen(perSlide());
  tell(L"end-screen on");
  tell(L"goto 10");
  ASSERT_TRUE(program.waitForText(L"14:55"));
  tell(L"next");
  EXPECT_TRUE(hasRestarted(L"14:56"));
  EXPECT_TRUE(program.isCounting());
}

// --- WPS by its windows alone ---

class WpsWindowsTest : public RealProgramsTest {
 protected:
  /// No window title identifies a window here, unless `arguments` set one.
  void startWps(const std::wstring& arguments) {
    startPresentations(L"wpp.exe", L"--show-title=W " + arguments);
    tell(L"withdraw");
    tell(L"open \"" + plain.path + L"\"");
  }
  TemporaryDeck plain{L"plain.potx"};
};

TEST_F(WpsWindowsTest, AShowIsKnownByItsClassAndAnOpenDeckByThatOfItsWindow) {
  startWps(L"");
  startTimer();
  tell(L"show");
  EXPECT_TRUE(program.isCounting());
  tell(L"exit");
  EXPECT_TRUE(isPaused()) << "the deck may still be open";
  tell(L"close");
  EXPECT_TRUE(isIdle());
}

TEST_F(WpsWindowsTest, AShowOfAnUnknownClassIsKnownByItsTitle) {
  startWps(L"--show-class=Unknown --show-title=幻灯片放映");
  startTimer();
  tell(L"show");
  EXPECT_TRUE(program.isCounting());
}

TEST_F(WpsWindowsTest, AShowThatNeitherClassNorTitleTellsIsNone) {
  startWps(L"--show-class=Unknown");
  startTimer();
  tell(L"show");
  EXPECT_TRUE(isIdle());
}

}  // namespace
}  // namespace mrl
