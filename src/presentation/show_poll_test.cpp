#include "presentation/show_poll.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "presentation/presentation_fake.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

using Log = std::vector<std::string>;
constexpr char16_t kPowerPoint[] = u"PowerPoint.Application";
constexpr char16_t kWps[] = u"KWPP.Application";
constexpr char16_t kOtherWps[] = u"WPP.Application";

class ShowPollTest : public testing::Test {
 protected:
  PresentationFake world;
  AutomationState& state = world.state;

  ShowStatus poll() {
    world.log.clear();
    return pollShowStatus(world.access, state);
  }
  size_t times(const std::string& entry) {
    return static_cast<size_t>(std::count(world.log.begin(), world.log.end(), entry));
  }
  std::u16string normal(const std::u16string& path) { return normalizePath(world.files, path); }

  /// An application whose show of a.pptx has ended; b.pptx is open as well.
  std::shared_ptr<FakeApplication> applicationAfterAShow() {
    auto application = world.automation.add(kPowerPoint);
    application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
    application->addDeck(u"C:\\b.pptx");
    (void)poll();
    application->shows.clear();
    return application;
  }
};

// --- candidates ---

TEST_F(ShowPollTest, ProvidersAreAskedInTheFixedOrder) {
  (void)poll();
  EXPECT_EQ(world.log, (Log{"running PowerPoint.Application", "running KWPP.Application",
                            "running WPP.Application"}));
}

TEST_F(ShowPollTest, TheProviderThatLastShowedSomethingIsAskedFirstAndOnce) {
  state.progId = kOtherWps;
  (void)poll();
  EXPECT_EQ(world.log, (Log{"running WPP.Application", "running PowerPoint.Application",
                            "running KWPP.Application"}));
}

TEST_F(ShowPollTest, TheKeptReferenceStandsForItsProviderWithoutATest) {
  const auto application = world.automation.add(kWps);
  state.application = application->object;
  state.progId = kWps;
  (void)poll();
  EXPECT_EQ(world.log, (Log{"get application.Presentations", "get presentations.Count",
                            "get application.SlideShowWindows", "get shows.Count",
                            "running PowerPoint.Application", "running WPP.Application"}));
}

TEST_F(ShowPollTest, AReferenceWithoutAProgIdStandsForNoProvider) {
  const auto application = world.automation.add(kWps);
  state.application = application->object;
  application->runs = false;
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  EXPECT_FALSE(poll().running);
}

TEST_F(ShowPollTest, ADeadReferenceKeepsStandingForItsProviderWhileOthersAreAsked) {
  const auto dead = world.automation.add(kPowerPoint);
  dead->dead = true;
  state.application = dead->object;
  state.progId = kPowerPoint;
  EXPECT_FALSE(poll().running);
  EXPECT_EQ(state.application, dead->object);
  EXPECT_EQ(state.progId, kPowerPoint);
  EXPECT_EQ(times("running PowerPoint.Application"), 0u);
}

TEST_F(ShowPollTest, AFreshShowReplacesADeadReference) {
  const auto dead = world.automation.add(kPowerPoint);
  dead->dead = true;
  state.application = dead->object;
  state.progId = kPowerPoint;
  const auto live = world.automation.add(kWps);
  live->addShow(live->addDeck(u"C:\\a.pptx"), 0);
  EXPECT_EQ(poll().provider, kWps);
  EXPECT_EQ(state.application, live->object);
  EXPECT_EQ(state.progId, kWps);
}

TEST_F(ShowPollTest, OfTwoShowsTheProviderThatLastShowedSomethingWins) {
  for (const char16_t* progId : {kPowerPoint, kWps}) {
    const auto application = world.automation.add(progId);
    application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  }
  state.progId = kWps;
  EXPECT_EQ(poll().provider, kWps);
  state = {};
  EXPECT_EQ(poll().provider, kPowerPoint);
}

// --- a show found by automation ---

TEST_F(ShowPollTest, AShowIsReportedWithAllThatItsApplicationKnows) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\decks\\a.pptx"), 77, 12);
  world.addShowWindow(77);
  const ShowStatus status = poll();
  EXPECT_EQ(status, (ShowStatus{.running = true,
                                .presentationsOpen = true,
                                .slide = 12,
                                .window = {77},
                                .documentPath = u"C:\\decks\\a.pptx",
                                .normalizedPath = u"C:\\decks\\a.pptx",
                                .provider = kPowerPoint,
                                .windowTitle = u"",
                                .documentState = DocumentState::Open}));
}

