// The in-memory file system: the contract, and its own controls.
#include "settings/files.h"

#include <gtest/gtest.h>

#include "settings/files_contract.h"
#include "settings/files_fake.h"

namespace mrl {
namespace {

using Operation = FilesFake::Operation;

template <char16_t kSeparator>
struct FakePlace {
  FakePlace() { files.putFolder(folder); }
  FilesFake files{kSeparator};
  std::u16string folder = kSeparator == u'\\' ? u"C:\\folder" : u"/folder";
};

INSTANTIATE_TYPED_TEST_SUITE_P(FakeWindows, FilesContract, FakePlace<u'\\'>);
INSTANTIATE_TYPED_TEST_SUITE_P(FakePosix, FilesContract, FakePlace<u'/'>);

TEST(FilesFakeTest, CaseIsIgnoredAndKept) {
  FilesFake files;
  files.putFile(u"C:\\Talks\\Demo.pptx", "x");
  std::u16string found;
  EXPECT_EQ(files.canonical(u"c:/TALKS/demo.PPTX", found), CanonicalResult::Found);
  EXPECT_EQ(found, u"C:\\Talks\\Demo.pptx");
}

TEST(FilesFakeTest, ItRemembersEveryStepInOrder) {
  FilesFake files;
  EXPECT_TRUE(files.create(u"C:\\a")->write("x"));
  files.remove(u"C:\\a");
  const std::vector<FilesFake::Step> expected = {
      {Operation::Create, u"C:\\a"}, {Operation::Write, u"C:\\a"}, {Operation::Remove, u"C:\\a"}};
  EXPECT_EQ(files.done, expected);
}

TEST(FilesFakeTest, PowerLossTakesWhatWasNotFlushed) {
  FilesFake files;
  auto writer = files.create(u"C:\\a");
  ASSERT_TRUE(writer->write("kept"));
  ASSERT_TRUE(writer->flush());
  ASSERT_TRUE(writer->write(" lost"));
  files.stepsUntilDark = files.done.size();
  EXPECT_FALSE(writer->write("never"));
  EXPECT_FALSE(writer->flush());
  writer.reset();
  files.remove(u"C:\\a");
  EXPECT_FALSE(files.replace(u"C:\\a", u"C:\\b"));
  files.restorePower();
  EXPECT_EQ(files.bytesOf(u"C:\\a"), "kept");
}

TEST(FilesFakeTest, ARefusedWriteLeavesHalfOfItBehind) {
  FilesFake files;
  files.failing = {Operation::Write};
  EXPECT_FALSE(files.create(u"C:\\a")->write("torn apart"));
  EXPECT_EQ(files.bytesOf(u"C:\\a"), "torn ");
}

TEST(FilesFakeTest, OneStepCanFailByItsNumber) {
  FilesFake files;
  files.failingStep = 1;
  EXPECT_TRUE(files.create(u"C:\\a"));
  EXPECT_FALSE(files.create(u"C:\\b"));
  EXPECT_TRUE(files.create(u"C:\\b"));
}

TEST(FilesFakeTest, WhatAnotherProcessHoldsCanBeSeenButNotTouched) {
  FilesFake files;
  files.putFile(u"C:\\held", "x");
  files.putFile(u"C:\\other", "y");
  files.holdOpen(u"C:\\held");
  std::string bytes;
  FileKind kind = FileKind::Missing;
  std::u16string error;
  EXPECT_TRUE(files.status(u"C:\\held", kind, error));
  EXPECT_EQ(kind, FileKind::Regular);
  EXPECT_FALSE(files.read(u"C:\\held", bytes));
  EXPECT_FALSE(files.create(u"C:\\held"));
  EXPECT_FALSE(files.replace(u"C:\\other", u"C:\\held"));
  EXPECT_FALSE(files.replace(u"C:\\held", u"C:\\new"));
  files.remove(u"C:\\held");
  EXPECT_EQ(files.bytesOf(u"C:\\held"), "x");
}

TEST(FilesFakeTest, AListHasLinksUnderTheirNamesWithTheKindOfTheirTargets) {
  FilesFake files;
  files.putFile(u"C:\\real", "x");
  files.putFolder(u"C:\\in");
  files.putLink(u"C:\\in\\Link", u"C:\\real");
  files.putLink(u"C:\\in\\Lost", u"C:\\gone");
  EXPECT_EQ(files.list(u"c:\\IN"),
            (std::vector<FolderEntry>{{u"Link", FileKind::Regular}, {u"Lost", FileKind::Missing}}));
}

TEST(FilesFakeTest, AListCanFailAtItsBeginningAndHalfWay) {
  FilesFake files;
  files.putFile(u"C:\\in\\a", "");
  files.putFile(u"C:\\in\\b", "");
  files.failing = {Operation::List};
  EXPECT_TRUE(files.list(u"C:\\in").empty());
  files.failing.clear();
  files.failingStep = files.done.size() + 2;
  EXPECT_EQ(files.list(u"C:\\in"), (std::vector<FolderEntry>{{u"a", FileKind::Regular}}));
  files.denyAccess(u"C:\\in");
  EXPECT_TRUE(files.list(u"C:\\in").empty());
}

}  // namespace
}  // namespace mrl
