#include "settings/settings_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <new>

#include "settings/files_fake.h"
#include "settings/settings_format.h"
#include "settings/settings_sample.h"

namespace mrl {
namespace {

using Operation = FilesFake::Operation;

const std::u16string kFolder = u"C:\\Local\\Marlune-Native";
const std::u16string kPath = kFolder + u"\\settings.dat";
const std::u16string kTemporary = kPath + u".tmp";

/// The steps of a successful save.
const std::vector<FilesFake::Step> kSaveSteps = {{Operation::CreateFolders, kFolder},
                                                 {Operation::Create, kTemporary},
                                                 {Operation::Write, kTemporary},
                                                 {Operation::Flush, kTemporary},
                                                 {Operation::Replace, kTemporary}};

class SettingsFileTest : public testing::Test {
 protected:
  bool save(const Settings& record) { return saveSettings(files, kPath, record, error); }
  bool load(Settings& record) { return loadSettings(files, kPath, record, error); }
  void putOld() { files.putFile(kPath, composeSettings(old)); }
  void expectOldAlone() {
    EXPECT_EQ(files.bytesOf(kPath), composeSettings(old));
    EXPECT_FALSE(files.exists(kTemporary));
  }

  FilesFake files;
  std::u16string error;
  const Settings old = {};
  const Settings fresh = fullRecord();
};

// --- loading ---

TEST_F(SettingsFileTest, ASavedRecordLoadsAgain) {
  ASSERT_TRUE(save(fresh));
  Settings record;
  EXPECT_TRUE(load(record));
  EXPECT_EQ(record, fresh);
  EXPECT_EQ(error, u"");
}

TEST_F(SettingsFileTest, WithoutAFileTheRecordStaysAsItIs) {
  Settings record = fresh;
  EXPECT_TRUE(load(record));
  EXPECT_EQ(record, fresh);
  EXPECT_EQ(error, u"");
}

TEST_F(SettingsFileTest, AnEmptyPathLoadsLikeAMissingFile) {
  Settings record = fresh;
  EXPECT_TRUE(loadSettings(files, u"", record, error));
  EXPECT_EQ(record, fresh);
}

TEST_F(SettingsFileTest, AFileThatCannotBeOpenedIsNotAMissingFile) {
  putOld();
  files.holdOpen(kPath);
  Settings record = fresh;
  EXPECT_FALSE(load(record));
  EXPECT_EQ(error, u"无法读取配置");
  EXPECT_EQ(record, fresh);
  EXPECT_EQ(files.bytesOf(kPath), composeSettings(old));
}

TEST_F(SettingsFileTest, AFolderInPlaceOfTheFileCannotBeRead) {
  files.putFolder(kPath);
  Settings record = fresh;
  EXPECT_FALSE(load(record));
  EXPECT_EQ(error, u"无法读取配置");
  EXPECT_EQ(record, fresh);
}

TEST_F(SettingsFileTest, AStatusThatCannotBeToldEndsTheLoadByAnException) {
  putOld();
  files.denyAccess(kPath);
  Settings record = fresh;
  try {
    EXPECT_TRUE(load(record));
    FAIL() << "no exception";
  } catch (const std::filesystem::filesystem_error& thrown) {
    EXPECT_NE(std::string(thrown.what()).find("Access is denied."), std::string::npos);
  }
  EXPECT_EQ(record, fresh);
}

TEST_F(SettingsFileTest, AReadableFileIsNotAskedForItsStatus) {
  putOld();
  Settings record;
  ASSERT_TRUE(load(record));
  const std::vector<FilesFake::Step> expected = {{Operation::Read, kPath}};
  EXPECT_EQ(files.done, expected);
}

TEST_F(SettingsFileTest, ARefusedFileLeavesRecordAndFileUntouched) {
  const std::pair<std::string, std::u16string> rows[] = {
      {"", u"配置格式无效，已使用默认值；原文件未覆盖。"},
      {"MarluneNative1\n900 1 1 0\n300 10 183 82\n1 0 0 0 0\n\"\"\n\"\"\n3\n\"a\"",
       u"配置列表不完整"},
      {"MarluneNative2\n900 1 1 0\n300 10 183 82\n1 0 0 0 0\n\"\"\n\"\"\n0\n", u"配置扩展字段无效"},
      {composeSettings(fresh).substr(0, composeSettings(fresh).size() - 5), u"预警配置无效"},
  };
  for (const auto& [bytes, message] : rows) {
    files.putFile(kPath, bytes);
    Settings record = fresh;
    EXPECT_FALSE(load(record));
    EXPECT_EQ(error, message);
    EXPECT_EQ(record, fresh);
    EXPECT_EQ(files.bytesOf(kPath), bytes);
  }
}

TEST_F(SettingsFileTest, AStaleTemporaryFileIsNeverRead) {
  files.putFile(kTemporary, composeSettings(fresh));
  Settings record;
  EXPECT_TRUE(load(record));
  EXPECT_EQ(record, Settings{});
}

// --- saving ---

TEST_F(SettingsFileTest, ASaveTakesFiveStepsInThisOrder) {
  ASSERT_TRUE(save(fresh));
  EXPECT_EQ(files.done, kSaveSteps);
  EXPECT_EQ(files.bytesOf(kPath), composeSettings(fresh));
  EXPECT_FALSE(files.exists(kTemporary));
}

TEST_F(SettingsFileTest, TheFirstSaveTurnsAnOlderFileIntoTheCurrentVersion) {
  files.putFile(kPath, "MarluneNative1\n900 1 1 0\n300 10 183 82\n1 0 0 0 0\n\"\"\n\"\"\n0\n");
  Settings record;
  ASSERT_TRUE(load(record));
  ASSERT_TRUE(save(record));
  EXPECT_EQ(files.bytesOf(kPath), composeSettings(Settings{}));
}

TEST_F(SettingsFileTest, AStaleTemporaryFileIsOverwritten) {
  files.putFile(kTemporary, std::string(5000, 'x'));
  ASSERT_TRUE(save(fresh));
  EXPECT_EQ(files.bytesOf(kPath), composeSettings(fresh));
  EXPECT_FALSE(files.exists(kTemporary));
}

TEST_F(SettingsFileTest, ASaveReplacesARefusedFile) {
  files.putFile(kPath, "foreign");
  Settings record;
  ASSERT_FALSE(load(record));
  ASSERT_TRUE(save(record));
  EXPECT_TRUE(load(record));
}

TEST_F(SettingsFileTest, WithoutAPathNothingIsTouched) {
  EXPECT_FALSE(saveSettings(files, u"", fresh, error));
  EXPECT_EQ(error, u"No configuration directory");
  EXPECT_TRUE(files.done.empty());
}

TEST_F(SettingsFileTest, ARecordThatTheNextStartWouldRefuseIsNotSaved) {
  putOld();
  Settings record;
  record.skipList.assign(kMaxSkipped, u"C:\\a.pptx");
  ASSERT_TRUE(save(record));
  ASSERT_TRUE(load(record));
  const std::string before = files.bytesOf(kPath);
  record.skipList.push_back(u"C:\\b.pptx");
  EXPECT_FALSE(save(record));
  EXPECT_EQ(error, u"Too many excluded presentations");
  EXPECT_EQ(files.bytesOf(kPath), before);
}

TEST_F(SettingsFileTest, TheFolderIsCutBeforeTheFileName) {
  const std::pair<std::u16string, std::u16string> rows[] = {
      {u"C:\\a\\settings.dat", u"C:\\a"},
      {u"C:/a/b/settings.dat", u"C:/a/b"},
      {u"C:\\settings.dat", u"C:\\"},
  };
  for (const auto& [path, folder] : rows) {
    files.done.clear();
    ASSERT_TRUE(saveSettings(files, path, fresh, error));
    EXPECT_EQ(files.done[0], (FilesFake::Step{Operation::CreateFolders, folder}));
  }
}

TEST_F(SettingsFileTest, ABareFileNameNeedsNoFolder) {
  ASSERT_TRUE(saveSettings(files, u"settings.dat", fresh, error));
  EXPECT_EQ(files.done[0].operation, Operation::Create);
}

TEST_F(SettingsFileTest, AFolderThatCannotBeMadeIsToldInTheSystemsWords) {
  putOld();
  files.failing = {Operation::CreateFolders};
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"create_directories: Access is denied. [C:\\Local\\Marlune-Native]");
  expectOldAlone();
}

TEST_F(SettingsFileTest, ATemporaryFileThatCannotBeMadeStopsTheSave) {
  putOld();
  files.failing = {Operation::Create};
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"Cannot create temporary configuration");
  expectOldAlone();
}

