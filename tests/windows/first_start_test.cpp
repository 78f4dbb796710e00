// The program's first start by its user: it finds the network, checks the firewall, has its rule
// added and serves the page on the network's address. Only the firewall and netsh are fakes; the
// program and the way it reaches them are real.
#include <gtest/gtest.h>

#include <filesystem>

#include "base/command_ids.h"
#include "base/wide_win.h"
#include "http/raw_client_win.h"
#include "remote/addresses.h"
#include "remote/network_win.h"
#include "settings/files_win.h"
#include "settings/settings_file.h"
#include "settings/settings_path_win.h"
#include "windows/firewall_class.h"
#include "windows/netsh_in_place.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

namespace fs = std::filesystem;

/// Registers the fake firewall's DLL under the system's class; restores the system's own at the
/// end.
class FirewallInPlace {
 public:
  FirewallInPlace() : kept(value()) { setValue(standin::executableFolder() + L"firewall.dll"); }
  FirewallInPlace(const FirewallInPlace&) = delete;
  ~FirewallInPlace() { setValue(kept); }

 private:
  static constexpr wchar_t kKey[] =
      L"Software\\Classes\\CLSID\\{E2B3C97F-6AE1-41AC-817A-F6F92166D7DD}\\InprocServer32";

  static std::wstring value() {
    wchar_t text[MAX_PATH]{};
    DWORD size = sizeof text;
    (void)RegGetValueW(HKEY_LOCAL_MACHINE, kKey, nullptr, RRF_RT_ANY, nullptr, text, &size);
    return text;
  }
  static void setValue(const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, nullptr, REG_SZ, text.c_str(), size), 0);
  }
  std::wstring kept;
};

/// Whether a control of `window` has that text.
bool shows(HWND window, const std::wstring& text) {
  for (HWND child = nullptr; (child = FindWindowExW(window, child, nullptr, nullptr)) != nullptr;) {
    wchar_t own[256]{};
    SendMessageW(child, WM_GETTEXT, std::size(own), reinterpret_cast<LPARAM>(own));
    if (own == text) return true;
  }
  return false;
}

class FirstStartTest : public testing::Test {
 protected:
  void SetUp() override {
    NetworkWin network;
    std::u16string error;
    if (!discoverAddresses(network, addresses, error)) {
      GTEST_SKIP() << "this machine is in no network";
    }
    port = static_cast<int32_t>(somePort());
    FilesWin files;
    Settings settings;
    settings.remotePort = static_cast<uint32_t>(port);
    fs::remove_all(ownFolder());
    fs::create_directories(ownFolder());
    ASSERT_TRUE(saveSettings(files, settingsPath(), settings, error));
  }
  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(ownFolder(), ignored);
  }
  static std::wstring systemFolder() {
    wchar_t path[MAX_PATH];
    return {path, GetSystemDirectoryW(path, MAX_PATH)};
  }
  static fs::path ownFolder() { return fs::path(wideFrom(settingsPath())).parent_path(); }
  /// The HTTP status of a request to `address`; 0 if nobody listens there.
  int statusAt(uint32_t address, const std::string& host) const {
    RawClient client(port, address);
    if (!client.isConnected()) return 0;
    client.send(get("/", "Host: " + host + "\r\n"));
    return statusOf(client.readAll());
  }

  const standin::Apartment apartment;
  const Winsock winsock;
  FirewallInPlace firewall;
  NetshInPlace netsh{u16From(systemFolder())};
  std::vector<uint32_t> addresses;
  int32_t port = 0;
  Program program;
};

TEST_F(FirstStartTest, TheFirewallIsAskedOnceAndThePageIsServedOnTheNetwork) {
  ASSERT_TRUE(program.startForUser());
  ASSERT_TRUE(standin::waitUntil([&] { return statusAt(kLoopback, "localhost") == 200; }));
  const std::vector<std::string> asked = netsh.arguments();
  ASSERT_EQ(asked.size(), 13u) << "one rule was made, by one command";
  EXPECT_TRUE(asked[4].starts_with("name=Marlune LAN "));
  EXPECT_TRUE(asked[7].ends_with("marlune.exe"));
  EXPECT_EQ(asked[9], "localport=" + std::to_string(port));
  EXPECT_TRUE(fs::equivalent(netsh.start().at(0), systemFolder()));

  const std::string own = dottedText(addresses.front());
  EXPECT_EQ(statusAt(addresses.front(), own), 200);
  EXPECT_EQ(statusAt(addresses.front(), own + ":" + std::to_string(port)), 200);
  EXPECT_EQ(statusAt(addresses.front(), "localhost"), 403) << "that is another address";
  EXPECT_EQ(statusAt(addresses.front(), "127.0.0.1"), 403);
  EXPECT_EQ(statusAt(kLoopback, own), 403);
}

TEST_F(FirstStartTest, WithoutItsRuleTheProgramListensNowhereAndTellsWhy) {
  SetEnvironmentVariableW(L"MARLUNE_NETSH_STATUS", L"5");
  ASSERT_TRUE(program.startForUser());
  EXPECT_TRUE(standin::waitUntil([&] {
    return shows(program.settingsWindow(), L"无法创建防火墙规则（错误 5）；请检查系统策略。");
  }));
  EXPECT_EQ(statusAt(kLoopback, "localhost"), 0);
  EXPECT_EQ(statusAt(addresses.front(), "localhost"), 0);
}

TEST_F(FirstStartTest, TheRuleOfAnEarlierStartIsEnough) {
  ASSERT_TRUE(program.startForUser());
  ASSERT_TRUE(standin::waitUntil([&] { return statusAt(kLoopback, "localhost") == 200; }));
  const auto made = fs::last_write_time(netsh.log());
  program.command(kCommandExit);
  DWORD exitCode = 1;
  ASSERT_TRUE(program.waitForEnd(exitCode));
  Program second;
  ASSERT_TRUE(second.startForUser());
  EXPECT_TRUE(standin::waitUntil([&] { return statusAt(kLoopback, "localhost") == 200; }));
  EXPECT_EQ(fs::last_write_time(netsh.log()), made);
}

}  // namespace
}  // namespace mrl
