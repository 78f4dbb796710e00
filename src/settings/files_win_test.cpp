#include "settings/files_win.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/text.h"
#include "base/wide_win.h"
#include "settings/files_contract.h"
#include "settings/files_place_win.h"
#include "settings/path_rules.h"
#include "settings/settings_file.h"
#include "settings/settings_path_win.h"

namespace mrl {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Win, FilesContract, WinPlace);

/// Plays another process: a handle with the given access and sharing.
class OtherHandle {
 public:
  OtherHandle(const std::u16string& path, DWORD access, DWORD share)
      : handle(CreateFileW(wideFrom(path).c_str(), access, share, nullptr, OPEN_EXISTING, 0,
                           nullptr)) {}
  OtherHandle(const OtherHandle&) = delete;
  OtherHandle& operator=(const OtherHandle&) = delete;
  ~OtherHandle() {
    if (isOpen()) CloseHandle(handle);
  }
  [[nodiscard]] bool isOpen() const { return handle != INVALID_HANDLE_VALUE; }

 private:
  const HANDLE handle;
};

class FilesWinTest : public testing::Test {
 protected:
  void put(const std::u16string& path, std::string_view bytes) {
    const auto writer = files.create(path);
    ASSERT_TRUE(writer && writer->write(bytes));
  }

  WinPlace place;
  FilesWin& files = place.files;
  std::u16string file = place.folder + u"\\settings.dat";
};

