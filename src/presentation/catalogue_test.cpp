#include "presentation/catalogue.h"

#include <gtest/gtest.h>

#include <utility>

#include "base/text.h"
#include "settings/files_fake.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

using Operation = FilesFake::Operation;
using Paths = std::vector<std::u16string>;

class CatalogueTest : public testing::Test {
 protected:
  static constexpr char16_t kFolder[] = u"C:\\Talks";

  static std::u16string at(const std::u16string& name) { return kFolder + (u"\\" + name); }
  void put(std::initializer_list<std::u16string> names) {
    for (const std::u16string& name : names) files.putFile(at(name), "");
  }
  Paths list(const std::u16string& folder = kFolder) { return listPresentations(files, folder); }

  FilesFake files;
  Settings settings;
};

// --- the list ---

TEST_F(CatalogueTest, WithoutAFolderTheListIsEmptyAndTheDiskIsNotTouched) {
  EXPECT_EQ(list(u""), Paths{});
  EXPECT_TRUE(files.done.empty());
}

TEST_F(CatalogueTest, AFolderThatDoesNotExistGivesAnEmptyList) {
  EXPECT_EQ(list(u"C:\\gone"), Paths{});
}

TEST_F(CatalogueTest, AFileInPlaceOfTheFolderGivesAnEmptyList) {
  put({u"a.pptx"});
  EXPECT_EQ(list(at(u"a.pptx")), Paths{});
}

TEST_F(CatalogueTest, AFolderThatCanNotBeReadGivesAnEmptyList) {
  put({u"a.pptx"});
  files.failing = {Operation::List};
  EXPECT_EQ(list(), Paths{});
}

TEST_F(CatalogueTest, AListingThatFailsHalfWayKeepsWhatItHas) {
  put({u"a.pptx", u"b.pptx", u"c.pptx"});
  files.failingStep = 3;  // after opening and two entries
  EXPECT_EQ(list(), (Paths{at(u"a.pptx"), at(u"b.pptx")}));
}

TEST_F(CatalogueTest, EveryKindOfPresentationIsListed) {
  put({u"a.ppt", u"b.pptx", u"c.pps", u"d.ppsx", u"e.dps"});
  EXPECT_EQ(list(),
            (Paths{at(u"a.ppt"), at(u"b.pptx"), at(u"c.pps"), at(u"d.ppsx"), at(u"e.dps")}));
}

TEST_F(CatalogueTest, ANameInCapitalsIsListedAndKeepsItsLetterCase) {
  put({u"Talk.PPTX"});
  EXPECT_EQ(list(), Paths{at(u"Talk.PPTX")});
}

TEST_F(CatalogueTest, OtherExtensionsAreNotListed) {
  put({u"talk.pptm", u"talk.potx", u"talk.pdf", u"talk.pptx.bak", u"talk.ppt~", u"talk.ppt ",
       u"talk.pp", u"talk", u"pptx", u"talk.", u"talk.ｐｐｔ"});
  EXPECT_EQ(list(), Paths{});
}

TEST_F(CatalogueTest, OnlyTheLastDotStartsTheExtension) {
  put({u"a.b.pptx", u"a.pptx.txt"});
  EXPECT_EQ(list(), Paths{at(u"a.b.pptx")});
}

TEST_F(CatalogueTest, ALeadingDotStartsNoExtension) {
  put({u".pptx", u".hidden.pptx", u"..pptx"});
  EXPECT_EQ(list(), (Paths{at(u"..pptx"), at(u".hidden.pptx")}));
}

TEST_F(CatalogueTest, LockFilesAreNotListed) {
  put({u"~$talk.pptx", u"~talk.pptx", u"talk~$.pptx"});
  EXPECT_EQ(list(), (Paths{at(u"talk~$.pptx"), at(u"~talk.pptx")}));
}

TEST_F(CatalogueTest, AFolderIsNotListedWhateverItsName) {
  files.putFolder(at(u"old.ppt"));
  EXPECT_EQ(list(), Paths{});
}

TEST_F(CatalogueTest, AFileInASubfolderIsNotListed) {
  files.putFile(at(u"2024\\talk.pptx"), "");
  EXPECT_EQ(list(), Paths{});
}

