#include "settings_window/remote_page.h"

#include "http/ipv4.h"
#include "remote/firewall.h"
#include "remote/remote_service.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

constexpr uint32_t kBest = 0x0A01A8C0;   // 192.168.1.10
constexpr uint32_t kOther = 0x0200000A;  // 10.0.0.2

class RemotePageTest : public SettingsFixture {
 protected:
  void serve() {
    app.remote.running = true;
    app.remote.addresses = {kBest, kOther};
    app.remote.port = 22222;
    refreshRemotePage(app);
  }
};

TEST_F(RemotePageTest, AStoppedServiceShowsNoAddressAndNoCode) {
  refreshRemotePage(app);
  EXPECT_EQ(view().text(kAddressBox), u"遥控服务未启动，请启动或恢复服务。");
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
  EXPECT_FALSE(view().mark(kServiceButton, Mark::Active));
  EXPECT_TRUE(app.form.qrMatrix.empty());
  EXPECT_FALSE(isEnabled(kCopyAddressButton));
}

TEST_F(RemotePageTest, ARunningServiceShowsItsAddressesAndTheCodeOfTheFirst) {
  serve();
  EXPECT_EQ(view().text(kAddressBox), u"http://192.168.1.10:22222/\r\nhttp://10.0.0.2:22222/");
  EXPECT_EQ(view().text(kServiceButton), u"关闭遥控服务");
  EXPECT_TRUE(view().mark(kServiceButton, Mark::Active));
  QrMatrix first;
  ASSERT_TRUE(encodeQrCode(u"http://192.168.1.10:22222/", first));
  EXPECT_EQ(app.form.qrMatrix, first);
  EXPECT_TRUE(isEnabled(kCopyAddressButton));
  for (const int id : {221, 283}) EXPECT_EQ(std::ranges::count(view().invalidated, id) > 0, true);
}

TEST_F(RemotePageTest, ARefreshBooksNothing) {
  serve();
  EXPECT_TRUE(app.form.pendingEdits.empty());
  EXPECT_FALSE(app.form.controlsSuppressed);
}

TEST_F(RemotePageTest, ARefreshKeepsControlsSuppressedForWhoSetIt) {
  const SuppressControls quiet(app);
  refreshRemotePage(app);
  EXPECT_TRUE(app.form.controlsSuppressed);
}

TEST_F(RemotePageTest, TheCodeGoesWithTheService) {
  serve();
  view().click(kServiceButton);
  EXPECT_FALSE(app.remote.running);
  EXPECT_EQ(status(), u"遥控服务已关闭，当前连接已断开。");
  EXPECT_TRUE(app.form.qrMatrix.empty());
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
}

TEST_F(RemotePageTest, AStartThatFailsHasTheLastWord) {
  view().click(kServiceButton);
  EXPECT_FALSE(app.remote.running);
  EXPECT_NE(status(), u"遥控服务已启动；如无法连接请检查网络与防火墙规则。");
  EXPECT_EQ(view().text(kServiceButton), u"启动遥控服务");
}

TEST_F(RemotePageTest, TheFirstAddressIsCopied) {
  serve();
  view().click(kCopyAddressButton);
  EXPECT_EQ(dialogs().clipboard, u"http://192.168.1.10:22222/");
  EXPECT_EQ(status(), u"遥控地址已复制。");
}

TEST_F(RemotePageTest, AFailedCopySaysNothing) {
  serve();
  dialogs().copyFails = true;
  view().click(kCopyAddressButton);
  EXPECT_EQ(status(), u"设置自动生效");
}

TEST_F(RemotePageTest, AStoppedServiceHasNothingToCopy) {
  view().click(kCopyAddressButton);
  EXPECT_EQ(dialogs().clipboard, u"");
  EXPECT_EQ(status(), u"设置自动生效");
}

TEST_F(RemotePageTest, WithoutAWindowNothingIsRefreshed) {
  closeSettingsWindow(app);
  serve();
  EXPECT_TRUE(app.form.qrMatrix.empty());
}

TEST_F(RemotePageTest, AFailedCodeIsToldAndTheAddressesStay) {
  serve();
  showQrCode(app, std::u16string(3000, u'a'));
  EXPECT_EQ(status(), u"二维码生成失败，请复制地址连接。");
  EXPECT_TRUE(app.form.qrMatrix.empty());
  EXPECT_EQ(view().text(kAddressBox), u"http://192.168.1.10:22222/\r\nhttp://10.0.0.2:22222/");
  view().click(kCopyAddressButton);
  EXPECT_EQ(dialogs().clipboard, u"http://192.168.1.10:22222/");
  EXPECT_EQ(status(), u"遥控地址已复制。");
}

