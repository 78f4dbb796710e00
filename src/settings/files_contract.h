// The contract of every Files. Each implementation runs these tests in its own *_test.cpp:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, FilesContract, Place);
// where `Place` has a member `files` and an existing, empty `folder`.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "settings/files.h"

namespace mrl {

template <typename Place>
class FilesContract : public testing::Test {
 protected:
  std::u16string path(std::u16string_view name) {
    return (place.folder + files.separator()).append(name);
  }

  /// Creates, writes, flushes and closes.
  bool put(const std::u16string& file, std::string_view bytes) {
    const auto writer = files.create(file);
    return writer && writer->write(bytes) && writer->flush();
  }

  FileKind kindOf(const std::u16string& file) {
    FileKind kind = FileKind::Other;
    std::u16string error;
    EXPECT_TRUE(files.status(file, kind, error));
    EXPECT_EQ(error, u"");
    return kind;
  }

  std::string bytesOf(const std::u16string& file) {
    std::string bytes;
    EXPECT_TRUE(files.read(file, bytes));
    return bytes;
  }

  std::vector<FolderEntry> sortedList(const std::u16string& folder) {
    std::vector<FolderEntry> entries = files.list(folder);
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
    return entries;
  }

  Place place;
  Files& files = place.files;
};
TYPED_TEST_SUITE_P(FilesContract);

TYPED_TEST_P(FilesContract, WhatWasWrittenIsReadBackByteForByte) {
  const std::string bytes("\xEF\xBB\xBF line\r\n\n\x1A\0\xFF end", 18);
  ASSERT_TRUE(this->put(this->path(u"新 file.dat"), bytes));
  EXPECT_EQ(this->bytesOf(this->path(u"新 file.dat")), bytes);
}

TYPED_TEST_P(FilesContract, ABigFileIsReadWhole) {
  const std::string bytes(300'000, 'x');
  ASSERT_TRUE(this->put(this->path(u"big"), bytes));
  EXPECT_EQ(this->bytesOf(this->path(u"big")), bytes);
}

TYPED_TEST_P(FilesContract, AnEmptyFileIsReadAsNoBytes) {
  ASSERT_TRUE(this->put(this->path(u"empty"), ""));
  std::string bytes = "before";
  EXPECT_TRUE(this->files.read(this->path(u"empty"), bytes));
  EXPECT_EQ(bytes, "");
}

TYPED_TEST_P(FilesContract, WhatCannotBeReadLeavesTheBytesUntouched) {
  std::string bytes = "before";
  EXPECT_FALSE(this->files.read(this->path(u"missing"), bytes));
  EXPECT_FALSE(this->files.read(this->place.folder, bytes));
  EXPECT_FALSE(this->files.read(u"", bytes));
  EXPECT_EQ(bytes, "before");
}

TYPED_TEST_P(FilesContract, StatusTellsFilesFromFoldersFromNothing) {
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  EXPECT_EQ(this->kindOf(this->path(u"file")), FileKind::Regular);
  EXPECT_EQ(this->kindOf(this->place.folder), FileKind::Directory);
  EXPECT_EQ(this->kindOf(this->path(u"missing")), FileKind::Missing);
  EXPECT_EQ(this->kindOf(this->path(u"missing") + this->files.separator() + u"file"),
            FileKind::Missing);
  EXPECT_EQ(this->kindOf(u""), FileKind::Missing);
}

TYPED_TEST_P(FilesContract, CreatingTruncatesAnOldFile) {
  ASSERT_TRUE(this->put(this->path(u"file"), "long before"));
  ASSERT_TRUE(this->put(this->path(u"file"), "new"));
  EXPECT_EQ(this->bytesOf(this->path(u"file")), "new");
}

TYPED_TEST_P(FilesContract, NobodyElseCreatesAFileThatIsBeingWritten) {
  auto first = this->files.create(this->path(u"file"));
  ASSERT_TRUE(first);
  ASSERT_TRUE(first->write("first"));
  EXPECT_FALSE(this->files.create(this->path(u"file")));
  first.reset();
  EXPECT_EQ(this->bytesOf(this->path(u"file")), "first");
  EXPECT_TRUE(this->files.create(this->path(u"file")));
}

TYPED_TEST_P(FilesContract, AFileIsNotCreatedWhereItsFolderIsMissingOrOverAFolder) {
  EXPECT_FALSE(
      this->files.create(this->path(u"missing") + this->files.separator() + u"settings.dat"));
  EXPECT_FALSE(this->files.create(this->place.folder));
  EXPECT_FALSE(this->files.create(u""));
}

TYPED_TEST_P(FilesContract, ReplacingMovesTheNewFileOverTheOldOne) {
  ASSERT_TRUE(this->put(this->path(u"new"), "new"));
  ASSERT_TRUE(this->put(this->path(u"old"), "old"));
  EXPECT_TRUE(this->files.replace(this->path(u"new"), this->path(u"old")));
  EXPECT_EQ(this->bytesOf(this->path(u"old")), "new");
  EXPECT_EQ(this->kindOf(this->path(u"new")), FileKind::Missing);
}

TYPED_TEST_P(FilesContract, ReplacingNeedsNoOldFile) {
  ASSERT_TRUE(this->put(this->path(u"new"), "new"));
  EXPECT_TRUE(this->files.replace(this->path(u"new"), this->path(u"first")));
  EXPECT_EQ(this->bytesOf(this->path(u"first")), "new");
}

TYPED_TEST_P(FilesContract, AFailedReplacementLeavesBothAsTheyWere) {
  ASSERT_TRUE(this->put(this->path(u"old"), "old"));
  EXPECT_FALSE(this->files.replace(this->path(u"missing"), this->path(u"old")));
  EXPECT_EQ(this->bytesOf(this->path(u"old")), "old");
  EXPECT_FALSE(this->files.replace(this->path(u"old"), this->place.folder));
  EXPECT_EQ(this->bytesOf(this->path(u"old")), "old");
  EXPECT_EQ(this->kindOf(this->place.folder), FileKind::Directory);
}

TYPED_TEST_P(FilesContract, RemovingTakesTheFileAway) {
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  this->files.remove(this->path(u"file"));
  EXPECT_EQ(this->kindOf(this->path(u"file")), FileKind::Missing);
  this->files.remove(this->path(u"file"));
}

TYPED_TEST_P(FilesContract, CreatingAFolderMakesThoseAboveItToo) {
  const std::u16string deep = this->path(u"a") + this->files.separator() + u"乙";
  std::u16string error;
  EXPECT_TRUE(this->files.createFolders(deep, error));
  EXPECT_EQ(this->kindOf(deep), FileKind::Directory);
  EXPECT_TRUE(this->files.createFolders(deep, error));
  EXPECT_EQ(error, u"");
}

TYPED_TEST_P(FilesContract, AFolderThatCannotBeMadeComesWithTheSystemsWords) {
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  const std::u16string below = this->path(u"file") + this->files.separator() + u"folder";
  for (const std::u16string& folder : {this->path(u"file"), below}) {
    std::u16string error;
    EXPECT_FALSE(this->files.createFolders(folder, error));
    EXPECT_NE(error, u"");
  }
  EXPECT_EQ(this->bytesOf(this->path(u"file")), "x");
}

TYPED_TEST_P(FilesContract, AListHasTheFilesAndFoldersOfAFolderAndNothingBelow) {
  std::u16string error;
  ASSERT_TRUE(this->put(this->path(u"Talk 演示.PPTX"), "x"));
  ASSERT_TRUE(this->files.createFolders(this->path(u"folder.ppt"), error));
  ASSERT_TRUE(this->put(this->path(u"folder.ppt") + this->files.separator() + u"below", "x"));
  EXPECT_EQ(this->sortedList(this->place.folder),
            (std::vector<FolderEntry>{{u"Talk 演示.PPTX", FileKind::Regular},
                                      {u"folder.ppt", FileKind::Directory}}));
}

TYPED_TEST_P(FilesContract, ASeparatorBehindAFolderMakesNoDifferenceToItsList) {
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  EXPECT_EQ(this->sortedList(this->path(u"")),
            (std::vector<FolderEntry>{{u"file", FileKind::Regular}}));
}

TYPED_TEST_P(FilesContract, AnEmptyFolderAndWhatIsNoFolderHaveAnEmptyList) {
  EXPECT_TRUE(this->files.list(this->place.folder).empty());
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  EXPECT_TRUE(this->files.list(this->path(u"file")).empty());
  EXPECT_TRUE(this->files.list(this->path(u"missing")).empty());
}

TYPED_TEST_P(FilesContract, AFolderOfManyFilesIsListedWhole) {
  constexpr int64_t kMany = 1'000;
  std::vector<std::u16string> expected;
  for (int64_t number = 0; number < kMany; ++number) {
    expected.push_back(decimal(kMany + number));
    ASSERT_TRUE(this->files.create(this->path(expected.back())));
  }
  std::vector<std::u16string> names;
  for (const FolderEntry& entry : this->sortedList(this->place.folder)) {
    names.push_back(entry.name);
  }
  EXPECT_EQ(names, expected);
}

TYPED_TEST_P(FilesContract, AllSpellingsOfAnExistingPathHaveOneCanonicalForm) {
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  const std::u16string dot = this->path(u".") + this->files.separator();
  std::u16string plain;
  std::u16string winding;
  ASSERT_EQ(this->files.canonical(this->path(u"file"), plain), CanonicalResult::Found);
  ASSERT_EQ(this->files.canonical(dot + this->files.separator() + u"file", winding),
            CanonicalResult::Found);
  EXPECT_EQ(winding, plain);
  EXPECT_TRUE(plain.ends_with(this->files.separator() + std::u16string(u"file")));
  EXPECT_EQ(this->bytesOf(plain), "x");
}

TYPED_TEST_P(FilesContract, ACanonicalFolderHasNoSeparatorAtItsEnd) {
  std::u16string plain;
  std::u16string closed;
  ASSERT_EQ(this->files.canonical(this->place.folder, plain), CanonicalResult::Found);
  ASSERT_EQ(this->files.canonical(this->path(u""), closed), CanonicalResult::Found);
  EXPECT_EQ(closed, plain);
  EXPECT_NE(plain.back(), this->files.separator());
}

TYPED_TEST_P(FilesContract, WhatIsMissingHasNoCanonicalForm) {
  ASSERT_TRUE(this->put(this->path(u"file"), "x"));
  const std::u16string mark(1, this->files.separator());
  for (const std::u16string& missing :
       {this->path(u"missing"), this->path(u"missing") + mark + u"file", this->path(u"file") + mark,
        this->path(u"file") + mark + u"below", std::u16string()}) {
    std::u16string result = u"before";
    EXPECT_EQ(this->files.canonical(missing, result), CanonicalResult::Missing);
    EXPECT_EQ(result, u"before");
  }
}

REGISTER_TYPED_TEST_SUITE_P(
    FilesContract, WhatWasWrittenIsReadBackByteForByte, ABigFileIsReadWhole,
    AnEmptyFileIsReadAsNoBytes, WhatCannotBeReadLeavesTheBytesUntouched,
    StatusTellsFilesFromFoldersFromNothing, CreatingTruncatesAnOldFile,
    NobodyElseCreatesAFileThatIsBeingWritten, AFileIsNotCreatedWhereItsFolderIsMissingOrOverAFolder,
    ReplacingMovesTheNewFileOverTheOldOne, ReplacingNeedsNoOldFile,
    AFailedReplacementLeavesBothAsTheyWere, RemovingTakesTheFileAway,
    CreatingAFolderMakesThoseAboveItToo, AFolderThatCannotBeMadeComesWithTheSystemsWords,
    AListHasTheFilesAndFoldersOfAFolderAndNothingBelow,
    ASeparatorBehindAFolderMakesNoDifferenceToItsList,
    AnEmptyFolderAndWhatIsNoFolderHaveAnEmptyList, AFolderOfManyFilesIsListedWhole,
    AllSpellingsOfAnExistingPathHaveOneCanonicalForm, ACanonicalFolderHasNoSeparatorAtItsEnd,
    WhatIsMissingHasNoCanonicalForm);

}  // namespace mrl
