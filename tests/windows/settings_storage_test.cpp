// The settings window with a file that can't be written: the message, what is kept, and that a
// later attempt succeeds.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "windows/host_program.h"
#include "windows/settings_hand.h"

namespace mrl {
namespace {

using standin::waitUntil;

class SettingsStorageTest : public SettingsHand {
 protected:
  static constexpr char kNobodyMay[] = "this user may mount no disk";

  void TearDown() override {
    if (hasDisk) {
      EXPECT_TRUE(shell(L"umount -l \"$PWD\""));
    }
  }
  /// Runs a shell command of the host system under Wine in the program's folder; false if it fails.
  bool shell(std::wstring command) const {
    // Not inside the folder, which may be full or mounted over by then.
    const std::wstring report = program.folder() + L".done";
    command =
        L"{ " + command + L"; } 2>/dev/null; echo $? > \"$PWD.new\"; mv \"$PWD.new\" \"$PWD.done\"";
    std::wstring line = LR"(Z:\bin\sh -c ")";
    for (const wchar_t unit : command) {
      if (unit == L'"') line += L'\\';
      line += unit;
    }
    line += L'"';
    EXPECT_TRUE(startOnHost(line, program.folder().c_str()));
    const auto isDone = [&] {
      return GetFileAttributesW(report.c_str()) != INVALID_FILE_ATTRIBUTES;
    };
    if (!waitUntil(isDone)) return false;
    std::string result;
    std::getline(std::ifstream(std::filesystem::path(report)), result);
    DeleteFileW(report.c_str());
    return result == "0";
  }
  /// Mounts a tiny disk over the program's folder. False if that isn't permitted.
  bool mountDisk() {
    hasDisk = shell(L"mount -t tmpfs -o size=32k none \"$PWD\"");
    return hasDisk;
  }

  /// Opens the settings file like another program, so that it can't be replaced.
  HANDLE holdFile() const {
    const HANDLE held = CreateFileW(program.settingsPath().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(held, INVALID_HANDLE_VALUE);
    return held;
  }

  static std::wstring failed(const std::wstring& why) {
    return L"设置保存失败，此项尚未生效：" + why;
  }
  bool hasTemporaryFile() const {
    const std::wstring path = program.settingsPath() + L".tmp";
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  void openAndRemember() {
    ASSERT_NO_FATAL_FAILURE(open(quiet()));
    before = program.settingsBytes();
  }
  /// Ticks a box and expects the save to fail for this reason.
  void expectTickFails(const std::wstring& why) {
    press(kHideNoDocumentCheck);
    EXPECT_TRUE(says(failed(why)));
    EXPECT_TRUE(isChecked(kHideNoDocumentCheck)) << "the form keeps it";
    EXPECT_EQ(program.settingsBytes(), before);
    EXPECT_FALSE(hasTemporaryFile());
  }
  /// Expects the next attempt to save the change.
  void expectSecondTrySaves() {
    pressKeys('S', {VK_CONTROL});
    EXPECT_TRUE(says(kApplied));
    EXPECT_TRUE(saved(&Settings::hideNoDocument, true));
  }

  bool hasDisk = false;
  std::string before;
};

TEST_F(SettingsStorageTest, AFileThatIsReadOnlyIsLeftAsItIs) {
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  // Wine, unlike Windows, replaces files with the read-only attribute, so a read-only mount is
  // needed.
  const std::wstring file = L" \"$PWD/settings.dat\"";
  if (!shell(L"mount --bind" + file + file)) GTEST_SKIP() << kNobodyMay;
  EXPECT_TRUE(shell(L"mount -o remount,bind,ro" + file));
  expectTickFails(L"Atomic configuration replacement failed");
  ASSERT_TRUE(shell(L"umount -l" + file));
  expectSecondTrySaves();
}

TEST_F(SettingsStorageTest, AFileThatAnotherProgramHoldsIsLeftAsItIs) {
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  const HANDLE held = holdFile();
  expectTickFails(L"Atomic configuration replacement failed");
  retype(kMinutesBox, L"7");
  ASSERT_TRUE(reads(kMinutesBox, L"7"));
  pressKeys(VK_RETURN);
  EXPECT_TRUE(says(failed(L"Atomic configuration replacement failed")));
  EXPECT_EQ(program.text(), L"15:00") << "what is not saved does not take effect";
  CloseHandle(held);
  expectSecondTrySaves();
  EXPECT_TRUE(program.waitForText(L"07:00"));
}

TEST_F(SettingsStorageTest, ATemporaryFileOfAnotherWriterIsLeftAsItIs) {
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  const std::wstring path = program.settingsPath() + L".tmp";
  const HANDLE held = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  press(kHideNoDocumentCheck);
  EXPECT_TRUE(says(failed(L"Cannot create temporary configuration")));
  EXPECT_TRUE(hasTemporaryFile());
  EXPECT_EQ(program.settingsBytes(), before);
  CloseHandle(held);
  expectSecondTrySaves();
}

TEST_F(SettingsStorageTest, AFailedSaveIsAskedAboutAndYesGivesUp) {
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  const HANDLE held = holdFile();
  expectTickFails(L"Atomic configuration replacement failed");
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDNO);
  EXPECT_TRUE(isChecked(kHideNoDocumentCheck));
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDYES);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settingsBytes(), before);
  CloseHandle(held);
}

