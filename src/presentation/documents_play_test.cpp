// Playing a deck: what happens to the show on screen, and where the new one starts.
#include "presentation/documents_fixture.h"

namespace mrl {
namespace {

/// PowerPoint is kept; the deck is open on slide 4, and nothing is on screen.
class PlayTest : public DocumentsTest {
 protected:
  PlayTest() {
    keep(application);
    deck->editedSlide = 4;
  }
  std::shared_ptr<FakeDeck> deck = application->addDeck(kDeck);
  const Log readingTheSlide{"get presentation.Windows", "both windows.Item 1", "get window.View",
                            "get editView.Slide", "get editSlide.SlideIndex"};
  const Log running{"get presentation.SlideShowSettings", "method settings.Run"};
};

/// Another deck is on screen in window 77.
class ReplaceTest : public PlayTest {
 protected:
  std::shared_ptr<FakeShow> show = application->addShow(application->addDeck(kOther), 77, 3);
};

TEST_F(PlayTest, ADeckThatIsOpenPlaysFromTheSlideThatThePresenterIsOn) {
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log, join({before,
                             others,
                             searching(0, true),
                             readingTheSlide,
                             running,
                             {"get show.View", "method view.GotoSlide 4", "get show.HWND"},
                             raised("88")}));
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(application->shows[0]->slide, 4);
  EXPECT_EQ(world.state.expectedDocument, kDeck);
  EXPECT_EQ(error, kUntouched);
}

TEST_F(PlayTest, ADeckThatIsOpenOnTheFirstSlideIsNotSentToIt) {
  deck->editedSlide = 1;
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log, join({before,
                             others,
                             searching(0, true),
                             readingTheSlide,
                             running,
                             {"get show.HWND"},
                             raised("88")}));
}

TEST_F(PlayTest, ANewlyOpenedDeckPlaysFromTheFirstSlideWithoutAsking) {
  application->decks.clear();
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log, join({before,
                             others,
                             searching(0, false),
                             {"get application.Presentations",
                              "method presentations.Open C:\\Talks\\deck.pptx 0 0 -1"},
                             running,
                             {"get show.HWND"},
                             raised("88")}));
  EXPECT_EQ(application->shows.at(0)->slide, 1);
}

TEST_F(PlayTest, ASlideThatCanNotBeReadIsTheFirst) {
  for (const char* member : {"presentation.Windows", "windows.Item", "window.View",
                             "editView.Slide", "editSlide.SlideIndex"}) {
    application->shows.clear();
    world.automation.answers.clear();
    world.automation.fail(member);
    EXPECT_TRUE(open(kDeck, true)) << member;
    EXPECT_FALSE(called("view.GotoSlide")) << member;
  }
}

TEST_F(PlayTest, ASlideNumberThatIsNotAboveOneIsTheFirst) {
  for (const int32_t number : {0, -3}) {
    application->shows.clear();
    deck->editedSlide = number;
    EXPECT_TRUE(open(kDeck, true)) << number;
    EXPECT_FALSE(called("view.GotoSlide")) << number;
  }
}

TEST_F(PlayTest, WithoutARunningShowNothingIsExited) {
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_FALSE(called("view.Exit"));
}

TEST_F(PlayTest, AnApplicationThatHasToBeStartedPlaysTheDeck) {
  forgetAll();
  application->decks.clear();
  application->runs = false;
  application->startable = true;
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(application->shows.size(), 1u);
  EXPECT_TRUE(logged("foreground 88"));
}

TEST_F(PlayTest, ARunThatFailsIsTold) {
  world.automation.fail("settings.Run");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法开始放映");
  EXPECT_EQ(world.log.back(), "method settings.Run");
  EXPECT_EQ(world.state.expectedDocument, u"");
}

TEST_F(PlayTest, ARunThatGivesNoShowIsTold) {
  world.automation.answers["settings.Run"] = {kAutomationOk, {}};
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法开始放映");
}

TEST_F(PlayTest, WithoutShowSettingsNoShowStarts) {
  world.automation.fail("presentation.SlideShowSettings");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法开始放映");
}