TEST_F(FilesWinTest, AFileThatOthersReadAndWriteCanBeRead) {
  put(file, "x");
  const OtherHandle other(file, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_TRUE(other.isOpen());
  std::string bytes;
  EXPECT_TRUE(files.read(file, bytes));
  EXPECT_EQ(bytes, "x");
}

TEST_F(FilesWinTest, WhileAFileIsWrittenNobodyCanOpenIt) {
  const auto writer = files.create(file);
  ASSERT_TRUE(writer);
  EXPECT_FALSE(
      OtherHandle(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE)
          .isOpen());
}

TEST_F(FilesWinTest, AnExistingFileHasOneFormWhateverItsSpelling) {
  put(place.folder + u"\\Demo.pptx", "");
  std::u16string plain;
  std::u16string other;
  ASSERT_EQ(files.canonical(place.folder + u"\\Demo.pptx", plain), CanonicalResult::Found);
  ASSERT_EQ(files.canonical(place.folder + u"/x/../dEMO.pptx", other), CanonicalResult::Found);
  EXPECT_EQ(other, plain);
  EXPECT_EQ(plain.substr(1, 2), u":\\");
  EXPECT_TRUE(plain.ends_with(u"\\Demo.pptx"));
}

TEST_F(FilesWinTest, NamesThatWindowsRefusesCountAsMissing) {
  std::u16string result;
  EXPECT_EQ(files.canonical(place.folder + u"\\a<b>|?.pptx", result), CanonicalResult::Missing);
}

TEST_F(FilesWinTest, AnyOtherTroubleIsNotAbsence) {
  // A pipe whose only instance is in use can't be opened, and yet exists.
  const std::u16string busy = u"\\\\.\\pipe\\marlune-busy-" + decimal(GetCurrentProcessId());
  const HANDLE pipe = CreateNamedPipeW(wideFrom(busy).c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE,
                                       1, 64, 64, 0, nullptr);
  ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
  {
    const OtherHandle client(busy, GENERIC_READ, 0);
    EXPECT_TRUE(client.isOpen());
    std::u16string result;
    FileKind kind = FileKind::Missing;
    std::u16string error;
    EXPECT_EQ(files.canonical(busy, result), CanonicalResult::Failed);
    EXPECT_FALSE(files.status(busy, kind, error));
    ASSERT_NE(error, u"");
    EXPECT_NE(error.back(), u' ') << "more words follow it";
    EXPECT_EQ(normalizePath(files, busy), busy);
    Settings record;
    EXPECT_THROW(static_cast<void>(loadSettings(files, busy, record, error)),
                 std::filesystem::filesystem_error);
  }
  CloseHandle(pipe);
}

TEST_F(FilesWinTest, ADeviceIsNeitherFileNorFolder) {
  FileKind kind = FileKind::Missing;
  std::u16string error;
  EXPECT_TRUE(files.status(u"NUL", kind, error));
  EXPECT_EQ(kind, FileKind::Other);
}

TEST_F(FilesWinTest, TwoSpellingsAreTheSameFileAfterNormalisation) {
  const std::u16string first = normalizePath(files, u"C:\\a\\..\\b\\x.pptx");
  EXPECT_TRUE(samePath(first, normalizePath(files, u"c:/B/X.PPTX")));
  EXPECT_TRUE(samePath(first, u"C:\\b\\x.pptx"));
}

TEST_F(FilesWinTest, OfAnAbsentFileTheFolderIsResolved) {
  std::u16string folder;
  ASSERT_EQ(files.canonical(place.folder, folder), CanonicalResult::Found);
  EXPECT_EQ(normalizePath(files, place.folder + u"/./gone/x/../y.pptx"),
            folder + u"\\gone\\y.pptx");
}

TEST_F(FilesWinTest, ASavedRecordLoadsAgain) {
  Settings saved;
  saved.windowX = -1200;
  saved.skipList = {u"C:\\演示\\\"quoted\".pptx"};
  std::u16string error;
  const std::u16string deep = place.folder + u"\\new\\folders\\settings.dat";
  ASSERT_TRUE(saveSettings(files, deep, saved, error));
  Settings loaded;
  ASSERT_TRUE(loadSettings(files, deep, loaded, error));
  EXPECT_EQ(loaded, saved);
}

TEST_F(FilesWinTest, AFileThatAnotherProcessHoldsOpenStaysWholeAndTheTemporaryFileGoes) {
  std::u16string error;
  ASSERT_TRUE(saveSettings(files, file, Settings{}, error));
  Settings changed;
  changed.duration = 60;
  {
    const OtherHandle other(file, GENERIC_READ, 0);
    ASSERT_TRUE(other.isOpen());
    EXPECT_FALSE(saveSettings(files, file, changed, error));
    EXPECT_EQ(error, u"Atomic configuration replacement failed");
    Settings unread;
    unread.duration = 77;
    EXPECT_FALSE(loadSettings(files, file, unread, error));
    EXPECT_EQ(error, u"无法读取配置");
    EXPECT_EQ(unread.duration, 77U);
  }
  FileKind kind = FileKind::Other;
  ASSERT_TRUE(files.status(file + u".tmp", kind, error));
  EXPECT_EQ(kind, FileKind::Missing);
  Settings loaded;
  ASSERT_TRUE(loadSettings(files, file, loaded, error));
  EXPECT_EQ(loaded, Settings{});
}

TEST_F(FilesWinTest, ATemporaryFileThatAnotherProcessHoldsOpenStopsTheSave) {
  put(file + u".tmp", "theirs");
  {
    const OtherHandle other(file + u".tmp", GENERIC_READ, 0);
    ASSERT_TRUE(other.isOpen());
    std::u16string error;
    EXPECT_FALSE(saveSettings(files, file, Settings{}, error));
    EXPECT_EQ(error, u"Cannot create temporary configuration");
  }
  std::string bytes;
  ASSERT_TRUE(files.read(file + u".tmp", bytes));
  EXPECT_EQ(bytes, "theirs");
}

TEST(SettingsPathWinTest, TheFileLivesInTheLocalApplicationData) {
  const std::u16string path = settingsPath();
  wchar_t folder[MAX_PATH]{};
  ASSERT_NE(GetEnvironmentVariableW(L"LOCALAPPDATA", folder, MAX_PATH), 0u);
  EXPECT_EQ(path, u16From(folder) + u"\\Marlune-Native\\settings.dat");
}

}  // namespace
}  // namespace mrl
