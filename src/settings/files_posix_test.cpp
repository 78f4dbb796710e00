#include "settings/files_posix.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <utility>

#include "base/text.h"
#include "settings/files_contract.h"
#include "settings/files_place_posix.h"

namespace mrl {
namespace {

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

TEST_F(FilesPosixTest, AListTellsLinksByWhatTheyPointTo) {
  std::u16string error;
  ASSERT_TRUE(files.createFolders(place.folder + u"/in/folder", error));
  ASSERT_TRUE(files.create(place.folder + u"/file"));
  ASSERT_EQ(mkfifo(utf8From(place.folder + u"/in/pipe").c_str(), 0600), 0);
  for (const auto& [name, target] : {std::pair("file", "../file"), std::pair("gone", "../gone"),
                                     std::pair("loop", "to-loop"), std::pair("within", "folder")}) {
    const std::string link = utf8From(place.folder) + "/in/to-" + name;
    ASSERT_EQ(symlink(target, link.c_str()), 0);
  }
  std::map<std::u16string, FileKind> kinds;
  for (const FolderEntry& entry : files.list(place.folder + u"/in")) kinds[entry.name] = entry.kind;
  const std::map<std::u16string, FileKind> expected = {
      {u"folder", FileKind::Directory}, {u"pipe", FileKind::Other},
      {u"to-file", FileKind::Regular},  {u"to-gone", FileKind::Missing},
      {u"to-loop", FileKind::Missing},  {u"to-within", FileKind::Directory}};
  EXPECT_EQ(kinds, expected);
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
