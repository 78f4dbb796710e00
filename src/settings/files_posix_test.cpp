#include "settings/files_posix.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "core/text.h"
#include "settings/files_contract.h"

namespace mrl {
namespace {

struct PosixPlace {
  PosixPlace() {
    std::string name = (std::filesystem::temp_directory_path() / "marlune-XXXXXX").string();
    folder = utf16From(mkdtemp(name.data()));
  }
  ~PosixPlace() { std::filesystem::remove_all(utf8From(folder)); }

  FilesPosix files;
  std::u16string folder;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FilesContract, PosixPlace);

class FilesPosixTest : public testing::Test {
 protected:
  PosixPlace place;
  FilesPosix& files = place.files;
};

TEST_F(FilesPosixTest, LinksAreResolved) {
  std::u16string error;
  ASSERT_TRUE(files.createFolders(place.folder + u"/real", error));
  ASSERT_EQ(symlink("real", utf8From(place.folder + u"/link").c_str()), 0);
  std::u16string plain;
  std::u16string linked;
  ASSERT_EQ(files.canonical(place.folder + u"/real", plain), CanonicalResult::Found);
  EXPECT_EQ(files.canonical(place.folder + u"/link", linked), CanonicalResult::Found);
  EXPECT_EQ(linked, plain);
}

TEST_F(FilesPosixTest, ALinkToItselfIsTroubleAndNotAbsence) {
  const std::u16string path = place.folder + u"/loop";
  ASSERT_EQ(symlink("loop", utf8From(path).c_str()), 0);
  std::u16string result;
  FileKind kind = FileKind::Missing;
  std::u16string error;
  EXPECT_EQ(files.canonical(path, result), CanonicalResult::Failed);
  EXPECT_FALSE(files.status(path, kind, error));
  EXPECT_NE(error, u"");
}

TEST_F(FilesPosixTest, APipeIsNeitherFileNorFolder) {
  const std::u16string path = place.folder + u"/pipe";
  ASSERT_EQ(mkfifo(utf8From(path).c_str(), 0600), 0);
  FileKind kind = FileKind::Missing;
  std::u16string error;
  EXPECT_TRUE(files.status(path, kind, error));
  EXPECT_EQ(kind, FileKind::Other);
}

TEST_F(FilesPosixTest, AWriteThatTakesOnlySomeOfTheBytesFails) {
  const auto writer = files.create(place.folder + u"/file");
  ASSERT_TRUE(writer);
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small = {.rlim_cur = 3, .rlim_max = before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const bool written = writer->write("too long");
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, handler);
  EXPECT_FALSE(written);
}

}  // namespace
}  // namespace mrl
