// When a show counts as another document, and what is kept of a document.
#include "core/show_follower_fixture.h"

namespace mrl {
namespace {

class DocumentTest : public FollowerFixture {
 protected:
  /// Whether a show of `now` after one of `last` counts as another document.
  bool differs(const ShowObservation& last, const ShowObservation& now) {
    follower = {};
    timer = {};
    see(last);
    waitSeconds(60);
    see(now);
    return elapsedMs() == 0;
  }
};

ShowObservation showNaming(const std::u16string& path, const std::u16string& title) {
  ShowObservation seen = showOf(path);
  seen.title = title;
  return seen;
}

ShowObservation namelessShow() { return showTitled(u""); }

TEST_F(DocumentTest, TwoPathsAreComparedWhateverTheTitlesSay) {
  EXPECT_TRUE(differs(showOf(kTalk), showOf(kOther)));
  EXPECT_FALSE(differs(showOf(kTalk), showOf(kTalk)));
  EXPECT_TRUE(differs(showNaming(kTalk, kTalkTitle), showNaming(kOther, kTalkTitle)));
  EXPECT_FALSE(differs(showNaming(kTalk, kTalkTitle), showNaming(kTalk, kOtherTitle)));
}

TEST_F(DocumentTest, TwoPathsAreComparedWithoutCase) {
  EXPECT_FALSE(differs(showOf(kTalk), showOf(u"c:\\TALKS\\Talk.PPTX")));
}

TEST_F(DocumentTest, TwoFilesOfOneNameInTwoFoldersAreTwoDocuments) {
  EXPECT_TRUE(differs(showOf(kTalk), showOf(u"D:\\Talks\\talk.pptx")));
}

TEST_F(DocumentTest, ATitleAfterAPathMustNameThePath) {
  EXPECT_FALSE(differs(showOf(kTalk), showTitled(kTalkTitle)));
  EXPECT_TRUE(differs(showOf(kTalk), showTitled(kOtherTitle)));
}

TEST_F(DocumentTest, ATitleAfterAPathIsNotComparedWithTheLastTitle) {
  EXPECT_TRUE(differs(showNaming(kTalk, kOtherTitle), showTitled(kOtherTitle)));
  EXPECT_FALSE(differs(showNaming(kTalk, kOtherTitle), showTitled(kTalkTitle)));
}

TEST_F(DocumentTest, APathAfterATitleMustBeNamedByTheTitle) {
  EXPECT_FALSE(differs(showTitled(kTalkTitle), showOf(kTalk)));
  EXPECT_TRUE(differs(showTitled(kTalkTitle), showOf(kOther)));
}

TEST_F(DocumentTest, APathAfterATitleIsNotComparedWithTheNewTitle) {
  EXPECT_TRUE(differs(showTitled(kTalkTitle), showNaming(kOther, kTalkTitle)));
  EXPECT_FALSE(differs(showTitled(kTalkTitle), showNaming(kTalk, kOtherTitle)));
}

TEST_F(DocumentTest, TwoTitlesAreComparedWithoutCase) {
  EXPECT_FALSE(differs(showTitled(u"Talk - WPS"), showTitled(u"TALK - wps")));
  EXPECT_TRUE(differs(showTitled(u"Talk - WPS"), showTitled(u"Talk [1] - WPS")));
}

TEST_F(DocumentTest, AShowWithoutAnyNameIsNoOtherDocument) {
  EXPECT_FALSE(differs(showOf(kTalk), namelessShow()));
  EXPECT_FALSE(differs(showTitled(kTalkTitle), namelessShow()));
}

TEST_F(DocumentTest, AShowAfterANamelessOneIsNoOtherDocument) {
  EXPECT_FALSE(differs(namelessShow(), showOf(kTalk)));
  EXPECT_FALSE(differs(namelessShow(), showTitled(kTalkTitle)));
  EXPECT_FALSE(differs(namelessShow(), namelessShow()));
}

TEST_F(DocumentTest, ADocumentThatLosesAndRegainsItsPathIsStillTheSame) {
  see(showOf(kTalk));
  waitSeconds(60);
  see(showTitled(kTalkTitle));
  see(showOf(kTalk));
  EXPECT_EQ(elapsedMs(), 60'000);
}

TEST_F(DocumentTest, ADocumentThatComesBackAfterAnotherStartsFromZero) {
  see(showOf(kTalk));
  see(showTitled(kOtherTitle));
  waitSeconds(60);
  see(showOf(kTalk));
  EXPECT_EQ(elapsedMs(), 0);
}

// What is kept.

TEST_F(DocumentTest, PathAndTitleOfTheShowAreRemembered) {
  see(showNaming(kTalk, kTalkTitle));
  EXPECT_EQ(follower.lastPath, kTalk);
  EXPECT_EQ(follower.lastTitle, kTalkTitle);
}

TEST_F(DocumentTest, APathAloneForgetsTheTitle) {
  see(showTitled(kTalkTitle));
  see(showOf(kTalk));
  EXPECT_EQ(follower.lastPath, kTalk);
  EXPECT_EQ(follower.lastTitle, u"");
}

TEST_F(DocumentTest, TheSameDocumentThatLosesItsPathKeepsIt) {
  see(showOf(kTalk));
  see(showTitled(kTalkTitle));
  EXPECT_EQ(follower.lastPath, kTalk);
  EXPECT_EQ(follower.lastTitle, kTalkTitle);
}

TEST_F(DocumentTest, AnotherDocumentWithoutAPathWipesTheOldOne) {
  see(showOf(kTalk));
  see(showTitled(kOtherTitle));
  EXPECT_EQ(follower.lastPath, u"");
  EXPECT_EQ(follower.lastTitle, kOtherTitle);
}

TEST_F(DocumentTest, ANamelessShowLeavesTheMemoryAsItIs) {
  see(showNaming(kTalk, kTalkTitle));
  see(namelessShow());
  EXPECT_EQ(follower.lastPath, kTalk);
  EXPECT_EQ(follower.lastTitle, kTalkTitle);
}

TEST_F(DocumentTest, TheLatestSpellingOfThePathIsRemembered) {
  see(showOf(kTalk));
  see(showOf(u"c:\\talks\\TALK.pptx"));
  EXPECT_EQ(follower.lastPath, u"c:\\talks\\TALK.pptx");
}

TEST_F(DocumentTest, TheDocumentIsRememberedPastItsEndAndItsReset) {
  see(showNaming(kTalk, kTalkTitle));
  see(noShow(DocumentState::Closed));
  EXPECT_EQ(follower.lastPath, kTalk);
  EXPECT_EQ(follower.lastTitle, kTalkTitle);
}

TEST_F(DocumentTest, AnExcludedShowIsNotRemembered) {
  see(showOf(kTalk));
  see(excludedShowOf(kOther));
  EXPECT_EQ(follower.lastPath, kTalk);
}

}  // namespace
}  // namespace mrl
