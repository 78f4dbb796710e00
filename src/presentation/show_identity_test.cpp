#include "presentation/show_identity.h"

#include <gtest/gtest.h>

#include <limits>

#include "settings/files_fake.h"

namespace mrl {
namespace {

constexpr char16_t kTalk[] = u"C:\\Talks\\talk.pptx";

ShowStatus showOf(const std::u16string& path, const std::u16string& normal) {
  return {.running = true, .slide = 1, .documentPath = path, .normalizedPath = normal};
}
ShowStatus showOf(const std::u16string& path) { return showOf(path, path); }

/// A status as the desktop scan reports it.
ShowStatus showTitled(const std::u16string& title) {
  return {.running = true, .provider = kNativeProvider, .windowTitle = title};
}

// The status itself.

TEST(ShowStatusTest, ANewStatusKnowsNothing) {
  const ShowStatus status;
  EXPECT_FALSE(status.running || status.presentationsOpen || status.window);
  EXPECT_EQ(status.slide, 0);
  EXPECT_TRUE(status.documentPath.empty() && status.provider.empty() && status.windowTitle.empty());
  EXPECT_EQ(status.documentState, DocumentState::Unknown);
}

TEST(ShowStatusTest, TheStatesOfADocumentKeepTheirNumbers) {
  EXPECT_EQ(static_cast<uint32_t>(DocumentState::Unknown), 0u);
  EXPECT_EQ(static_cast<uint32_t>(DocumentState::Open), 1u);
  EXPECT_EQ(static_cast<uint32_t>(DocumentState::Closed), 2u);
}

// Slide keys.

TEST(SlideKeyTest, JoinsThePathAsReportedAndTheSlide) {
  ShowStatus status = showOf(u"c:/talks/../Talk.pptx");
  status.slide = 12;
  EXPECT_EQ(slideKeyOf(status), u"c:/talks/../Talk.pptx#12");
}

TEST(SlideKeyTest, OfAShowWithoutPathAndNumberIsStillNotEmpty) {
  EXPECT_EQ(slideKeyOf(showTitled(u"talk - WPS")), u"#0");
}

TEST(SlideKeyTest, TakesAnySlideNumber) {
  ShowStatus status = showOf(kTalk);
  status.slide = std::numeric_limits<int32_t>::min();
  EXPECT_EQ(slideKeyOf(status), std::u16string(kTalk) + u"#-2147483648");
}

// Exclusion.

class ExclusionTest : public testing::Test {
 protected:
  bool excluded(const ShowStatus& status) { return isExcluded(settings, status); }

  Settings settings{.skipList = {u"C:\\Talks\\other.pptx", kTalk}};
};

TEST_F(ExclusionTest, AShowOfAListedPathIsExcluded) {
  EXPECT_TRUE(excluded(showOf(kTalk)));
  EXPECT_TRUE(excluded(showOf(u"C:\\Talks\\other.pptx")));
}

TEST_F(ExclusionTest, AShowOfAnotherPathIsNot) {
  EXPECT_FALSE(excluded(showOf(u"C:\\Talks\\third.pptx")));
  EXPECT_FALSE(excluded(showOf(u"C:\\Other\\talk.pptx")));
}

TEST_F(ExclusionTest, WithAnEmptyListNothingIsExcluded) {
  settings.skipList.clear();
  EXPECT_FALSE(excluded(showOf(kTalk)));
  EXPECT_FALSE(excluded(showTitled(u"talk - WPS")));
}

TEST_F(ExclusionTest, LetterCaseDoesNotMatter) {
  EXPECT_TRUE(excluded(showOf(u"c:\\TALKS\\Talk.PPTX")));
}

TEST_F(ExclusionTest, TheNormalisedPathIsCompared) {
  EXPECT_TRUE(excluded(showOf(u"C:/Talks/drafts/../talk.pptx", kTalk)));
  EXPECT_FALSE(excluded(showOf(kTalk, u"C:\\Elsewhere\\talk.pptx")));
}

TEST_F(ExclusionTest, AnEntryIsComparedAsItIsStored) {
  settings.skipList = {u"C:\\Talks\\drafts\\..\\talk.pptx"};
  EXPECT_FALSE(excluded(showOf(kTalk)));
}

TEST_F(ExclusionTest, APathIsNeverComparedByTitle) {
  ShowStatus status = showOf(u"C:\\Other\\talk.pptx");
  status.windowTitle = u"talk.pptx - PowerPoint";
  EXPECT_FALSE(excluded(status));
}

TEST_F(ExclusionTest, WithoutAPathTheTitleMustNameAnEntry) {
  EXPECT_TRUE(excluded(showTitled(u"talk.pptx - WPS")));
  EXPECT_TRUE(excluded(showTitled(u"OTHER - WPS")));
  EXPECT_FALSE(excluded(showTitled(u"talk2.pptx - WPS")));
  EXPECT_FALSE(excluded(showTitled(u"")));
}

TEST_F(ExclusionTest, OnlyARunningShowIsExcluded) {
  ShowStatus status = showOf(kTalk);
  status.running = false;
  EXPECT_FALSE(excluded(status));
  status = showTitled(u"talk.pptx - WPS");
  status.running = false;
  EXPECT_FALSE(excluded(status));
}

// The show of one document.

class ShownDocumentTest : public testing::Test {
 protected:
  bool shows(const ShowStatus& status, const std::u16string& document) {
    return showsDocument(files, status, document);
  }