TEST_F(SettingsFileTest, ATemporaryFileOfAnotherWriterIsLeftAlone) {
  putOld();
  const auto other = files.create(kTemporary);
  ASSERT_TRUE(other->write("theirs"));
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"Cannot create temporary configuration");
  EXPECT_EQ(files.bytesOf(kTemporary), "theirs");
  EXPECT_EQ(files.bytesOf(kPath), composeSettings(old));
}

TEST_F(SettingsFileTest, AFailedWriteRemovesTheTemporaryFile) {
  putOld();
  files.failing = {Operation::Write};
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"Configuration flush failed");
  expectOldAlone();
}

TEST_F(SettingsFileTest, AFailedFlushRemovesTheTemporaryFile) {
  putOld();
  files.failing = {Operation::Flush};
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"Configuration flush failed");
  expectOldAlone();
}

TEST_F(SettingsFileTest, AFailedReplacementRemovesTheTemporaryFile) {
  putOld();
  files.failing = {Operation::Replace};
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"Atomic configuration replacement failed");
  expectOldAlone();
}

TEST_F(SettingsFileTest, AFileThatAnotherProcessHoldsOpenStaysWhole) {
  putOld();
  files.holdOpen(kPath);
  EXPECT_FALSE(save(fresh));
  EXPECT_EQ(error, u"Atomic configuration replacement failed");
  expectOldAlone();
}

