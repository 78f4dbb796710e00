// Closing a deck in whichever application has it open.
#include "presentation/documents_fixture.h"

namespace mrl {
namespace {

TEST_F(DocumentsTest, CloseListsTheApplicationsAndClosesTheDeck) {
  keep(application);
  application->addDeck(kOther);
  application->addDeck(kDeck);
  EXPECT_TRUE(close(kDeck));
  EXPECT_EQ(world.log, join({{"running PowerPoint.Application"},
                             others,
                             searching(1, true),
                             {"method presentation.Close"}}));
  ASSERT_EQ(application->decks.size(), 1u);
  EXPECT_EQ(application->decks[0]->path, kOther);
  EXPECT_EQ(error, kUntouched);
}

TEST_F(DocumentsTest, CloseSearchesTheKeptApplicationFirst) {
  const auto wps = world.automation.add(u"WPP.Application");
  keep(wps);
  application->addDeck(kDeck);
  wps->addDeck(kDeck);
  EXPECT_TRUE(close(kDeck));
  EXPECT_EQ(application->decks.size(), 1u);
  EXPECT_TRUE(wps->decks.empty());
}

TEST_F(DocumentsTest, CloseFindsTheDeckInALaterApplication) {
  const auto wps = world.automation.add(u"WPP.Application");
  wps->addDeck(kDeck);
  application->addDeck(kOther);
  EXPECT_TRUE(close(kDeck));
  EXPECT_TRUE(wps->decks.empty());
  EXPECT_EQ(application->decks.size(), 1u);
}

TEST_F(DocumentsTest, CloseSearchesTheKeptApplicationTwiceWhenItAlsoRuns) {
  keep(application);
  EXPECT_FALSE(close(kDeck));
  EXPECT_EQ(
      world.log,
      join({{"running PowerPoint.Application"}, others, searching(0, false), searching(0, false)}));
}

TEST_F(DocumentsTest, CloseGoesOnFromAKeptApplicationThatIsDead) {
  const auto wps = world.automation.add(u"WPP.Application");
  keep(wps);
  wps->dead = true;
  application->addDeck(kDeck);
  EXPECT_TRUE(close(kDeck));
  EXPECT_TRUE(application->decks.empty());
}

TEST_F(DocumentsTest, CloseTakesEverySpellingOfThePath) {
  for (const char16_t* path :
       {u"c:\\TALKS\\deck.PPTX", u"C:/Talks/deck.pptx", u"C:\\Talks\\x\\..\\deck.pptx"}) {
    application->addDeck(kDeck);
    EXPECT_TRUE(close(path));
    EXPECT_TRUE(application->decks.empty());
  }
}

TEST_F(DocumentsTest, CloseNeedsNoFile) {
  application->addDeck(u"C:\\Talks\\gone.pptx");
  EXPECT_TRUE(close(u"C:\\Talks\\gone.pptx"));
}

TEST_F(DocumentsTest, ClosePassesOverAPresentationWithoutAPath) {
  application->addDeck(u"");
  application->addDeck(kDeck);
  EXPECT_TRUE(close(kDeck));
  EXPECT_EQ(application->decks.size(), 1u);
}

TEST_F(DocumentsTest, CloseStopsWhereTheCollectionShrinks) {
  for (const char16_t* path : {kOther, kOther, kOther}) application->addDeck(path);
  world.automation.beforeCall = [&](const std::string& entry) {
    if (entry == "both presentations.Item 1") application->decks.resize(1);
  };
  EXPECT_FALSE(close(kDeck));
  EXPECT_FALSE(logged("both presentations.Item 2"));
}

TEST_F(DocumentsTest, CloseDoesNotEndTheShowItself) {
  keep(application);
  application->addShow(application->addDeck(kDeck), 77);
  EXPECT_TRUE(close(kDeck));
  EXPECT_FALSE(called("view.Exit"));
}

TEST_F(DocumentsTest, CloseLeavesTheStateAlone) {
  const auto wps = world.automation.add(u"WPP.Application");
  keep(application);
  world.state.expectedDocument = kDeck;
  wps->addDeck(kDeck);
  EXPECT_TRUE(close(kDeck));
  EXPECT_EQ(world.state.application, application->object);
  EXPECT_EQ(world.state.progId, u"PowerPoint.Application");
  EXPECT_EQ(world.state.expectedDocument, kDeck);
}

TEST_F(DocumentsTest, ACloseThatFailsIsToldAndEndsTheSearch) {
  const auto wps = world.automation.add(u"WPP.Application");
  application->addDeck(kDeck);
  wps->addDeck(kDeck);
  world.automation.fail("presentation.Close");
  EXPECT_FALSE(close(kDeck));
  EXPECT_EQ(error, u"无法关闭指定文稿，请检查是否有未保存的更改");
  EXPECT_EQ(world.log.back(), "method presentation.Close");
  EXPECT_EQ(application->decks.size() + wps->decks.size(), 2u);
}

TEST_F(DocumentsTest, ADeckThatIsNotOpenCanNotBeClosed) {
  application->addDeck(kOther);
  EXPECT_FALSE(close(kDeck));
  EXPECT_EQ(error, u"指定文稿没有打开");
  EXPECT_EQ(application->decks.size(), 1u);
}

TEST_F(DocumentsTest, NothingCanBeClosedWhileNoApplicationRuns) {
  application->runs = false;
  EXPECT_FALSE(close(kDeck));
  EXPECT_EQ(error, u"指定文稿没有打开");
  EXPECT_EQ(world.log, join({{"running PowerPoint.Application"}, others}));
}

}  // namespace
}  // namespace mrl
