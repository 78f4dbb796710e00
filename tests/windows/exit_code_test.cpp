// The exit code if Windows refuses something essential at the start.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "windows/program.h"
#include "windows/standin_client.h"
#include "windows/start_process.h"

namespace mrl {
namespace {

/// A copy of the program that calls `other` instead of `function`. REQUIRES: names of equal length.
std::wstring copyThatCalls(const TemporaryFolder& folder, const std::string& function,
                           const std::string& other) {
  std::string bytes = bytesOf(standin::executableFolder() + L"marlune.exe");
  size_t at = bytes.find(function);
  EXPECT_NE(at, std::string::npos);
  for (; at != std::string::npos; at = bytes.find(function, at)) {
    bytes.replace(at, function.size(), other);
  }
  const std::wstring path = folder.path() + L"\\marlune.exe";
  std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
  return path;
}

/// Its exit code; a value that no program uses if it doesn't exit.
DWORD exitCodeOf(const std::wstring& program, const TemporaryFolder& root) {
  const HANDLE process = startProcess(L"\"" + program + L"\" \"--test-root=" + root.path() + L"\"");
  if (process == nullptr) return STILL_ACTIVE;
  WaitForSingleObject(process, 10'000);
  DWORD exitCode = STILL_ACTIVE;
  GetExitCodeProcess(process, &exitCode);
  TerminateProcess(process, 0);
  WaitForSingleObject(process, 10'000);
  CloseHandle(process);
  return exitCode;
}

TEST(ExitCodeTest, WithoutComItIsOne) {
  const TemporaryFolder folder;
  // CoRevertToSelf fails unless called during a COM call.
  const std::wstring program = copyThatCalls(folder, "CoInitializeEx", "CoRevertToSelf");
  EXPECT_EQ(exitCodeOf(program, folder), 1u);
  EXPECT_FALSE(std::filesystem::exists(folder.path() + L"\\settings.dat"));
}

}  // namespace
}  // namespace mrl
