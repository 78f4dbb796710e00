#include "remote/remote_service.h"

#include "core/commands.h"
#include "http/ipv4.h"
#include "remote/firewall.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

constexpr int32_t kServicePort = 22222;

class RemoteServiceTest : public SettingsFixture {
 protected:
  void SetUp() override {
    SettingsFixture::SetUp();
    network.add(1, {kWired});
    firewall.rules = {fittingRule(firewall.path, kServicePort)};
    app.lastError.clear();
  }
  void TearDown() override { stopRemote(app); }

  void expectRefused(const std::u16string& reason) {
    EXPECT_FALSE(startRemote(app, true));
    EXPECT_FALSE(app.remote.running);
    EXPECT_TRUE(sockets.bound.empty());
    EXPECT_EQ(app.lastError, reason);
    EXPECT_EQ(status(), reason);
  }
  void beInTestMode() {
    app.testMode.isOn = true;
    app.testMode.root = u"C:\\data";
  }
};

TEST_F(RemoteServiceTest, AStartServesTheDiscoveredAddresses) {
  EXPECT_TRUE(startRemote(app, true));
  EXPECT_TRUE(app.remote.running);
  EXPECT_EQ(app.remote.addresses, std::vector{kWired});
  EXPECT_EQ(sockets.bound.front().address, kWired);
  EXPECT_EQ(app.lastError, u"");
}

TEST_F(RemoteServiceTest, ASecondStartIsNoneAndKeepsTheKey) {
  ASSERT_TRUE(startRemote(app, true));
  const std::string key = app.remote.pairingKey;
  const int questions = network.questions;
  EXPECT_TRUE(startRemote(app, true));
  EXPECT_EQ(app.remote.pairingKey, key);
  EXPECT_EQ(network.questions, questions);
}