TEST_F(ShowPollTest, TheCallsOfAPollThatFindsAShowStandInThisOrder) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 77);
  world.addShowWindow(77);
  (void)poll();
  EXPECT_EQ(world.log,
            (Log{"running PowerPoint.Application", "get application.Presentations",
                 "get presentations.Count", "get application.SlideShowWindows", "get shows.Count",
                 "get shows.Count", "both shows.Item 1", "get shows.Count", "get show.View",
                 "get view.Slide", "get show.Presentation", "get slide.SlideIndex",
                 "get presentation.FullName", "get show.HWND"}));
}

TEST_F(ShowPollTest, AShowMakesItsApplicationTheKeptOne) {
  const auto application = world.automation.add(kWps);
  application->addShow(application->addDeck(u"C:/decks/x/../a.pptx"), 0);
  (void)poll();
  EXPECT_EQ(state.application, application->object);
  EXPECT_EQ(state.progId, kWps);
  EXPECT_EQ(state.lastDocument, normal(u"C:/decks/a.pptx"));
  EXPECT_EQ(state.lastProvider, kWps);
  EXPECT_EQ(state.expectedDocument, u"");
}

TEST_F(ShowPollTest, TheDocumentPathIsReportedAsTheApplicationTellsItAndNormalised) {
  const auto application = world.automation.add(kWps);
  application->addShow(application->addDeck(u"C:/decks/x/../a.pptx"), 0);
  const ShowStatus status = poll();
  EXPECT_EQ(status.documentPath, u"C:/decks/x/../a.pptx");
  EXPECT_EQ(status.normalizedPath, u"C:\\decks\\a.pptx");
}

TEST_F(ShowPollTest, AFileSystemThatFailsLeavesTheTidyPath) {
  world.files.failing = {FilesFake::Operation::Canonical};
  const auto application = world.automation.add(kWps);
  application->addShow(application->addDeck(u"C:/decks/./a.pptx"), 0);
  EXPECT_EQ(poll().normalizedPath, u"C:\\decks\\a.pptx");
}

TEST_F(ShowPollTest, TheShowOfTheExpectedDocumentIsReported) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  application->addShow(application->addDeck(u"C:\\b.pptx"), 0);
  state.expectedDocument = normal(u"C:\\b.pptx");
  EXPECT_EQ(poll().documentPath, u"C:\\b.pptx");
}

TEST_F(ShowPollTest, AShowEndsThePollBeforeTheDesktopIsScanned) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 77);
  world.addShowWindow(77);
  (void)poll();
  EXPECT_EQ(world.windows.scans, 0);
  EXPECT_EQ(times("running KWPP.Application"), 0u);
}

TEST_F(ShowPollTest, AShowOfALaterProviderKeepsWhatEarlierOnesToldOfOpenPresentations) {
  world.automation.add(kPowerPoint)->addDeck(u"C:\\b.pptx");
  const auto wps = world.automation.add(kWps);
  wps->addShow(wps->addDeck(u"C:\\a.pptx"), 0);
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "running KWPP.Application") world.automation.fail("presentations.Count");
  };
  const ShowStatus status = poll();
  EXPECT_EQ(status.provider, kWps);
  EXPECT_TRUE(status.presentationsOpen);
}

TEST_F(ShowPollTest, AShowWithoutALegibleDocumentHasNoPathAndIsNotRemembered) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0, 3);
  state.lastDocument = u"C:\\old.pptx";
  state.lastProvider = kWps;
  world.automation.fail("presentation.FullName");
  const ShowStatus status = poll();
  EXPECT_TRUE(status.running);
  EXPECT_EQ(status.documentPath, u"");
  EXPECT_EQ(status.slide, 3);
  EXPECT_EQ(status.documentState, DocumentState::Open);
  EXPECT_EQ(state.lastDocument, u"C:\\old.pptx");
  EXPECT_EQ(state.lastProvider, kWps);
  EXPECT_EQ(state.progId, kPowerPoint);
}

TEST_F(ShowPollTest, AShowWithoutALegiblePresentationHasNoPath) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  world.automation.fail("show.Presentation");
  const ShowStatus status = poll();
  EXPECT_TRUE(status.running);
  EXPECT_EQ(status.documentPath, u"");
}

TEST_F(ShowPollTest, AShowWithoutALegibleSlideHasSlideZero) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0, 3);
  for (const char* member : {"show.View", "view.Slide", "slide.SlideIndex"}) {
    world.automation.answers.clear();
    world.automation.fail(member);
    const ShowStatus status = poll();
    EXPECT_TRUE(status.running) << member;
    EXPECT_EQ(status.slide, 0) << member;
    EXPECT_EQ(status.documentPath, u"C:\\a.pptx") << member;
  }
}