TEST_F(RemotePageTest, WithoutAServiceThePageOfTheButtonIsTheOneThatStartsIt) {
  view().click(kOpenRemoteButton);
  EXPECT_EQ(app.form.page, 3);
  EXPECT_EQ(status(), u"请先点击“启动遥控服务”并完成网络授权。");
}

/// With a network and a fitting firewall rule, so that the service can start.
class RemoteStartTest : public RemotePageTest {
 protected:
  void SetUp() override {
    Settings off;
    off.remoteAutoStart = false;
    openWith(off);
    network.add(1, {ipv4(192, 168, 1, 5)});
    firewall.rules = {fittingRule(firewall.path, 22222)};
  }
  void TearDown() override { stopRemote(app); }

  void expectShown(const std::u16string& address) {
    EXPECT_TRUE(app.remote.running);
    EXPECT_EQ(view().text(kAddressBox), address);
    QrMatrix code;
    ASSERT_TRUE(encodeQrCode(address, code));
    EXPECT_EQ(app.form.qrMatrix, code);
    EXPECT_EQ(view().text(kServiceButton), u"关闭遥控服务");
    EXPECT_TRUE(view().mark(kServiceButton, Mark::Active));
    EXPECT_TRUE(isEnabled(kCopyAddressButton));
  }
};

TEST_F(RemoteStartTest, TheButtonStartsTheServiceAndShowsWhereItIs) {
  view().click(kServiceButton);
  EXPECT_EQ(status(), u"遥控服务已启动；如无法连接请检查网络与防火墙规则。");
  expectShown(u"http://192.168.1.5:22222/");
  EXPECT_FALSE(saved().remoteAutoStart);
}

TEST_F(RemoteStartTest, TheButtonAsksForThePermissionThatIsMissing) {
  firewall.made = firewall.rules;
  firewall.rules.clear();
  view().click(kServiceButton);
  EXPECT_EQ(firewall.commands.size(), 1u);
  EXPECT_TRUE(app.remote.running);
}

TEST_F(RemoteStartTest, TheButtonLeavesTheReasonOfAFailedStart) {
  network.connected.clear();
  view().click(kServiceButton);
  EXPECT_EQ(status(), u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。");
}

TEST_F(RemoteStartTest, TheTickOfTheAutomaticStartStartsTheServiceAtOnce) {
  firewall.made = firewall.rules;
  firewall.rules.clear();
  view().click(kAutoStartCheck);
  EXPECT_EQ(firewall.commands.size(), 1u);
  EXPECT_EQ(status(), kApplied);
  EXPECT_TRUE(saved().remoteAutoStart);
  expectShown(u"http://192.168.1.5:22222/");
}

TEST_F(RemoteStartTest, TheTickTellsOfOtherInputThatWaits) {
  enter(kSecondsBox, u"70");
  view().click(kAutoStartCheck);
  EXPECT_TRUE(app.remote.running);
  EXPECT_EQ(status(), kOthersWait);
}

TEST_F(RemoteStartTest, TakingTheTickBackLeavesTheServiceRunning) {
  view().click(kAutoStartCheck);
  view().click(kAutoStartCheck);
  EXPECT_FALSE(saved().remoteAutoStart);
  EXPECT_TRUE(app.remote.running);
}

TEST_F(RemoteStartTest, TheTickLeavesTheReasonOfAFailedStart) {
  network.connected.clear();
  view().click(kAutoStartCheck);
  EXPECT_TRUE(saved().remoteAutoStart);
  EXPECT_EQ(status(), u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。");
}

TEST_F(RemoteStartTest, ANewAddressIsShownAfterAStartOnly) {
  view().click(kServiceButton);
  network.adapters[0].addresses = {ipv4(192, 168, 1, 77)};
  refreshRemotePage(app);
  expectShown(u"http://192.168.1.5:22222/");
  view().click(kServiceButton);
  view().click(kServiceButton);
  expectShown(u"http://192.168.1.77:22222/");
}

TEST_F(RemoteStartTest, ANewPortIsShownAfterAStartOnly) {
  view().click(kServiceButton);
  view().type(kPortBox, u"30000");
  view().click(kApplyPortButton);
  EXPECT_FALSE(app.remote.running);
  EXPECT_EQ(view().text(kAddressBox), u"遥控服务未启动，请启动或恢复服务。");
  EXPECT_TRUE(app.form.qrMatrix.empty());
  firewall.rules = {fittingRule(firewall.path, 30000)};
  view().click(kServiceButton);
  expectShown(u"http://192.168.1.5:30000/");
}

}  // namespace
}  // namespace mrl
