// Opening without playing, and raising. Playing and closing are tested in files of their own.
#include "presentation/documents.h"

#include <filesystem>

#include "presentation/documents_fixture.h"

namespace mrl {
namespace {

// --- the file ---

TEST_F(DocumentsTest, AFileThatIsMissingIsRefusedAndAutomationNotTouched) {
  keep(application);
  for (const bool play : {false, true}) {
    error = kUntouched;
    EXPECT_FALSE(open(u"C:\\Talks\\gone.pptx", play));
    EXPECT_EQ(error, u"演示文件不存在");
    EXPECT_TRUE(world.log.empty());
  }
  EXPECT_EQ(world.state.application, application->object);
}

TEST_F(DocumentsTest, AFolderIsRefused) {
  EXPECT_FALSE(open(u"C:\\Talks", true));
  EXPECT_EQ(error, u"演示文件不存在");
  EXPECT_TRUE(world.log.empty());
}

TEST_F(DocumentsTest, AnEmptyPathIsRefused) {
  EXPECT_FALSE(open(u"", true));
  EXPECT_EQ(error, u"演示文件不存在");
}

TEST_F(DocumentsTest, TroubleWithTheFileIsThrownAndAutomationNotTouched) {
  world.files.denyAccess(kDeck);
  try {
    (void)open(kDeck, true);
    FAIL() << "nothing was thrown";
  } catch (const std::filesystem::filesystem_error& thrown) {
    EXPECT_NE(std::string(thrown.what()).find("status: Access is denied."), std::string::npos)
        << thrown.what();
  }
  EXPECT_EQ(error, kUntouched);
  EXPECT_TRUE(world.log.empty());
}

// --- the search ---

TEST_F(DocumentsTest, AllRunningApplicationsAreListedBeforeTheFirstIsSearched) {
  keep(application);
  application->addDeck(kOther);
  application->addDeck(kDeck);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log, join({before, others, searching(1, true)}));
  EXPECT_EQ(error, kUntouched);
}

TEST_F(DocumentsTest, WithoutAKeptApplicationEveryProviderIsAskedInTheirOrder) {
  application->addDeck(kDeck);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log,
            join({before, {"running PowerPoint.Application"}, others, searching(0, true)}));
  EXPECT_EQ(world.state.application, application->object);
  EXPECT_EQ(world.state.progId, u"PowerPoint.Application");
}

TEST_F(DocumentsTest, TheKeptApplicationIsSearchedFirst) {
  const auto wps = world.automation.add(u"WPP.Application");
  keep(wps);
  application->addDeck(kDeck);
  wps->addDeck(kDeck);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log, join({before,
                             {"running PowerPoint.Application", "running KWPP.Application"},
                             searching(0, true)}));
  EXPECT_EQ(world.state.progId, u"WPP.Application");
}

TEST_F(DocumentsTest, TheApplicationThatHoldsTheDeckIsAdopted) {
  keep(application);
  const auto wps = world.automation.add(u"KWPP.Application");
  wps->addDeck(kDeck);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log, join({before, others, searching(0, false), searching(0, true)}));
  EXPECT_EQ(world.state.application, wps->object);
  EXPECT_EQ(world.state.progId, u"KWPP.Application");
}

TEST_F(DocumentsTest, ADeckThatIsOpenIsNotOpenedAgain) {
  application->addDeck(kDeck);
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_FALSE(called("presentations.Open"));
  EXPECT_EQ(application->decks.size(), 1u);
}

TEST_F(DocumentsTest, LetterCaseMakesNoOtherDocument) {
  application->addDeck(u"c:\\TALKS\\Deck.PPTX");
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_FALSE(called("presentations.Open"));
}

TEST_F(DocumentsTest, SeparatorsMakeNoOtherDocument) {
  application->addDeck(u"C:/Talks//deck.pptx");
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_FALSE(called("presentations.Open"));
}

TEST_F(DocumentsTest, RelativePartsMakeNoOtherDocument) {
  application->addDeck(kDeck);
  EXPECT_TRUE(open(u"C:\\Talks\\.\\old\\..\\deck.pptx", false));
  EXPECT_FALSE(called("presentations.Open"));
}

TEST_F(DocumentsTest, APresentationWithoutAPathIsPassedOver) {
  keep(application);
  application->addDeck(u"");
  application->addDeck(kDeck);
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_TRUE(logged("both presentations.Item 2"));
  EXPECT_FALSE(called("presentations.Open"));
}