  FilesFake files;
};

TEST_F(ShownDocumentTest, TheShowOfTheSamePathIsTheDocuments) {
  EXPECT_TRUE(shows(showOf(kTalk), kTalk));
  EXPECT_FALSE(shows(showOf(u"C:\\Talks\\other.pptx"), kTalk));
}

TEST_F(ShownDocumentTest, LetterCaseDoesNotMatter) {
  EXPECT_TRUE(shows(showOf(u"c:\\TALKS\\Talk.PPTX"), kTalk));
}

TEST_F(ShownDocumentTest, BothPathsAreNormalised) {
  EXPECT_TRUE(shows(showOf(u"C:/Talks/drafts/../talk.pptx", kTalk), u"C:\\Talks\\.\\talk.pptx"));
}

TEST_F(ShownDocumentTest, TwoNamesOfOneFileAreOneDocument) {
  files.putFile(kTalk, "");
  files.putLink(u"C:\\Desktop\\latest.pptx", kTalk);
  EXPECT_TRUE(shows(showOf(u"C:\\Desktop\\latest.pptx", kTalk), kTalk));
  EXPECT_TRUE(shows(showOf(kTalk), u"C:\\Desktop\\latest.pptx"));
}

TEST_F(ShownDocumentTest, APathIsNeverComparedByTitle) {
  ShowStatus status = showOf(u"C:\\Other\\talk.pptx");
  status.windowTitle = u"talk.pptx - PowerPoint";
  EXPECT_FALSE(shows(status, kTalk));
}

TEST_F(ShownDocumentTest, WithoutAPathTheTitleMustNameTheDocument) {
  EXPECT_TRUE(shows(showTitled(u"talk.pptx - WPS"), kTalk));
  EXPECT_FALSE(shows(showTitled(u"other.pptx - WPS"), kTalk));
  EXPECT_FALSE(shows(showTitled(u""), kTalk));
}

TEST_F(ShownDocumentTest, WithoutADocumentNoShowIsIts) {
  EXPECT_FALSE(shows(showOf(kTalk), u""));
  EXPECT_FALSE(shows(showTitled(u"talk.pptx - WPS"), u""));
  EXPECT_FALSE(shows(showTitled(u""), u""));
}

TEST_F(ShownDocumentTest, WithoutADocumentTheFileSystemIsNotAsked) {
  EXPECT_FALSE(shows(showOf(kTalk), u""));
  EXPECT_TRUE(files.done.empty());
}

TEST_F(ShownDocumentTest, OnlyARunningShowIsAnyones) {
  ShowStatus status = showOf(kTalk);
  status.running = false;
  EXPECT_FALSE(shows(status, kTalk));
  status = showTitled(u"talk.pptx - WPS");
  status.running = false;
  EXPECT_FALSE(shows(status, kTalk));
}

TEST_F(ShownDocumentTest, AFileSystemThatFailsLeavesTheTidyPath) {
  files.failing = {FilesFake::Operation::Canonical};
  EXPECT_TRUE(shows(showOf(kTalk), u"C:/Talks/./talk.pptx"));
}

}  // namespace
}  // namespace mrl