TEST_F(CatalogueTest, ALinkToAFileIsListedAsThatFile) {
  files.putFile(u"C:\\Elsewhere\\Real.pptx", "");
  files.putFolder(kFolder);
  files.putLink(at(u"link.pptx"), u"C:\\Elsewhere\\Real.pptx");
  EXPECT_EQ(list(), Paths{u"C:\\Elsewhere\\Real.pptx"});
}

TEST_F(CatalogueTest, ALinkToAFolderIsNotListed) {
  files.putFolder(u"C:\\Elsewhere");
  files.putFolder(kFolder);
  files.putLink(at(u"link.pptx"), u"C:\\Elsewhere");
  EXPECT_EQ(list(), Paths{});
}

TEST_F(CatalogueTest, ALinkToNothingIsNotListed) {
  files.putFolder(kFolder);
  files.putLink(at(u"link.pptx"), u"C:\\gone.pptx");
  EXPECT_EQ(list(), Paths{});
}

TEST_F(CatalogueTest, CapitalsSortFirst) {
  put({u"apple.pptx", u"Zebra.pptx"});
  EXPECT_EQ(list(), (Paths{at(u"Zebra.pptx"), at(u"apple.pptx")}));
}

TEST_F(CatalogueTest, TheOrderIsThatOfTheCodeUnits) {
  // U+FF01 is one unit, U+1F600 a pair that begins with 0xD83D.
  put({u"！.pptx", u"😀.pptx", u"演.pptx", u"z.pptx"});
  EXPECT_EQ(list(), (Paths{at(u"z.pptx"), at(u"演.pptx"), at(u"😀.pptx"), at(u"！.pptx")}));
}

TEST_F(CatalogueTest, TheShorterOfTwoPathsSortsFirst) {
  put({u"a.pptx", u"a.ppt"});
  EXPECT_EQ(list(), (Paths{at(u"a.ppt"), at(u"a.pptx")}));
}

TEST_F(CatalogueTest, EverySpellingOfTheFolderGivesTheSamePaths) {
  put({u"a.pptx"});
  for (const char16_t* folder : {u"C:\\Talks\\", u"c:/TALKS", u"C:\\x\\..\\Talks\\."}) {
    EXPECT_EQ(list(folder), Paths{at(u"a.pptx")});
  }
}

TEST_F(CatalogueTest, TheRootOfADriveCanBeListed) {
  files.putFile(u"C:\\a.pptx", "");
  EXPECT_EQ(list(u"C:\\"), Paths{u"C:\\a.pptx"});
}

// --- ids ---

TEST_F(CatalogueTest, TheIdOfAPathIsKnown) {
  EXPECT_EQ(fileId(u"C:\\Talks\\demo.pptx"), "e4735fa962cd71cc");
}

TEST_F(CatalogueTest, TheIdIsTheSameInAnyLetterCase) {
  for (const char16_t* path : {u"c:\\talks\\DEMO.PPTX", u"C:\\TALKS\\Demo.Pptx"}) {
    EXPECT_EQ(fileId(path), "e4735fa962cd71cc");
  }
}

TEST_F(CatalogueTest, TheIdOfNoPathIsTheHashOfNothing) {
  EXPECT_EQ(fileId(u""), "cbf29ce484222325");
}

TEST_F(CatalogueTest, TwoSpellingsOfOneFileHaveTheSameId) {
  EXPECT_EQ(fileId(normalizePath(files, u"C:\\a\\..\\b\\x.pptx")),
            fileId(normalizePath(files, u"c:/B/X.PPTX")));
}

TEST_F(CatalogueTest, TheIdTakesBothBytesOfAUnitAndFoldsOnlyAToZ) {
  EXPECT_EQ(fileId(u"/\u6F14"), "6d8c649e86004bdf");
  EXPECT_NE(fileId(u"/\u6F14"), fileId(u"/\u146F"));
  EXPECT_NE(fileId(u"/\u00C4"), fileId(u"/\u00E4"));
}