TEST_F(DocumentsTest, ACollectionThatShrinksEndsTheSearch) {
  keep(application);
  for (const char16_t* path : {kOther, kOther, kOther}) application->addDeck(path);
  const auto before = lookingAtTheScreen();
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "both presentations.Item 1") application->decks.resize(1);
  };
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(std::count(world.log.begin(), world.log.end(), "both presentations.Item 2"), 0);
  EXPECT_TRUE(called("presentations.Open"));
}

TEST_F(DocumentsTest, APollThatSeesAShowElsewhereTurnsToThatApplication) {
  keep(application);
  const auto wps = world.automation.add(u"KWPP.Application");
  wps->addShow(wps->addDeck(kOther), 77);
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.state.progId, u"KWPP.Application");
  ASSERT_EQ(wps->decks.size(), 2u);
  EXPECT_EQ(wps->decks[1]->path, kDeck);
}

// --- opening ---

TEST_F(DocumentsTest, OpenGetsThePathAsGivenAndAWindow) {
  keep(application);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(u"c:/Talks/./deck.pptx", false));
  EXPECT_EQ(world.log, join({before,
                             others,
                             searching(0, false),
                             {"get application.Presentations",
                              "method presentations.Open c:/Talks/./deck.pptx 0 0 -1"}}));
  EXPECT_EQ(error, kUntouched);
  EXPECT_EQ(world.state.expectedDocument, u"");
}

TEST_F(DocumentsTest, WithoutAKeptApplicationARunningOneOpensTheDeck) {
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log, join({before,
                             {"running PowerPoint.Application"},
                             others,
                             searching(0, false),
                             {"running PowerPoint.Application", "get application.Presentations",
                              "method presentations.Open C:\\Talks\\deck.pptx 0 0 -1"}}));
  EXPECT_EQ(world.state.application, application->object);
}

TEST_F(DocumentsTest, AnApplicationIsStartedWhenNoneRuns) {
  application->runs = false;
  application->startable = true;
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_TRUE(logged("start PowerPoint.Application"));
  EXPECT_FALSE(logged("start KWPP.Application"));
  EXPECT_EQ(world.state.application, application->object);
  EXPECT_EQ(world.state.progId, u"PowerPoint.Application");
  EXPECT_EQ(application->decks.size(), 1u);
}

TEST_F(DocumentsTest, TheProvidersAreStartedInTheirOrderUntilOneComesUp) {
  application->runs = false;
  const auto wps = world.automation.add(u"KWPP.Application");
  wps->runs = false;
  wps->startable = true;
  const Log asked = join({{"running PowerPoint.Application"}, others});
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log, join({before,
                             asked,
                             asked,
                             {"start PowerPoint.Application", "start KWPP.Application",
                              "get application.Presentations",
                              "method presentations.Open C:\\Talks\\deck.pptx 0 0 -1"}}));
  EXPECT_EQ(world.state.progId, u"KWPP.Application");
}

TEST_F(DocumentsTest, WithoutAnyApplicationTheTimerStandsAlone) {
  application->runs = false;
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"没有可用的 Office/WPS COM 服务；计时器可独立使用");
  EXPECT_EQ(world.log.back(), "start WPP.Application");
  EXPECT_EQ(world.state.application, nullptr);
  EXPECT_EQ(world.state.progId, u"");
}

TEST_F(DocumentsTest, AnOpenThatFailsIsTold) {
  world.automation.fail("presentations.Open");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法通过 COM 打开演示文件");
  EXPECT_EQ(world.log.back(), "method presentations.Open C:\\Talks\\deck.pptx 0 0 -1");
}

TEST_F(DocumentsTest, AnOpenThatGivesNoPresentationIsTold) {
  world.automation.answers["presentations.Open"] = {kAutomationOk, {}};
  EXPECT_FALSE(open(kDeck, false));
  EXPECT_EQ(error, u"无法通过 COM 打开演示文件");
}

TEST_F(DocumentsTest, AFailedOpenLeavesTheRunningShowAlone) {
  application->addShow(application->addDeck(kOther), 77);
  world.automation.fail("presentations.Open");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(application->shows.size(), 1u);
  EXPECT_FALSE(called("view.Exit"));
}

