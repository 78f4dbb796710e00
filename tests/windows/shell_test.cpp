// Opening files through the shell really starts them. The netsh stand-in records where it was
// started.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/wide_win.h"
#include "core/shell_win.h"
#include "windows/program.h"
#include "windows/standin_client.h"

namespace mrl {
namespace {

namespace fs = std::filesystem;

class ShellSystemTest : public testing::Test {
 protected:
  ShellSystemTest() { SetEnvironmentVariableW(L"MARLUNE_NETSH", log.c_str()); }
  ~ShellSystemTest() override { SetEnvironmentVariableW(L"MARLUNE_NETSH", nullptr); }

  /// The command's working directory after opening it with `place`.
  fs::path folderOfStart(const std::wstring& place) {
    fs::remove(log);
    EXPECT_TRUE(shell.open(u16From(standin::executableFolder() + L"netsh.exe"), u16From(place)));
    EXPECT_TRUE(standin::waitUntil([&] { return fs::exists(log); }));  // written last
    std::ifstream file(fs::path(log + L".start"), std::ios::binary);
    std::string folder;
    std::getline(file, folder);
    return folder;
  }

  const TemporaryFolder folder;
  const std::wstring log = folder.path() + L"\\arguments.txt";
  ShellWin shell;
};

TEST_F(ShellSystemTest, WhatIsOpenedStartsInTheFolderThatIsNamed) {
  EXPECT_TRUE(fs::equivalent(folderOfStart(folder.path()), folder.path()));
}

TEST_F(ShellSystemTest, WithoutOneItStartsInThisProgramsOwn) {
  EXPECT_TRUE(fs::equivalent(folderOfStart(L""), fs::current_path()));
}

TEST_F(ShellSystemTest, WhatDoesNotExistIsRefused) {
  EXPECT_FALSE(shell.open(u16From(folder.path() + L"\\none.msc"), u16From(folder.path())));
}

}  // namespace
}  // namespace mrl