TEST_F(ShowPollTest, AShowWhoseWindowIsNowhereIsRunningWithoutAWindow) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 77);
  world.addEditWindow(5, u"a.pptx");
  world.automation.fail("show.HWND");
  const ShowStatus status = poll();
  EXPECT_TRUE(status.running);
  EXPECT_FALSE(status.window);
}

TEST_F(ShowPollTest, AShowWhoseHandleFailsGetsTheWindowOfItsDocument) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  world.addShowWindow(5, u"Slide Show - a.pptx");
  world.addShowWindow(6, u"Slide Show - b.pptx");
  EXPECT_EQ(poll().window, WindowHandle{5});
}

TEST_F(ShowPollTest, AnApplicationWithoutPresentationsIsStillAskedForItsShow) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  world.automation.fail("application.Presentations");
  const ShowStatus status = poll();
  EXPECT_TRUE(status.running);
  EXPECT_FALSE(status.presentationsOpen);
  EXPECT_EQ(times("get presentations.Count"), 0u);
}

// --- the list of open presentations ---

TEST_F(ShowPollTest, WhatIsKnownAtItsBeginningIsWhatAPollGoesBy) {
  (void)applicationAfterAShow();
  world.automation.beforeCall = [this](const std::string& entry) {
    if (entry == "get presentations.Count") state.lastDocument = u"C:\\gone.pptx";
  };
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, ADeckThatWasOpenedUnderAnotherSpellingIsStillOpenAfterItsShow) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:/talks/drafts/../a.pptx"), 0);
  (void)poll();
  application->shows.clear();
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, WithNothingRememberedNoPresentationIsVisited) {
  world.automation.add(kPowerPoint)->addDeck(u"C:\\a.pptx");
  EXPECT_TRUE(poll().presentationsOpen);
  EXPECT_EQ(times("both presentations.Item 1"), 0u);
}

TEST_F(ShowPollTest, AllPresentationsAreVisitedEvenAfterAMatchWithTheCountReadOnce) {
  applicationAfterAShow()->addDeck(u"C:\\c.pptx");
  (void)poll();
  EXPECT_EQ(world.log, (Log{"get application.Presentations", "get presentations.Count",
                            "both presentations.Item 1", "get presentation.FullName",
                            "both presentations.Item 2", "get presentation.FullName",
                            "both presentations.Item 3", "get presentation.FullName",
                            "get application.SlideShowWindows", "get shows.Count",
                            "running KWPP.Application", "running WPP.Application"}));
}

TEST_F(ShowPollTest, ACollectionThatShrinksDuringThePollIsIncomplete) {
  const auto application = applicationAfterAShow();
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "both presentations.Item 1") application->decks.clear();
  };
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
  EXPECT_EQ(times("both presentations.Item 2"), 1u);
}

TEST_F(ShowPollTest, WithoutApplicationsAndWindowsTheDocumentIsClosed) {
  const ShowStatus status = poll();
  EXPECT_EQ(status, (ShowStatus{.running = false,
                                .presentationsOpen = false,
                                .slide = 0,
                                .window = {},
                                .documentPath = u"",
                                .provider = u"",
                                .windowTitle = u"",
                                .documentState = DocumentState::Closed}));
  EXPECT_EQ(world.windows.scans, 1);
}

TEST_F(ShowPollTest, AnOpenDeckWithoutAShowCountsAsOpenPresentation) {
  world.automation.add(kPowerPoint)->addDeck(u"C:\\a.pptx");
  world.addEditWindow(5, u"a.pptx");
  const ShowStatus status = poll();
  EXPECT_FALSE(status.running);
  EXPECT_TRUE(status.presentationsOpen);
  EXPECT_EQ(status.provider, u"");
}

TEST_F(ShowPollTest, ADocumentThatStaysOpenAfterItsShowIsOpen) {
  applicationAfterAShow();
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, TheLastDocumentIsKnownAgainInAnotherCase) {
  const auto application = applicationAfterAShow();
  application->decks[0]->path = u"c:\\A.PPTX";
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, ADocumentThatIsClosedWithOthersStillOpenIsClosed) {
  const auto application = applicationAfterAShow();
  application->decks.erase(application->decks.begin());
  world.addEditWindow(5, u"b.pptx");
  const ShowStatus status = poll();
  EXPECT_TRUE(status.presentationsOpen);
  EXPECT_EQ(status.documentState, DocumentState::Closed);
}

