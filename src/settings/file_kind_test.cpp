#include "settings/file_kind.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "settings/files_fake.h"

namespace mrl {
namespace {

TEST(FileKindTest, AFileAFolderAndNothingAreToldApart) {
  FilesFake files;
  files.putFile(u"C:\\Talks\\a.pptx", "");
  EXPECT_EQ(fileKindOf(files, u"C:\\Talks\\a.pptx"), FileKind::Regular);
  EXPECT_EQ(fileKindOf(files, u"C:\\Talks"), FileKind::Directory);
  EXPECT_EQ(fileKindOf(files, u"C:\\Talks\\b.pptx"), FileKind::Missing);
}

TEST(FileKindTest, TroubleIsThrownWithTheOperationTheSystemsWordsAndThePath) {
  FilesFake files;
  files.denyAccess(u"C:\\a.pptx");
  try {
    fileKindOf(files, u"C:\\a.pptx");
    FAIL() << "nothing was thrown";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("status: Access is denied. [C:\\a.pptx]"),
              std::string::npos)
        << error.what();
  }
}

TEST(FileKindTest, WhatIsNotThereAndWhatCannotBeReachedAreMissing) {
  for (const uint32_t code : {2u, 3u, 53u, 64u, 123u, 267u}) EXPECT_TRUE(meansMissing(code));
}

TEST(FileKindTest, EveryOtherCodeOfTheSystemIsTrouble) {
  for (uint32_t code = 0; code < 2000; ++code) {
    if (meansMissing(code)) {
      EXPECT_TRUE(code == 2 || code == 3 || code == 53 || code == 64 || code == 123 || code == 267)
          << code;
    }
  }
}

TEST(FileKindTest, TheOperationHasTheNameThatTheCallerGivesIt) {
  FilesFake files;
  files.denyAccess(u"C:\\a.pptx");
  try {
    fileKindOf(files, u"C:\\a.pptx", u"exists");
    FAIL() << "nothing was thrown";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("exists: Access is denied. "), std::string::npos);
  }
}

}  // namespace
}  // namespace mrl