TEST_F(PlayTest, ANewShowThatCanNotBeMovedStaysUpAndIsExpectedButNotRaised) {
  world.automation.fail("view.GotoSlide");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"已开始放映，但无法跳转到当前页");
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(application->shows[0]->slide, 1);
  EXPECT_EQ(world.state.expectedDocument, kDeck);
  EXPECT_EQ(world.log.back(), "method view.GotoSlide 4");
}

TEST_F(PlayTest, ANewShowWithoutAHandleIsFoundByTheDecksName) {
  application->nextShowWindow = 0;
  world.addShowWindow(5, u"Slide Show - [deck.pptx]");
  world.windows.windows.back().rect = {0, 0, 800, 600};  // not on screen yet
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "method settings.Run") world.windows.windows.back().rect = {0, 0, 1920, 1080};
  };
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log.back(), "foreground 5");
}

TEST_F(PlayTest, ANewShowWhoseWindowIsNowhereIsASuccess) {
  application->nextShowWindow = 99;
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log.back(), "get show.HWND");
  EXPECT_EQ(error, kUntouched);
}

// --- the deck is on screen already ---

TEST_F(PlayTest, TheShowOnScreenIsRaisedAndNotRestarted) {
  application->addShow(deck, 77, 6);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log, join({before, others, searching(0, true), raised("77")}));
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(application->shows[0]->slide, 6);
  EXPECT_EQ(world.state.expectedDocument, kDeck);
  EXPECT_EQ(error, kUntouched);
}

TEST_F(PlayTest, TheShowOnScreenIsKnownUnderEverySpellingOfThePath) {
  deck->path = u"c:/TALKS/./deck.PPTX";
  application->addShow(deck, 77, 6);
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_FALSE(called("settings.Run"));
  EXPECT_TRUE(logged("foreground 77"));
}

TEST_F(PlayTest, AShowOfTheDeckThatSlipsAwayBehindThePollIsNotTakenForOneOnScreen) {
  application->addShow(deck, 77, 6);
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "get show.HWND") application->shows.clear();
  };
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法安全切换当前放映，请先手动退出当前放映");
  EXPECT_FALSE(logged("show 77"));
}

TEST_F(PlayTest, AShowOnScreenThatCanNotBeRaisedIsASuccess) {
  application->addShow(deck, 0, 6);
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_FALSE(called("settings.Run"));
  world.windows.foregroundRefused = true;
  application->shows[0]->window = 77;
  EXPECT_TRUE(open(kDeck, true));
}

// --- another deck is on screen ---

TEST_F(ReplaceTest, TheOtherShowExitsAndTheDeckStartsOnItsSlide) {
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_EQ(world.log, join({before,
                             others,
                             searching(0, true),
                             readingTheSlide,
                             {"get show.View", "method view.Exit"},
                             running,
                             {"get show.View", "method view.GotoSlide 4", "get show.HWND"},
                             raised("88")}));
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(application->shows[0]->deck, deck);
  EXPECT_EQ(world.state.expectedDocument, kDeck);
}

TEST_F(ReplaceTest, TheShowOfAnotherApplicationIsExitedToo) {
  const auto wps = world.automation.add(u"WPP.Application");
  application->shows.clear();
  wps->addShow(wps->addDeck(kOther), 77);
  EXPECT_TRUE(open(kDeck, true));
  EXPECT_TRUE(wps->shows.empty());
  EXPECT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(world.state.progId, u"PowerPoint.Application");
}

TEST_F(ReplaceTest, OfTwoShowsTheOneThatThisProgramStartedExits) {
  const auto first = application->addShow(application->addDeck(u"C:\\Talks\\third.pptx"), 66);
  std::swap(application->shows[0], application->shows[1]);
  world.state.expectedDocument = kOther;
  EXPECT_TRUE(open(kDeck, true));
  ASSERT_EQ(application->shows.size(), 2u);
  EXPECT_EQ(application->shows[0], first);
  EXPECT_EQ(application->shows[1]->deck, deck);
}

TEST_F(ReplaceTest, ADeckThatWasOpenedForAShowThatCanNotBeExitedStaysOpen) {
  std::erase(application->decks, deck);
  world.automation.fail("view.Exit");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法退出当前放映，请先手动退出后重试");
  ASSERT_EQ(application->decks.size(), 2u);
  EXPECT_EQ(application->decks[1]->path, kDeck);
  EXPECT_EQ(application->shows.at(0), show);
}

