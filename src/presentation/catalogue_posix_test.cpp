// The catalogue over a real folder.
#include <gtest/gtest.h>
#include <unistd.h>

#include "presentation/catalogue.h"
#include "settings/files_place_posix.h"

namespace mrl {
namespace {

class CataloguePosixTest : public testing::Test {
 protected:
  void SetUp() override {
    std::u16string resolved;  // the temporary folder may be a link
    ASSERT_EQ(place.files.canonical(place.folder, resolved), CanonicalResult::Found);
    folder = resolved;
  }

  PosixPlace place;
  std::u16string folder;
};

TEST_F(CataloguePosixTest, TenThousandFilesAreListedInOrder) {
  std::vector<std::u16string> expected;
  for (int number = 10'000; number < 20'000; ++number) {
    expected.push_back(folder + u"/" + decimal(number) + u".pptx");
    ASSERT_TRUE(place.files.create(expected.back()));
  }
  EXPECT_EQ(listPresentations(place.files, place.folder), expected);
}

TEST_F(CataloguePosixTest, LinksCountAsWhatTheyPointTo) {
  std::u16string error;
  ASSERT_TRUE(place.files.createFolders(folder + u"/real", error));
  ASSERT_TRUE(place.files.createFolders(folder + u"/listed", error));
  ASSERT_TRUE(place.files.create(folder + u"/real/talk.bin"));
  const std::string listed = utf8From(folder) + "/listed/";
  ASSERT_EQ(symlink("../real/talk.bin", (listed + "file.pptx").c_str()), 0);
  ASSERT_EQ(symlink("../real", (listed + "folder.pptx").c_str()), 0);
  ASSERT_EQ(symlink("../gone", (listed + "gone.pptx").c_str()), 0);
  EXPECT_EQ(listPresentations(place.files, folder + u"/listed"),
            (std::vector<std::u16string>{folder + u"/real/talk.bin"}));
}

}  // namespace
}  // namespace mrl