TEST_F(ShowPollTest, ACompleteListOutweighsATitleThatNamesTheDocument) {
  const auto application = applicationAfterAShow();
  application->decks.erase(application->decks.begin());
  world.addEditWindow(5, u"a.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Closed);
}

TEST_F(ShowPollTest, AMatchInAnyProvidersListIsOpen) {
  applicationAfterAShow()->decks.clear();
  world.automation.add(kWps)->addDeck(u"C:\\a.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, APresentationWithoutANameMakesTheListIncomplete) {
  const auto application = applicationAfterAShow();
  application->decks[0]->path = u"";
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, AnElementThatDoesNotComeBackMakesTheListIncomplete) {
  applicationAfterAShow();
  world.automation.fail("presentations.Item");
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, AMatchInAnIncompleteListIsOpen) {
  applicationAfterAShow()->addDeck(u"");
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, ACountThatCanNotBeReadMakesTheListIncompleteAndShort) {
  applicationAfterAShow();
  world.automation.fail("presentations.Count");
  world.addEditWindow(5, u"other.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
  EXPECT_EQ(times("both presentations.Item 1"), 0u);
}

TEST_F(ShowPollTest, ACountThatIsNoNumberMakesTheListIncomplete) {
  applicationAfterAShow();
  world.automation.answers["presentations.Count"] = {kAutomationOk, u"many"};
  world.addEditWindow(5, u"other.pptx");
  const ShowStatus status = poll();
  EXPECT_EQ(status.documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, ACountThatComesAsATextOfDigitsIsTaken) {
  applicationAfterAShow();
  world.automation.answers["presentations.Count"] = {kAutomationOk, u"2"};
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, WithoutPresentationsTheProviderCanNotDeclareTheDocumentClosed) {
  applicationAfterAShow();
  world.automation.fail("application.Presentations");
  world.addEditWindow(5, u"other.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, ACompleteListOfAnotherProviderDoesNotCloseTheDocument) {
  const auto application = applicationAfterAShow();
  application->dead = true;
  world.automation.add(kWps)->addDeck(u"C:\\c.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, AnEmptyListOfItsProviderClosesTheDocument) {
  applicationAfterAShow()->decks.clear();
  EXPECT_EQ(poll().documentState, DocumentState::Closed);
}

TEST_F(ShowPollTest, ATitleThatNamesTheLastDocumentIsOpenWhenNoListTells) {
  const auto application = applicationAfterAShow();
  application->dead = true;
  world.addEditWindow(5, u"b.pptx");
  world.addEditWindow(6, u"a.pptx");
  const ShowStatus status = poll();
  EXPECT_EQ(status.documentState, DocumentState::Open);
  EXPECT_TRUE(status.presentationsOpen);
}

TEST_F(ShowPollTest, TitlesMeanNothingWithoutARememberedDocument) {
  world.addEditWindow(6, u"a.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, AfterTheApplicationHasGoneItsDocumentIsClosed) {
  const auto application = applicationAfterAShow();
  application->dead = true;
  application->runs = false;
  EXPECT_EQ(poll().documentState, DocumentState::Closed);
}

TEST_F(ShowPollTest, OpenPresentationsOfAnotherKindLeaveTheDocumentUnknown) {
  const auto application = applicationAfterAShow();
  application->dead = true;
  world.addEditWindow(5, u"b.pptx");
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, TheMemoryOfAShowOutlivesIt) {
  const auto application = applicationAfterAShow();
  (void)poll();
  EXPECT_EQ(state.application, application->object);
  EXPECT_EQ(state.progId, kPowerPoint);
  EXPECT_EQ(state.lastDocument, normal(u"C:\\a.pptx"));
  EXPECT_EQ(state.lastProvider, kPowerPoint);
}

// --- the desktop ---

TEST_F(ShowPollTest, AShowThatOnlyTheDesktopShowsHasNoSlideAndNoDocument) {
  world.addShowWindow(5, u"Slide Show - a.pptx");
  const ShowStatus status = poll();
  EXPECT_EQ(status, (ShowStatus{.running = true,
                                .presentationsOpen = true,
                                .slide = 0,
                                .window = {5},
                                .documentPath = u"",
                                .provider = u"原生窗口检测",
                                .windowTitle = u"Slide Show - a.pptx",
                                .documentState = DocumentState::Open}));
  EXPECT_FALSE(state.application);
  EXPECT_EQ(state.progId, u"");
  EXPECT_EQ(state.lastDocument, u"");
}

TEST_F(ShowPollTest, TheDesktopIsScannedWithoutAFilter) {
  state.lastDocument = state.expectedDocument = u"C:\\a.pptx";
  world.addShowWindow(5, u"Slide Show - b.pptx");
  EXPECT_EQ(poll().window, WindowHandle{5});
}

TEST_F(ShowPollTest, ARunningShowOnTheDesktopOutweighsAClosedDocument) {
  applicationAfterAShow()->decks.clear();
  world.addShowWindow(5);
  EXPECT_EQ(poll().documentState, DocumentState::Open);
}

TEST_F(ShowPollTest, AShowWindowThatDoesNotCoverItsMonitorIsNoShow) {
  world.addShowWindow(5);
  world.windows.windows[0].rect = {100, 100, 800, 600};
  const ShowStatus status = poll();
  EXPECT_FALSE(status.running);
  EXPECT_TRUE(status.presentationsOpen);
}

// --- applications that misbehave ---

TEST_F(ShowPollTest, AnApplicationMayDieBeforeAnyCallOfThePoll) {
  applicationAfterAShow();
  const AutomationState before = state;
  const auto application = world.automation.add(kWps);
  application->addShow(application->addDeck(u"C:\\c.pptx"), 0);
  (void)poll();
  const size_t calls = world.log.size();
  ASSERT_GT(calls, 15u);
  for (size_t survived = 0; survived < calls; ++survived) {
    state = before;
    application->dead = false;
    size_t seen = 0;
    world.automation.beforeCall = [&](const std::string&) {
      if (seen++ == survived) application->dead = true;
    };
    const ShowStatus status = poll();
    // Once a show has been found it is reported, with whatever could still be read.
    EXPECT_EQ(status.provider, std::u16string(status.running ? kWps : u"")) << survived;
    EXPECT_TRUE(status.documentPath.empty() || status.documentPath == u"C:\\c.pptx");
  }
}

TEST_F(ShowPollTest, NonsenseFromAnyMemberIsTakenForNothing) {
  const AutomationValue nonsense[] = {{}, 0, -1, INT32_MIN, INT32_MAX, u"", u"x", AutomationRef()};
  const auto application = applicationAfterAShow();
  application->addShow(application->decks[0], 0, 4);
  (void)poll();
  const Log calls = world.log;
  const AutomationState before = state;
  for (const std::string& entry : calls) {
    const std::string member = entry.substr(entry.find(' ') + 1);
    for (const AutomationValue& value : nonsense) {
      state = before;
      world.automation.answers = {{member.substr(0, member.find(' ')), {kAutomationOk, value}}};
      const ShowStatus status = poll();
      EXPECT_LE(world.log.size(), 4000u) << entry;
      EXPECT_TRUE(status.running || status.slide == 0) << entry;
    }
  }
}

TEST_F(ShowPollTest, AHugeCountIsCutAndTheListCountsAsIncomplete) {
  applicationAfterAShow()->decks.clear();
  world.automation.answers["presentations.Count"] = {kAutomationOk, INT32_MAX};
  const ShowStatus status = poll();
  EXPECT_EQ(status.documentState, DocumentState::Unknown);
  EXPECT_TRUE(status.presentationsOpen);
  EXPECT_EQ(times("both presentations.Item 1000"), 1u);
  EXPECT_EQ(times("both presentations.Item 1001"), 0u);
}

TEST_F(ShowPollTest, ALongListInWhichEveryNameIsToldIsIncompleteOnlyBeyondTheBound) {
  const auto application = applicationAfterAShow();
  application->decks.assign(1000, application->decks[1]);
  EXPECT_EQ(poll().documentState, DocumentState::Closed);
  application->decks.push_back(application->decks[0]);
  EXPECT_EQ(poll().documentState, DocumentState::Unknown);
}

TEST_F(ShowPollTest, ANegativeCountIsACompleteEmptyList) {
  applicationAfterAShow();
  world.automation.answers["presentations.Count"] = {kAutomationOk, -5};
  const ShowStatus status = poll();
  EXPECT_FALSE(status.presentationsOpen);
  EXPECT_EQ(status.documentState, DocumentState::Closed);
}

TEST_F(ShowPollTest, AHugeCountOfShowsEndsTheSearchAtTheBound) {
  const auto application = world.automation.add(kPowerPoint);
  application->addShow(application->addDeck(u"C:\\a.pptx"), 0);
  world.automation.answers["shows.Count"] = {kAutomationOk, INT32_MAX};
  EXPECT_EQ(poll().documentPath, u"C:\\a.pptx");
  EXPECT_EQ(times("both shows.Item 1000"), 1u);
  EXPECT_EQ(times("both shows.Item 1001"), 0u);
}

}  // namespace
}  // namespace mrl
