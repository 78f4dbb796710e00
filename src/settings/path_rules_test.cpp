#include "settings/path_rules.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "settings/files_fake.h"

namespace mrl {
namespace {

using Operation = FilesFake::Operation;

TEST(NormalizePathTest, AnExistingFileComesBackInTheFormFoundOnDisk) {
  FilesFake files;
  files.putFile(u"C:\\Talks\\Demo.PPTX", "");
  const std::u16string expected = u"C:\\Talks\\Demo.PPTX";
  EXPECT_EQ(normalizePath(files, u"c:/talks/demo.pptx"), expected);
  EXPECT_EQ(normalizePath(files, u"C:\\Talks\\x\\..\\Demo.PPTX"), expected);
  EXPECT_EQ(normalizePath(files, u"Talks\\Demo.PPTX"), expected);
  EXPECT_EQ(normalizePath(files, u"C:\\\\Talks\\.\\Demo.PPTX"), expected);
}

TEST(NormalizePathTest, AnExistingFileCostsOneLookAtTheDisk) {
  FilesFake files;
  files.putFile(u"C:\\Talks\\Demo.pptx", "");
  normalizePath(files, u"c:/talks/demo.pptx");
  const std::vector<FilesFake::Step> expected = {{Operation::Canonical, u"c:/talks/demo.pptx"}};
  EXPECT_EQ(files.done, expected);
}

TEST(NormalizePathTest, LinksAreResolved) {
  FilesFake files;
  files.putFile(u"C:\\Real\\Demo.pptx", "");
  files.putLink(u"C:\\Link", u"C:\\Real");
  EXPECT_EQ(normalizePath(files, u"C:\\link\\demo.pptx"), u"C:\\Real\\Demo.pptx");
}

TEST(NormalizePathTest, OfAnAbsentFileTheExistingPartIsResolvedAndTheRestAppended) {
  FilesFake files;
  files.putFolder(u"C:\\Talks\\Spring");
  EXPECT_EQ(normalizePath(files, u"c:/talks/x/../spring/Gone/./Old.pptx"),
            u"C:\\Talks\\Spring\\Gone\\Old.pptx");
}

TEST(NormalizePathTest, TheExistingPartOfAnAbsentFileFollowsLinks) {
  FilesFake files;
  files.putFolder(u"C:\\Real");
  files.putLink(u"C:\\Link", u"C:\\Real");
  EXPECT_EQ(normalizePath(files, u"c:\\link\\gone.pptx"), u"C:\\Real\\gone.pptx");
}

TEST(NormalizePathTest, BehindTheFirstAbsentComponentTheDiskIsNotAskedAgain) {
  FilesFake files;
  files.putFolder(u"C:\\a");
  EXPECT_EQ(normalizePath(files, u"C:\\a\\b\\c\\d"), u"C:\\a\\b\\c\\d");
  const std::vector<FilesFake::Step> expected = {{Operation::Canonical, u"C:\\a\\b\\c\\d"},
                                                 {Operation::Canonical, u"C:\\a"},
                                                 {Operation::Canonical, u"C:\\a\\b"}};
  EXPECT_EQ(files.done, expected);
}

TEST(NormalizePathTest, TheRootOfAnAbsentFileIsKept) {
  FilesFake files;
  EXPECT_EQ(normalizePath(files, u"d:/Gone/x.pptx"), u"d:\\Gone\\x.pptx");
  EXPECT_EQ(normalizePath(files, u"//server/share/x.pptx"), u"\\\\server\\share\\x.pptx");
  EXPECT_EQ(normalizePath(files, u"E:\\"), u"E:\\");
  EXPECT_EQ(normalizePath(files, u"E:x"), u"E:x");
}

TEST(NormalizePathTest, AnAbsentRelativePathStaysRelative) {
  FilesFake files;
  EXPECT_EQ(normalizePath(files, u"gone\\..\\x.pptx"), u"x.pptx");
  EXPECT_EQ(normalizePath(files, u"gone/y/x.pptx"), u"gone\\y\\x.pptx");
}

TEST(NormalizePathTest, AnAbsentRelativePathInAnExistingFolderBecomesAbsolute) {
  FilesFake files;
  files.putFolder(u"C:\\Talks");
  EXPECT_EQ(normalizePath(files, u"talks\\x.pptx"), u"C:\\Talks\\x.pptx");
}

TEST(NormalizePathTest, ATrailingSeparatorOfAnAbsentPathStays) {
  FilesFake files;
  EXPECT_EQ(normalizePath(files, u"C:\\gone\\"), u"C:\\gone\\");
  files.putFile(u"C:\\x.pptx", "");
  EXPECT_EQ(normalizePath(files, u"C:\\X.pptx\\"), u"C:\\x.pptx\\");
}

TEST(NormalizePathTest, AnyOtherErrorGivesTheTidyFormOfThePathAsPassedIn) {
  FilesFake files;
  files.putFile(u"C:\\Talks\\Demo.pptx", "");
  files.denyAccess(u"C:\\Talks\\Demo.pptx");
  EXPECT_EQ(normalizePath(files, u"c:/talks//x/../.\\demo.pptx"), u"c:\\talks\\demo.pptx");
}

TEST(NormalizePathTest, AnyOtherErrorOnTheWayGivesTheTidyFormToo) {
  FilesFake files;
  files.putFolder(u"C:\\Talks\\Closed");
  files.denyAccess(u"C:\\Talks\\Closed");
  EXPECT_EQ(normalizePath(files, u"c:/talks/closed/../closed/gone.pptx"),
            u"c:\\talks\\closed\\gone.pptx");
  EXPECT_EQ(files.done.size(), 3U);  // the whole path, the open folder, the closed one
}

TEST(NormalizePathTest, AnEmptyPathStaysEmpty) {
  FilesFake files;
  EXPECT_EQ(normalizePath(files, u""), u"");
}

TEST(NormalizePathTest, CaseIsNotFolded) {
  FilesFake files;
  EXPECT_EQ(normalizePath(files, u"C:\\Gone\\ÀB.pptx"), u"C:\\Gone\\ÀB.pptx");
}

TEST(NormalizePathTest, ElsewhereTheSlashIsTheSeparator) {
  FilesFake files(u'/');
  files.putFile(u"/talks/demo.pptx", "");
  EXPECT_EQ(normalizePath(files, u"/talks/./x/../demo.pptx"), u"/talks/demo.pptx");
  EXPECT_EQ(normalizePath(files, u"/talks//gone/a\\b"), u"/talks/gone/a\\b");
}

TEST(NormalizePathTest, TwoSpellingsOfAnAbsentFileAreTheSameAfterwards) {
  FilesFake files;
  EXPECT_TRUE(samePath(normalizePath(files, u"C:\\a\\..\\b\\x.pptx"),
                       normalizePath(files, u"c:/B/X.PPTX")));
}

TEST(NormalizePathTest, TwoSpellingsOfAnExistingFileAreTheSameAfterwards) {
  FilesFake files;
  files.putFile(u"C:\\b\\x.pptx", "");
  EXPECT_EQ(normalizePath(files, u"C:\\a\\..\\b\\x.pptx"), normalizePath(files, u"c:/B/X.PPTX"));
}

TEST(SamePathTest, CaseIsIgnoredAndNothingElse) {
  EXPECT_TRUE(samePath(u"C:\\É\\Ж.pptx", u"c:\\é\\ж.PPTX"));
  EXPECT_FALSE(samePath(u"C:\\a\\x", u"C:/a/x"));
  EXPECT_FALSE(samePath(u"C:\\a", u"C:\\a\\"));
  EXPECT_TRUE(samePath(u"", u""));
}

TEST(SamePathTest, AZeroEndsAPath) {
  EXPECT_TRUE(samePath(std::u16string_view(u"C:\\a\0b", 6), u"c:\\A"));
  EXPECT_FALSE(samePath(std::u16string_view(u"C:\\a\0b", 6), u"c:\\Ab"));
}

TEST(IsSkippedTest, TwoEntriesThatDifferInCaseCountAsOneFile) {
  FilesFake files;
  Settings settings;
  settings.skipList = {u"C:\\a\\X.pptx", u"C:\\a\\x.PPTX"};
  EXPECT_TRUE(isSkipped(files, settings, u"c:\\A\\x.pptx"));
  settings.skipList.pop_back();
  EXPECT_TRUE(isSkipped(files, settings, u"c:\\A\\x.pptx"));
}

TEST(IsSkippedTest, ThePathIsNormalisedAndTheEntriesAreNot) {
  FilesFake files;
  Settings settings;
  settings.skipList = {u"C:\\a\\x.pptx"};
  EXPECT_TRUE(isSkipped(files, settings, u"c:/b/../a/x.pptx"));
  settings.skipList = {u"C:\\b\\..\\a\\x.pptx"};
  EXPECT_FALSE(isSkipped(files, settings, u"C:\\b\\..\\a\\x.pptx"));
}

TEST(IsSkippedTest, AFileOutsideTheListIsNotSkipped) {
  FilesFake files;
  Settings settings;
  EXPECT_FALSE(isSkipped(files, settings, u"C:\\a\\x.pptx"));
  settings.skipList = {u"C:\\a\\y.pptx", u"C:\\a\\x.pptx.bak"};
  EXPECT_FALSE(isSkipped(files, settings, u"C:\\a\\x.pptx"));
}

TEST(TitleNamesDocumentTest, TheExtensionIsPassedOverAndABlankFollows) {
  EXPECT_TRUE(titleNamesDocument(u"demo.pptx - PowerPoint", u"C:\\a\\demo.pptx"));
}

TEST(TitleNamesDocumentTest, ADigitIsNotACleanRightSide) {
  EXPECT_FALSE(titleNamesDocument(u"demo2.pptx - PowerPoint", u"C:\\a\\demo.pptx"));
}

TEST(TitleNamesDocumentTest, AnUnderscoreIsNotACleanLeftSide) {
  EXPECT_FALSE(titleNamesDocument(u"my_demo - WPS", u"C:\\a\\demo.pptx"));
}

TEST(TitleNamesDocumentTest, AnUnknownExtensionIsNotPassedOver) {
  EXPECT_FALSE(titleNamesDocument(u"demo.pptm", u"C:\\a\\demo.pptx"));
}

TEST(TitleNamesDocumentTest, ChineseBracketsAreCleanOnBothSides) {
  EXPECT_TRUE(titleNamesDocument(u"【demo】", u"C:\\a\\demo.pptx"));
}

TEST(TitleNamesDocumentTest, ASecondOccurrenceCanQualify) {
  EXPECT_TRUE(titleNamesDocument(u"demo2 demo", u"demo.pptx"));
  EXPECT_TRUE(titleNamesDocument(u"mydemo demo", u"demo.pptx"));
  EXPECT_FALSE(titleNamesDocument(u"demo2 demo3", u"demo.pptx"));
}

TEST(TitleNamesDocumentTest, OccurrencesMayOverlap) {
  EXPECT_TRUE(titleNamesDocument(u"x-a-a", u"a-a.pptx"));
  EXPECT_TRUE(titleNamesDocument(u"a a ax a a", u"a a.pptx"));
  EXPECT_TRUE(titleNamesDocument(u"xa a a", u"a a.pptx"));
}

TEST(TitleNamesDocumentTest, CaseIsIgnored) {
  EXPECT_TRUE(titleNamesDocument(u"DEMO - PowerPoint", u"demo.pptx"));
  EXPECT_TRUE(titleNamesDocument(u"demo.PPTX - PowerPoint", u"DEMO.pptx"));
}

TEST(TitleNamesDocumentTest, OnlyAToZIgnoreCase) {
  EXPECT_FALSE(titleNamesDocument(u"é", u"É.pptx"));
}

TEST(TitleNamesDocumentTest, AnEmptyStemNamesNothing) {
  EXPECT_FALSE(titleNamesDocument(u"demo", u""));
  EXPECT_FALSE(titleNamesDocument(u"demo", u"C:\\a\\"));
  EXPECT_FALSE(titleNamesDocument(u"", u""));
}

TEST(TitleNamesDocumentTest, AnEmptyTitleNamesNothing) {
  EXPECT_FALSE(titleNamesDocument(u"", u"demo.pptx"));
}

TEST(TitleNamesDocumentTest, EveryExtensionOfThePresentationProgramsIsPassedOver) {
  for (const char16_t* extension : {u".pptx", u".ppsx", u".ppt", u".pps", u".dps"}) {
    const std::u16string name = std::u16string(u"demo") + extension;
    EXPECT_TRUE(titleNamesDocument(name, u"demo.pptx")) << utf8From(name);
    EXPECT_TRUE(titleNamesDocument(name + u" - x", u"demo.pptx")) << utf8From(name);
    EXPECT_FALSE(titleNamesDocument(name + u"y", u"demo.pptx")) << utf8From(name);
  }
}

TEST(TitleNamesDocumentTest, TheLongerExtensionIsTriedFirst) {
  EXPECT_TRUE(titleNamesDocument(u"demo.pptx", u"demo.pptx"));
  EXPECT_TRUE(titleNamesDocument(u"demo.ppsx", u"demo.pptx"));
  EXPECT_FALSE(titleNamesDocument(u"demo.pptxx", u"demo.pptx"));
}

TEST(TitleNamesDocumentTest, OnlyOneExtensionIsPassedOver) {
  EXPECT_FALSE(titleNamesDocument(u"demo.ppt.pptx", u"demo.pptx"));
}

TEST(TitleNamesDocumentTest, EachOfTheElevenMarksIsCleanOnTheRight) {
  const std::u16string_view marks = u"[]()（）【】-—|";
  EXPECT_EQ(marks.size(), 11U);
  for (const char16_t mark : marks) {
    EXPECT_TRUE(titleNamesDocument(std::u16string(u"demo") + mark, u"demo.pptx")) << +mark;
    EXPECT_TRUE(titleNamesDocument(std::u16string(u"demo.pptx") + mark, u"demo.pptx")) << +mark;
  }
}

TEST(TitleNamesDocumentTest, WhiteSpaceIsCleanOnTheRight) {
  for (const char16_t space : std::u16string_view(u"\t\r\n\u00A0\u3000")) {
    EXPECT_TRUE(titleNamesDocument(std::u16string(u"demo") + space, u"demo.pptx")) << +space;
  }
}

TEST(TitleNamesDocumentTest, AnythingElseIsNotCleanOnTheRight) {
  for (const char16_t mark : std::u16string_view(u".,:;_!'\"{}<>/\\~+*a0中é")) {
    EXPECT_FALSE(titleNamesDocument(std::u16string(u"demo") + mark, u"demo.pptx")) << +mark;
  }
}

TEST(TitleNamesDocumentTest, OnTheLeftOnlyLettersDigitsAndUnderscoreAreUnclean) {
  for (const char16_t mark : std::u16string_view(u"_a0中é９")) {
    EXPECT_FALSE(titleNamesDocument(mark + std::u16string(u"demo"), u"demo.pptx")) << +mark;
  }
  for (const char16_t mark : std::u16string_view(u" .,:;!'{}<>/\\~+*-—|[](【）")) {
    EXPECT_TRUE(titleNamesDocument(mark + std::u16string(u"demo"), u"demo.pptx")) << +mark;
  }
}

TEST(TitleNamesDocumentTest, FoldersPlayNoPart) {
  EXPECT_TRUE(titleNamesDocument(u"demo", u"C:\\a\\demo.pptx"));
  EXPECT_TRUE(titleNamesDocument(u"demo", u"D:\\other\\demo.ppt"));
  EXPECT_FALSE(titleNamesDocument(u"a - PowerPoint", u"C:\\a\\demo.pptx"));
}

TEST(TitleNamesDocumentTest, AStemWithDotsIsSearchedWhole) {
  EXPECT_TRUE(titleNamesDocument(u"v1.2.pptx - PowerPoint", u"v1.2.pptx"));
  EXPECT_FALSE(titleNamesDocument(u"v1.pptx - PowerPoint", u"v1.2.pptx"));
}

}  // namespace
}  // namespace mrl