TEST_F(RemoteServiceTest, WithoutANetworkTheFirewallIsNotAsked) {
  network.connected.clear();
  expectRefused(u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。");
  EXPECT_TRUE(firewall.searched.empty());
}

TEST_F(RemoteServiceTest, AFirewallThatBlocksIsToldAndNothingIsBound) {
  firewall.rules[0].enabled = kFirewallFalse;
  expectRefused(u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。");
}

TEST_F(RemoteServiceTest, AMissingRuleIsAskedForInTheNameOfTheWindowInFront) {
  firewall.rules.clear();
  firewall.made = {fittingRule(firewall.path, kServicePort)};
  EXPECT_TRUE(startRemote(app, true));
  EXPECT_EQ(firewall.owner, view().handle());
  stopRemote(app);
  destroySettingsWindow(app);
  firewall.rules.clear();
  EXPECT_TRUE(startRemote(app, true));
  EXPECT_EQ(firewall.owner, clockWindow.handle());
}

TEST_F(RemoteServiceTest, WithoutAUserAMissingRuleIsNotAskedFor) {
  firewall.rules.clear();
  EXPECT_FALSE(startRemote(app, false));
  EXPECT_EQ(app.lastError, u"遥控服务尚未授权，请在远程遥控中点击启动服务。");
  EXPECT_TRUE(firewall.commands.empty());
}

TEST_F(RemoteServiceTest, ThePortThatIsCheckedIsTheOneThatIsServed) {
  app.settings.remotePort = 40000;
  firewall.rules.clear();
  (void)startRemote(app, true);
  EXPECT_EQ(firewall.searched.front(), firewallRuleName(firewall.path, 40000, false));
}

TEST_F(RemoteServiceTest, APortInUseIsTold) {
  sockets.taken = {kWired};
  expectRefused(u"遥控端口 22222 无法监听，请检查网络或更换端口。");
}

TEST_F(RemoteServiceTest, TestModeServesThisMachineAndAsksNobody) {
  beInTestMode();
  const int questions = network.questions;
  EXPECT_TRUE(startRemote(app, true));
  EXPECT_TRUE(app.remote.addresses.empty());
  EXPECT_EQ(sockets.bound.size(), 1u);
  EXPECT_EQ(sockets.bound.front().address, kLoopback);
  EXPECT_EQ(network.questions, questions);
  EXPECT_TRUE(firewall.searched.empty());
}

TEST_F(RemoteServiceTest, ThePortIsThatOfTheSettingsAndRequestsGoToTheClocksWindow) {
  ASSERT_TRUE(startRemote(app, true));
  EXPECT_EQ(app.remote.port, kServicePort);
  EXPECT_EQ(app.remote.targetWindow, clockWindow.handle());
}

TEST_F(RemoteServiceTest, TheEndOfTheProgramStopsTheServiceAndThenEmptiesItsQueue) {
  ASSERT_TRUE(startRemote(app, true));
  requests.onDrain = [this] { EXPECT_TRUE(sockets.bound.empty()); };
  finishApp(app);
  EXPECT_FALSE(app.remote.running);
  EXPECT_EQ(sockets.sessions, 0);
  EXPECT_EQ(requests.drains, 1);
}

TEST_F(RemoteServiceTest, TestModeLeavesTheKeyInAFile) {
  beInTestMode();
  ASSERT_TRUE(startRemote(app, true));
  EXPECT_EQ(files().bytesOf(u"C:\\data\\remote.txt"), app.remote.pairingKey);
}

TEST_F(RemoteServiceTest, AStartThatFailsLeavesNoKeyInAFile) {
  beInTestMode();
  sockets.taken = {kLoopback};
  expectRefused(u"遥控端口 22222 无法监听，请检查网络或更换端口。");
  EXPECT_FALSE(files().exists(u"C:\\data\\remote.txt"));
}

TEST_F(RemoteServiceTest, TheKeyReplacesThatOfAnEarlierRun) {
  beInTestMode();
  files().putFile(u"C:\\data\\remote.txt", std::string(100, 'x'));
  ASSERT_TRUE(startRemote(app, true));
  EXPECT_EQ(files().bytesOf(u"C:\\data\\remote.txt"), app.remote.pairingKey);
}

TEST_F(RemoteServiceTest, OutsideTestModeThereIsNoSuchFile) {
  ASSERT_TRUE(startRemote(app, true));
  EXPECT_FALSE(files().exists(u"C:\\data\\remote.txt"));
}

TEST_F(RemoteServiceTest, TheCommandOpensThePageOfThisMachine) {
  ASSERT_TRUE(startRemote(app, true));
  runCommand(app, kCommandOpenRemote);
  EXPECT_EQ(shell.opened, std::vector<std::u16string>{u"http://127.0.0.1:22222/"});
}

TEST_F(RemoteServiceTest, InTestModeTheCommandStartsNoBrowser) {
  beInTestMode();
  ASSERT_TRUE(startRemote(app, true));
  runCommand(app, kCommandOpenRemote);
  EXPECT_TRUE(shell.opened.empty());
  EXPECT_EQ(files().bytesOf(u"C:\\data\\remote-opened.txt"), "opened");
}

TEST_F(RemoteServiceTest, WithoutAServiceTheCommandLeadsToTheSettingsThatStartIt) {
  destroySettingsWindow(app);
  runCommand(app, kCommandOpenRemote);
  EXPECT_TRUE(app.form.isOpen);
  EXPECT_EQ(app.form.page, 3);
  EXPECT_EQ(status(), u"请先点击“启动遥控服务”并完成网络授权。");
  EXPECT_TRUE(shell.opened.empty());
}

TEST_F(RemoteServiceTest, WithoutAServiceTheCommandAlsoRefreshesAPageThatIsOpen) {
  ASSERT_TRUE(startRemote(app, true));
  runCommand(app, kCommandRefreshRemote);
  stopRemote(app);
  runCommand(app, kCommandOpenRemote);
  EXPECT_EQ(view().text(kAddressBox), u"遥控服务未启动，请启动或恢复服务。");
}

TEST_F(RemoteServiceTest, TheAddressIsShownAgainOnCommand) {
  runCommand(app, kCommandRefreshRemote);
  EXPECT_EQ(status(), u"遥控服务未启动，请在网络页恢复服务。");
  ASSERT_TRUE(startRemote(app, true));
  runCommand(app, kCommandRefreshRemote);
  EXPECT_EQ(status(), u"当前地址已更新；网络发生变化时请关闭并重新启动服务。");
  EXPECT_EQ(view().text(kAddressBox), u"http://192.168.1.5:22222/");
}

TEST_F(RemoteServiceTest, TheProgramsStartStartsTheServiceOnlyIfItShould) {
  destroySettingsWindow(app);
  clockWindow.exists = false;
  ASSERT_EQ(startApp(app, {}, kSettingsPath), std::nullopt);
  EXPECT_TRUE(app.remote.running);
  stopRemote(app);
  Settings quiet = app.settings;
  quiet.remoteAutoStart = false;
  ASSERT_TRUE(adoptSettings(app, quiet, FormUpdate::None));
  clockWindow.exists = false;
  ASSERT_EQ(startApp(app, {}, kSettingsPath), std::nullopt);
  EXPECT_FALSE(app.remote.running);
}

TEST_F(RemoteServiceTest, AtTheProgramsStartTheKeyIsOnTheDiskBeforeTheProcessId) {
  destroySettingsWindow(app);
  clockWindow.exists = false;
  files().done.clear();
  ASSERT_EQ(startApp(app, {u"--test-root=C:\\trial"}, kSettingsPath), std::nullopt);
  EXPECT_EQ(files().bytesOf(u"C:\\trial\\remote.txt"), app.remote.pairingKey);
  const FilesFake::Step* lastWrite = nullptr;
  for (const FilesFake::Step& step : files().done) {
    if (step.operation == FilesFake::Operation::Write) lastWrite = &step;
  }
  ASSERT_NE(lastWrite, nullptr);
  EXPECT_EQ(lastWrite->path, u"C:\\trial\\ready.txt");
}

TEST_F(RemoteServiceTest, TheEndOfTheProgramStopsTheService) {
  ASSERT_TRUE(startRemote(app, true));
  finishApp(app);
  EXPECT_FALSE(app.remote.running);
  EXPECT_TRUE(sockets.bound.empty());
}

}  // namespace
}  // namespace mrl
