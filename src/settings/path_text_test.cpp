#include "settings/path_text.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace mrl {
namespace {

struct NormalRow {
  std::u16string_view path;
  std::u16string_view normal;
};

void expectNormal(const NormalRow& row, char16_t separator) {
  EXPECT_EQ(utf8From(lexicallyNormal(row.path, separator)), utf8From(row.normal))
      << utf8From(row.path);
}

TEST(PathTextTest, OnWindowsBothSeparatorsCountAndBecomeOne) {
  for (const NormalRow& row : {
           NormalRow{u"C:\\a\\..\\b\\x.pptx", u"C:\\b\\x.pptx"},
           {u"c:/B/X.PPTX", u"c:\\B\\X.PPTX"},
           {u"C:\\a\\\\b//c/\\d", u"C:\\a\\b\\c\\d"},
           {u"a\\.\\b", u"a\\b"},
           {u"C:/", u"C:\\"},
           {u"C:", u"C:"},
           {u"/a/b", u"\\a\\b"},
       }) {
    expectNormal(row, u'\\');
  }
}

TEST(PathTextTest, DotsFoldIntoTheComponentBefore) {
  for (const NormalRow& row : {
           NormalRow{u"", u""},
           {u".", u"."},
           {u"..", u".."},
           {u"./", u"."},
           {u"../", u".."},
           {u"a/..", u"."},
           {u"a/../..", u".."},
           {u"a/../../b", u"../b"},
           {u"../../a", u"../../a"},
           {u"a/b/..", u"a/"},
           {u"a/.", u"a/"},
           {u"a/./b/.", u"a/b/"},
           {u"a//", u"a/"},
           {u"a/b/../c", u"a/c"},
           {u"...", u"..."},
           {u"a/.../b", u"a/.../b"},
           {u".hidden/..x", u".hidden/..x"},
       }) {
    expectNormal(row, u'/');
  }
}

TEST(PathTextTest, AboveARootThereIsNothing) {
  expectNormal({u"/..", u"/"}, u'/');
  expectNormal({u"/../../a", u"/a"}, u'/');
  expectNormal({u"C:\\..\\a", u"C:\\a"}, u'\\');
  expectNormal({u"\\\\server\\..\\share", u"\\\\server\\share"}, u'\\');
}

TEST(PathTextTest, ADriveWithoutItsRootKeepsWhatIsRelativeToIt) {
  expectNormal({u"C:a\\..\\b", u"C:b"}, u'\\');
  expectNormal({u"C:..\\b", u"C:..\\b"}, u'\\');
  expectNormal({u"C:a\\..", u"C:"}, u'\\');
}

TEST(PathTextTest, AServerIsPartOfTheRoot) {
  expectNormal({u"//server/share/a/../b", u"\\\\server\\share\\b"}, u'\\');
  expectNormal({u"\\\\server\\\\share", u"\\\\server\\share"}, u'\\');
  expectNormal({u"\\\\server", u"\\\\server"}, u'\\');
  expectNormal({u"\\\\\\a", u"\\a"}, u'\\');
  expectNormal({u"\\\\", u"\\"}, u'\\');
  expectNormal({u"\\\\?\\C:\\a\\..\\b", u"\\\\?\\C:\\b"}, u'\\');
}

TEST(PathTextTest, ElsewhereABackslashIsALetterAndADriveIsAName) {
  expectNormal({u"/a\\b/../c", u"/c"}, u'/');
  expectNormal({u"C:/../x", u"x"}, u'/');
  expectNormal({u"//server/../x", u"/x"}, u'/');
}

TEST(PathTextTest, TheRootEndsWhereTheComponentsBegin) {
  EXPECT_EQ(rootLength(u"C:\\a", u'\\'), 3U);
  EXPECT_EQ(rootLength(u"z:a", u'\\'), 2U);
  EXPECT_EQ(rootLength(u"1:a", u'\\'), 0U);
  EXPECT_EQ(rootLength(u"\\\\server\\share", u'\\'), 9U);
  EXPECT_EQ(rootLength(u"\\a", u'\\'), 1U);
  EXPECT_EQ(rootLength(u"a\\b", u'\\'), 0U);
  EXPECT_EQ(rootLength(u"", u'\\'), 0U);
  EXPECT_EQ(rootLength(u"C:\\a", u'/'), 0U);
  EXPECT_EQ(rootLength(u"/a", u'/'), 1U);
}

TEST(PathTextTest, TheParentIsThePathWithoutItsFileName) {
  EXPECT_EQ(parentFolder(u"C:\\a\\b.dat"), u"C:\\a");
  EXPECT_EQ(parentFolder(u"C:/a/b.dat"), u"C:/a");
  EXPECT_EQ(parentFolder(u"C:\\a\\/b.dat"), u"C:\\a");
  EXPECT_EQ(parentFolder(u"a\\b.dat"), u"a");
  EXPECT_EQ(parentFolder(u"/home/b.dat"), u"/home");
  EXPECT_EQ(parentFolder(u"b.dat"), u"");
  EXPECT_EQ(parentFolder(u""), u"");
}

TEST(PathTextTest, TheParentOfAFileInARootIsTheRoot) {
  EXPECT_EQ(parentFolder(u"C:\\b.dat"), u"C:\\");
  EXPECT_EQ(parentFolder(u"C:b.dat"), u"C:");
  EXPECT_EQ(parentFolder(u"C:\\"), u"C:\\");
  EXPECT_EQ(parentFolder(u"/b.dat"), u"/");
  EXPECT_EQ(parentFolder(u"\\\\server\\share"), u"\\\\server\\");
}

TEST(PathTextTest, TheStemIsTheLastComponentWithoutItsLastExtension) {
  EXPECT_EQ(stemOf(u"C:\\a\\demo.pptx"), u"demo");
  EXPECT_EQ(stemOf(u"/a/demo.pptx"), u"demo");
  EXPECT_EQ(stemOf(u"C:demo.pptx"), u"demo");
  EXPECT_EQ(stemOf(u"demo"), u"demo");
  EXPECT_EQ(stemOf(u"a.b.pptx"), u"a.b");
  EXPECT_EQ(stemOf(u"a.b\\demo"), u"demo");
}

TEST(PathTextTest, ALeadingDotStartsNoExtension) {
  EXPECT_EQ(stemOf(u".pptx"), u".pptx");
  EXPECT_EQ(stemOf(u".a.pptx"), u".a");
}

TEST(PathTextTest, ATrailingDotIsDropped) {
  EXPECT_EQ(stemOf(u"demo."), u"demo");
  EXPECT_EQ(stemOf(u"demo.pptx."), u"demo.pptx");
}

TEST(PathTextTest, AStreamDoesNotBelongToTheName) {
  EXPECT_EQ(stemOf(u"C:\\a\\demo.pptx:notes.txt"), u"demo");
  EXPECT_EQ(stemOf(u"C:\\a\\:notes"), u"");
}

TEST(PathTextTest, DotAndDotDotStandAsTheyAre) {
  EXPECT_EQ(stemOf(u"C:\\a\\."), u".");
  EXPECT_EQ(stemOf(u"C:\\a\\.."), u"..");
}

TEST(PathTextTest, APathThatEndsAsAFolderHasNoStem) {
  EXPECT_EQ(stemOf(u""), u"");
  EXPECT_EQ(stemOf(u"C:\\a\\"), u"");
  EXPECT_EQ(stemOf(u"C:\\"), u"");
  EXPECT_EQ(stemOf(u"C:"), u"");
  EXPECT_EQ(stemOf(u"\\\\server"), u"");
}

TEST(PathTextTest, APrefixForLongPathsGoesWhereThereIsAnEverydayForm) {
  EXPECT_EQ(withoutLongPathPrefix(u"\\\\?\\C:\\a\\b"), u"C:\\a\\b");
  EXPECT_EQ(withoutLongPathPrefix(u"\\\\?\\C:\\"), u"C:\\");
  EXPECT_EQ(withoutLongPathPrefix(u"\\\\?\\UNC\\server\\share"), u"\\\\server\\share");
  EXPECT_EQ(withoutLongPathPrefix(u"C:\\a"), u"C:\\a");
  EXPECT_EQ(withoutLongPathPrefix(u"\\\\server\\share"), u"\\\\server\\share");
}

TEST(PathTextTest, APrefixForLongPathsStaysWhereThereIsNoEverydayForm) {
  EXPECT_EQ(withoutLongPathPrefix(u"\\\\?\\Volume{1}\\a"), u"\\\\?\\Volume{1}\\a");
  EXPECT_EQ(withoutLongPathPrefix(u"\\\\?\\"), u"\\\\?\\");
}

TEST(PathTextTest, AJoinedPathHasASeparatorBetweenFolderAndName) {
  EXPECT_EQ(joinedPath(u"C:\\Talks", u"a.pptx", u'\\'), u"C:\\Talks\\a.pptx");
  EXPECT_EQ(joinedPath(u"Talks", u"a.pptx", u'\\'), u"Talks\\a.pptx");
  EXPECT_EQ(joinedPath(u"/talks", u"a.pptx", u'/'), u"/talks/a.pptx");
}

TEST(PathTextTest, AJoinedPathAddsNoSecondSeparator) {
  EXPECT_EQ(joinedPath(u"C:\\Talks\\", u"a.pptx", u'\\'), u"C:\\Talks\\a.pptx");
  EXPECT_EQ(joinedPath(u"C:/Talks/", u"a.pptx", u'\\'), u"C:/Talks/a.pptx");
  EXPECT_EQ(joinedPath(u"/talks/", u"a.pptx", u'/'), u"/talks/a.pptx");
  EXPECT_EQ(joinedPath(u"", u"a.pptx", u'\\'), u"a.pptx");
}

TEST(PathTextTest, AJoinedPathAddsNothingToARootOrADrive) {
  EXPECT_EQ(joinedPath(u"C:\\", u"a.pptx", u'\\'), u"C:\\a.pptx");
  EXPECT_EQ(joinedPath(u"C:", u"a.pptx", u'\\'), u"C:a.pptx");
  EXPECT_EQ(joinedPath(u"/", u"a.pptx", u'/'), u"/a.pptx");
}

}  // namespace
}  // namespace mrl