TEST_F(ReplaceTest, AShowThatOnlyTheDesktopKnowsIsLeftAloneAndTheDeckStaysOpen) {
  application->decks.clear();
  application->shows.clear();
  world.addShowWindow(5);
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法安全切换当前放映，请先手动退出当前放映");
  ASSERT_EQ(application->decks.size(), 1u);
  EXPECT_EQ(application->decks[0]->path, kDeck);
  EXPECT_FALSE(called("settings.Run"));
  EXPECT_FALSE(logged("show 5"));
  EXPECT_EQ(world.state.expectedDocument, u"");
}

TEST_F(ReplaceTest, AShowThatOnlyTheDesktopKnowsIsLeftAloneEvenIfItsTitleNamesTheDeck) {
  application->shows.clear();
  world.addShowWindow(5, u"Slide Show - [deck.pptx]");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法安全切换当前放映，请先手动退出当前放映");
  EXPECT_FALSE(called("settings.Run"));
}

TEST_F(ReplaceTest, AShowWhoseDocumentIsUnknownIsLeftAlone) {
  show->deck->path = u"";
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法安全切换当前放映，请先手动退出当前放映");
  EXPECT_FALSE(called("view.Exit"));
  EXPECT_EQ(application->shows.size(), 1u);
}

TEST_F(ReplaceTest, AShowThatSlipsAwayBehindThePollStopsTheReplacement) {
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "get show.HWND") application->shows.clear();
  };
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法安全切换当前放映，请先手动退出当前放映");
  EXPECT_FALSE(called("settings.Run"));
}

TEST_F(ReplaceTest, AnExitThatFailsLeavesTheShowAndTheDeckOpen) {
  world.automation.fail("view.Exit");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法退出当前放映，请先手动退出后重试");
  EXPECT_EQ(world.log.back(), "method view.Exit");
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(application->shows[0], show);
  EXPECT_EQ(application->decks.size(), 2u);
}

TEST_F(ReplaceTest, AShowWithoutAViewCanNotBeExited) {
  world.automation.fail("show.View");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法退出当前放映，请先手动退出后重试");
}

TEST_F(ReplaceTest, AFailedRunLeavesTheDeckOpenAndNoShow) {
  world.automation.fail("settings.Run");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法开始放映");
  EXPECT_TRUE(application->shows.empty());
  EXPECT_EQ(application->decks.size(), 2u);
}

TEST_F(ReplaceTest, TheExpectedDocumentOutlivesItsShow) {
  EXPECT_TRUE(open(kDeck, true));
  application->shows.clear();
  EXPECT_TRUE(open(kOther, false));
  EXPECT_EQ(world.state.expectedDocument, kDeck);
}

// --- applications that misbehave ---

TEST_F(ReplaceTest, AnApplicationMayDieBeforeAnyCall) {
  for (size_t survived = 0; survived < 45; ++survived) {
    application->dead = false;
    forgetAll();
    keep(application);
    application->shows = {show};
    size_t seen = 0;
    world.automation.beforeCall = [&](const std::string&) {
      if (seen++ == survived) application->dead = true;
    };
    error.clear();
    const bool opened = open(kDeck, true);
    EXPECT_EQ(opened, error.empty()) << survived;
  }
}

TEST_F(ReplaceTest, NonsenseFromAnyMemberNeverStopsTheTimer) {
  const AutomationValue nonsense[] = {{}, -1, INT32_MAX, u"x", AutomationRef()};
  ASSERT_TRUE(open(kDeck, true));
  const Log calls = world.log;
  for (const std::string& entry : calls) {
    const size_t name = entry.find(' ') + 1;
    const std::string member = entry.substr(name, entry.find(' ', name) - name);
    if (member.find('.') == std::string::npos || entry.starts_with("running ")) continue;
    for (const AutomationValue& value : nonsense) {
      forgetAll();
      keep(application);
      application->shows = {show};
      world.automation.answers = {{member, {kAutomationOk, value}}};
      error.clear();
      const bool opened = open(kDeck, true);
      EXPECT_EQ(opened, error.empty()) << entry;
      EXPECT_LE(world.log.size(), 13'000u) << entry;
    }
  }
}

}  // namespace
}  // namespace mrl