TEST_F(DocumentsTest, ADeadKeptApplicationIsNeitherTestedNorReplaced) {
  keep(application);
  application->dead = true;
  const auto wps = world.automation.add(u"KWPP.Application");
  EXPECT_FALSE(open(kDeck, true));
  EXPECT_EQ(error, u"无法通过 COM 打开演示文件");
  EXPECT_EQ(world.state.application, application->object);
  EXPECT_EQ(world.state.progId, u"PowerPoint.Application");
  EXPECT_FALSE(called("application.Name"));
  EXPECT_TRUE(wps->decks.empty());
}

TEST_F(DocumentsTest, ADeadKeptApplicationDoesNotHideADeckThatAnotherHolds) {
  keep(application);
  application->dead = true;
  const auto wps = world.automation.add(u"KWPP.Application");
  wps->addDeck(kDeck);
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.state.application, wps->object);
}

TEST_F(DocumentsTest, OpeningWithoutPlayingLeavesTheShowAndItsWindowAlone) {
  keep(application);
  application->addShow(application->addDeck(kOther), 77, 5);
  const auto before = lookingAtTheScreen();
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_EQ(world.log, join({before,
                             others,
                             searching(1, false),
                             {"get application.Presentations",
                              "method presentations.Open C:\\Talks\\deck.pptx 0 0 -1"}}));
  ASSERT_EQ(application->shows.size(), 1u);
  EXPECT_EQ(application->shows[0]->slide, 5);
  EXPECT_EQ(world.state.expectedDocument, u"");
}

TEST_F(DocumentsTest, OpeningTheDeckOnScreenWithoutPlayingRaisesNothing) {
  keep(application);
  application->addShow(application->addDeck(kDeck), 77);
  EXPECT_TRUE(open(kDeck, false));
  EXPECT_FALSE(logged("show 77"));
}

// --- raising ---

TEST_F(DocumentsTest, TheShowOfTheDocumentIsRaisedAfterAPoll) {
  keep(application);
  application->addShow(application->addDeck(kDeck), 77);
  AutomationState copy = world.state;
  (void)pollShowStatus(world.access, copy);
  const Log poll = world.log;
  EXPECT_TRUE(raise(kDeck));
  EXPECT_EQ(world.log, join({poll, raised("77")}));
}

TEST_F(DocumentsTest, TheShowIsKnownUnderEverySpellingOfThePath) {
  application->addShow(application->addDeck(kDeck), 77);
  EXPECT_TRUE(raise(u"c:/talks/./DECK.pptx"));
}

TEST_F(DocumentsTest, ARefusedForegroundIsTheResult) {
  application->addShow(application->addDeck(kDeck), 77);
  world.windows.foregroundRefused = true;
  EXPECT_FALSE(raise(kDeck));
  EXPECT_TRUE(logged("foreground 77"));
}

TEST_F(DocumentsTest, TheShowOfAnotherDocumentIsNotRaised) {
  application->addShow(application->addDeck(kOther), 77);
  EXPECT_FALSE(raise(kDeck));
  EXPECT_FALSE(logged("show 77"));
}

TEST_F(DocumentsTest, ADeckThatIsOpenButNotShownIsNotRaised) {
  application->addDeck(kDeck);
  world.addEditWindow(5, u"deck.pptx - PowerPoint");
  EXPECT_FALSE(raise(kDeck));
  EXPECT_FALSE(logged("show 5"));
}

TEST_F(DocumentsTest, AShowWithoutAWindowIsNotRaised) {
  application->addShow(application->addDeck(kDeck), 0);
  EXPECT_FALSE(raise(kDeck));
  EXPECT_FALSE(logged("foreground 0"));
}

TEST_F(DocumentsTest, NoPathRaisesNothing) {
  application->addShow(application->addDeck(kDeck), 77);
  EXPECT_FALSE(raise(u""));
  EXPECT_FALSE(logged("show 77"));
}

TEST_F(DocumentsTest, AShowThatOnlyTheDesktopKnowsIsTheDocumentsByItsTitle) {
  application->runs = false;
  world.addShowWindow(5, u"Slide Show - [deck.pptx]");
  EXPECT_TRUE(raise(kDeck));
  EXPECT_EQ(world.log.back(), "foreground 5");
}

TEST_F(DocumentsTest, AShowThatOnlyTheDesktopKnowsByAnotherTitleIsNotRaised) {
  application->runs = false;
  world.addShowWindow(5, u"Slide Show - [deck2.pptx]");
  EXPECT_FALSE(raise(kDeck));
  EXPECT_FALSE(logged("show 5"));
}

}  // namespace
}  // namespace mrl