TEST_F(CatalogueTest, TheIdKeepsItsLeadingZeros) {
  for (int number = 0; number < 300; ++number) {
    EXPECT_EQ(fileId(u"C:\\" + decimal(number)).size(), 16u) << number;
  }
}

TEST_F(CatalogueTest, AFileIsFoundByItsId) {
  put({u"a.pptx", u"b.pptx", u"c.pptx"});
  const Paths all = list();
  EXPECT_EQ(findFile(all, fileId(at(u"b.pptx"))), all.begin() + 1);
}

TEST_F(CatalogueTest, TheFirstOfTwoFilesWithTheSameIdIsFound) {
  const Paths all{at(u"a.pptx"), at(u"b.pptx"), at(u"B.pptx")};
  EXPECT_EQ(findFile(all, fileId(at(u"b.pptx"))), all.begin() + 1);
}

TEST_F(CatalogueTest, AnIdInCapitalsFindsNothing) {
  const Paths all{u"C:\\Talks\\demo.pptx"};
  ASSERT_NE(findFile(all, "e4735fa962cd71cc"), all.end());
  EXPECT_EQ(findFile(all, "E4735FA962CD71CC"), all.end());
}

TEST_F(CatalogueTest, WhatIsNoIdFindsNothing) {
  const Paths all{u"C:\\Talks\\demo.pptx"};
  for (const char* id : {"", "e4735fa962cd71c", "e4735fa962cd71cc ", "0000000000000000"}) {
    EXPECT_EQ(findFile(all, id), all.end()) << id;
  }
  const Paths none;
  EXPECT_EQ(findFile(none, "e4735fa962cd71cc"), none.end());
}

// --- rows ---

TEST_F(CatalogueTest, ARowTellsIdPathNameAndWhetherItIsSkipped) {
  settings.skipList = {u"c:\\talks\\DEMO.pptx"};
  const PresentationFile row{.id = "e4735fa962cd71cc",
                             .path = u"C:\\Talks\\demo.pptx",
                             .name = u"demo.pptx",
                             .skip = true};
  EXPECT_EQ(presentationFile(settings, u"C:\\Talks\\demo.pptx"), row);
}

TEST_F(CatalogueTest, ARowThatIsNotOnTheListIsNotSkipped) {
  settings.skipList = {at(u"other.pptx")};
  EXPECT_FALSE(presentationFile(settings, at(u"demo.pptx")).skip);
}

TEST_F(CatalogueTest, TheNameStandsBehindTheLastSeparatorOfEitherKind) {
  for (const auto& [path, name] :
       {std::pair(u"C:\\a/b.pptx", u"b.pptx"), std::pair(u"/a\\b.pptx", u"b.pptx"),
        std::pair(u"b.pptx", u"b.pptx"), std::pair(u"C:\\a\\", u"")}) {
    EXPECT_EQ(presentationFile(settings, path).name, name);
  }
}

// --- the list of files that are not timed ---

TEST_F(CatalogueTest, AFileThatIsTimedBecomesTheLastOfTheSkipList) {
  settings.skipList = {at(u"z.pptx")};
  toggleSkip(files, settings, at(u"a.pptx"));
  EXPECT_EQ(settings.skipList, (Paths{at(u"z.pptx"), at(u"a.pptx")}));
}

TEST_F(CatalogueTest, ASkippedFileLosesEveryEntryThatMeansIt) {
  settings.skipList = {at(u"A.pptx"), at(u"b.pptx"), at(u"a.PPTX"), at(u"a.pptx"), at(u"c.pptx")};
  toggleSkip(files, settings, at(u"a.pptx"));
  EXPECT_EQ(settings.skipList, (Paths{at(u"b.pptx"), at(u"c.pptx")}));
}

TEST_F(CatalogueTest, TogglingTwiceLeavesTheListAsItWas) {
  settings.skipList = {at(u"b.pptx")};
  toggleSkip(files, settings, at(u"a.pptx"));
  EXPECT_TRUE(isSkipped(files, settings, at(u"a.pptx")));
  toggleSkip(files, settings, at(u"a.pptx"));
  EXPECT_EQ(settings.skipList, Paths{at(u"b.pptx")});
}

}  // namespace
}  // namespace mrl