TEST_F(SettingsStorageTest, AFullDiskKeepsTheOldFileWhole) {
  if (!mountDisk()) GTEST_SKIP() << kNobodyMay;
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  ASSERT_FALSE(shell(L"cat /dev/zero > filler")) << "until nothing more goes in";
  expectTickFails(L"Configuration flush failed");
  retype(kMinutesBox, L"7");
  ASSERT_TRUE(reads(kMinutesBox, L"7"));
  pressKeys(VK_RETURN);
  EXPECT_TRUE(says(failed(L"Configuration flush failed")));
  EXPECT_EQ(program.text(), L"15:00");
  ASSERT_TRUE(shell(L"rm filler"));
  expectSecondTrySaves();
  EXPECT_TRUE(program.waitForText(L"07:00"));
}

TEST_F(SettingsStorageTest, AFolderThatHasBecomeReadOnlyKeepsTheOldFile) {
  const bool isDisk = mountDisk();
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  const bool isLocked = isDisk ? shell(L"mount -o remount,ro \"$PWD\"")
                               : shell(L"chmod a-w \"$PWD\" && ! touch probe");
  if (!isLocked) GTEST_SKIP() << "rights do not stop this user, who may mount no disk either";
  expectTickFails(L"Cannot create temporary configuration");
  ASSERT_TRUE(shell(isDisk ? L"mount -o remount,rw \"$PWD\"" : L"chmod u+w \"$PWD\""));
  expectSecondTrySaves();
}

TEST_F(SettingsStorageTest, AFolderThatHasGoneIsMadeAnew) {
  ASSERT_NO_FATAL_FAILURE(openAndRemember());
  std::filesystem::remove_all(program.folder());
  press(kHideNoDocumentCheck);
  EXPECT_TRUE(says(kApplied));
  EXPECT_TRUE(saved(&Settings::hideNoDocument, true));
}

TEST_F(SettingsStorageTest, AFileThatWasRefusedAtTheStartIsNeverWrittenOver) {
  before = "MarluneNative2\nsomebody's notes";
  program.prepareBytes(before);
  ASSERT_NO_FATAL_FAILURE(openAsItIs());
  press(kHideNoDocumentCheck);
  EXPECT_TRUE(says(L"配置文件无法读取，未自动覆盖；请先恢复配置文件。"));
  retype(kMinutesBox, L"7");
  EXPECT_TRUE(says(kEditing));
  EXPECT_TRUE(says(L"配置文件无法读取，未自动覆盖；请先恢复配置文件。"));
  EXPECT_EQ(program.settingsBytes(), before);
  press(kCloseButton);
  ASSERT_TRUE(asks());
  answer(IDYES);
  EXPECT_TRUE(closes());
  EXPECT_EQ(program.settingsBytes(), before);
}

}  // namespace
}  // namespace mrl
