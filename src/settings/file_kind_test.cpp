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

}  // namespace
}  // namespace mrl
