// The catalogue over a real folder of Windows.
#include <gtest/gtest.h>

#include "base/text.h"
#include "presentation/catalogue.h"
#include "settings/files_place_win.h"
#include "settings/path_rules.h"

namespace mrl {
namespace {

class CatalogueWinTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(place.files.canonical(place.folder, folder), CanonicalResult::Found);
  }

  std::string idOf(const std::u16string& path) { return fileId(normalizePath(place.files, path)); }

  WinPlace place;
  std::u16string folder;  // in its final form
};

TEST_F(CatalogueWinTest, TwoThousandFilesAreListedInOrder) {
  std::vector<std::u16string> expected;
  for (int number = 10'000; number < 12'000; ++number) {
    expected.push_back(folder + u"\\" + decimal(number) + u".pptx");
    ASSERT_TRUE(place.files.create(expected.back()));
  }
  EXPECT_EQ(listPresentations(place.files, place.folder), expected);
}

TEST_F(CatalogueWinTest, OnlyPresentationsAreListedAndTheyKeepTheirLetterCase) {
  std::u16string error;
  for (const char16_t* name : {u"Talk.PPTX", u"talk.pptm", u"~$talk.pptx", u"演示 2.dps"}) {
    ASSERT_TRUE(place.files.create(place.folder + u"\\" + name));
  }
  ASSERT_TRUE(place.files.createFolders(place.folder + u"\\old.ppt", error));
  EXPECT_EQ(listPresentations(place.files, place.folder + u"/./"),
            (std::vector<std::u16string>{folder + u"\\Talk.PPTX", folder + u"\\演示 2.dps"}));
}

TEST_F(CatalogueWinTest, TheIdOfAnAbsentFileIsKnown) {
  EXPECT_EQ(idOf(u"C:\\Talks\\demo.pptx"), "e4735fa962cd71cc");
  EXPECT_EQ(idOf(u"c:/talks/./DEMO.pptx"), "e4735fa962cd71cc");
  EXPECT_EQ(idOf(u""), "cbf29ce484222325");
}

TEST_F(CatalogueWinTest, TwoSpellingsOfAnExistingFileHaveTheSameId) {
  ASSERT_TRUE(place.files.create(place.folder + u"\\Talk.pptx"));
  EXPECT_EQ(idOf(place.folder + u"\\x\\..\\TALK.PPTX"), idOf(place.folder + u"/Talk.pptx"));
}

}  // namespace
}  // namespace mrl