TEST_F(SettingsFileTest, NothingIsTriedTwice) {
  for (const FilesFake::Step& step : kSaveSteps) {
    files.done.clear();
    files.failing = {step.operation};
    EXPECT_FALSE(save(fresh));
    EXPECT_EQ(std::count(files.done.begin(), files.done.end(), step), 1);
  }
}

TEST_F(SettingsFileTest, ASaveThatFailedOnceGoesThroughTheNextTime) {
  putOld();
  for (size_t step = 0; step < kSaveSteps.size(); ++step) {
    files.done.clear();
    files.failingStep = step;
    EXPECT_FALSE(save(fresh)) << step;
    expectOldAlone();
  }
  files.failingStep = FilesFake::kNever;
  EXPECT_TRUE(save(fresh));
  EXPECT_EQ(files.bytesOf(kPath), composeSettings(fresh));
}

TEST_F(SettingsFileTest, WhereverThePowerGoesTheOldOrTheNewFileIsWhole) {
  for (size_t steps = 0; steps <= kSaveSteps.size(); ++steps) {
    files = FilesFake();
    putOld();
    files.stepsUntilDark = steps;
    const bool saved = save(fresh);
    files.restorePower();
    Settings record;
    ASSERT_TRUE(load(record)) << steps;
    EXPECT_EQ(record, steps == kSaveSteps.size() ? fresh : old) << steps;
    EXPECT_EQ(saved, steps == kSaveSteps.size()) << steps;
    EXPECT_TRUE(save(fresh)) << "what is left must not stop the next save, " << steps;
  }
}

TEST_F(SettingsFileTest, WhereverThePowerGoesOnTheFirstSaveThereIsNoneOrAWholeFile) {
  for (size_t steps = 0; steps <= kSaveSteps.size(); ++steps) {
    files = FilesFake();
    files.stepsUntilDark = steps;
    static_cast<void>(save(fresh));
    files.restorePower();
    Settings record;
    ASSERT_TRUE(load(record)) << steps;
    EXPECT_EQ(record, steps == kSaveSteps.size() ? fresh : Settings{}) << steps;
  }
}

/// Runs out of memory during a save.
class ExhaustedFiles : public FilesFake {
 public:
  bool createFolders(const std::u16string&, std::u16string&) override { throw std::bad_alloc(); }
};

TEST(SettingsFileExceptionTest, AnyOtherExceptionIsToldInItsOwnWords) {
  ExhaustedFiles files;
  std::u16string error;
  EXPECT_FALSE(saveSettings(files, kPath, Settings{}, error));
  EXPECT_EQ(error, u"std::bad_alloc");
}

}  // namespace
}  // namespace mrl
