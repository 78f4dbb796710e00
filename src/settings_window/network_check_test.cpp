#include "settings_window/network_check.h"

#include "http/ipv4.h"
#include "remote/firewall.h"
#include "settings_window/fixture.h"

namespace mrl {
namespace {

constexpr char16_t kTitle[] = u"网络权限检查";
constexpr char16_t kFound[] = u"发现需要检查的防火墙规则；请查看系统防火墙控制台。";
constexpr char16_t kChecked[] = u"防火墙规则已核对。请启动遥控服务并在另一台设备上测试连接。";
constexpr char16_t kCheckedBox[] =
    u"已核对程序、端口和本地子网规则，适用于公用、专用及域网络。"
    u"请启动遥控服务，并使用另一台设备测试连接。其他安全软件或系统策略仍可能影响连接。";
constexpr char16_t kMismatch[] = u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。";

class NetworkCheckTest : public SettingsFixture {
 protected:
  void SetUp() override {
    SettingsFixture::SetUp();
    network.add(1, {ipv4(192, 168, 1, 5)});
    fitting = fittingRule(firewall.path, 22222);
  }
  void press() { view().click(kCheckNetworkButton); }
  void expectBox(const std::u16string& text, DialogIcon icon) {
    EXPECT_EQ(dialogs().information,
              (std::vector<SettingsDialogsFake::Message>{{text, kTitle, icon}}));
  }

  FirewallRule fitting;
};

TEST_F(NetworkCheckTest, TestModeChecksNothing) {
  app.testMode.isOn = true;
  press();
  EXPECT_EQ(status(), u"测试模式仅使用本机连接，不检查系统网络权限。");
  EXPECT_TRUE(firewall.searched.empty());
  EXPECT_EQ(network.questions, 0);
}

TEST_F(NetworkCheckTest, ARuleThatFitsAndANetworkAreTold) {
  firewall.rules = {fitting};
  press();
  EXPECT_EQ(status(), kChecked);
  expectBox(kCheckedBox, DialogIcon::Information);
}

TEST_F(NetworkCheckTest, ARuleThatDoesNotFitIsShownAndTheConsoleOffered) {
  firewall.rules = {fitting};
  firewall.rules[0].profiles = 6;
  dialogs().answersYes = true;
  press();
  EXPECT_EQ(status(), kFound);
  EXPECT_EQ(dialogs().questions,
            (std::vector<SettingsDialogsFake::Message>{
                {std::u16string(kMismatch) + u"\n\n程序不会自动修改或删除这些规则。"
                                             u"是否打开高级防火墙控制台，由你检查规则来源和范围？",
                 kTitle, DialogIcon::Warning}}));
  EXPECT_EQ(shell.opened, std::vector<std::u16string>{u"C:\\Windows\\system32\\wf.msc"});
  EXPECT_EQ(shell.folders, std::vector<std::u16string>{u"C:\\Windows\\system32"});
  EXPECT_EQ(firewall.rules.size(), 1u);
  EXPECT_TRUE(firewall.commands.empty());
}

TEST_F(NetworkCheckTest, ABlockRuleIsHandledLikewise) {
  firewall.rules = {fitting};
  firewall.rules[0].action = 0;
  press();
  EXPECT_EQ(status(), kFound);
  EXPECT_EQ(dialogs().questions.size(), 1u);
}

TEST_F(NetworkCheckTest, WhoSaysNoSeesNoConsole) {
  firewall.rules = {fitting};
  firewall.rules[0].profiles = 6;
  press();
  EXPECT_EQ(status(), kFound);
  EXPECT_TRUE(shell.opened.empty());
}

TEST_F(NetworkCheckTest, AConsoleThatCannotBeOpenedIsTold) {
  firewall.rules = {fitting};
  firewall.rules[0].profiles = 6;
  dialogs().answersYes = true;
  shell.fails = true;
  press();
  EXPECT_EQ(status(),
            u"无法打开防火墙控制台，请在 Windows 中搜索“高级安全 Windows Defender 防火墙”。");
}

TEST_F(NetworkCheckTest, WithoutTheSystemsFolderTheConsoleIsNotSearchedFor) {
  firewall.rules = {fitting};
  firewall.rules[0].profiles = 6;
  firewall.system.clear();
  dialogs().answersYes = true;
  press();
  EXPECT_TRUE(shell.opened.empty());
  EXPECT_EQ(status(),
            u"无法打开防火墙控制台，请在 Windows 中搜索“高级安全 Windows Defender 防火墙”。");
}

TEST_F(NetworkCheckTest, AMissingNetworkIsToldAndNothingIsMade) {
  network.connected.clear();
  press();
  const std::u16string text = u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。";
  EXPECT_EQ(status(), text);
  expectBox(text, DialogIcon::Information);
  EXPECT_TRUE(firewall.commands.empty());
}

TEST_F(NetworkCheckTest, AMissingNetworkIsToldThoughTheRuleFits) {
  firewall.rules = {fitting};
  network.adaptersFail = true;
  press();
  const std::u16string text = u"无法读取网络地址，请检查网络连接。";
  EXPECT_EQ(status(), text);
  expectBox(text, DialogIcon::Information);
}

TEST_F(NetworkCheckTest, ACheckThatFailsAfterTheRuleWasMadeIsAWarning) {
  firewall.made = {fitting};
  firewall.goodSearches = 5;  // two for each check before it is made, one that finds it
  firewall.search = RuleSearch::Failed;
  press();
  const std::u16string text = u"无法查询 Windows 防火墙规则。";
  EXPECT_EQ(firewall.searched.size(), 6u);
  EXPECT_EQ(status(), text);
  expectBox(text, DialogIcon::Warning);
}

TEST_F(NetworkCheckTest, AMissingRuleIsMadeAndCheckedAgain) {
  firewall.made = {fitting};
  press();
  EXPECT_EQ(firewall.commands.size(), 1u);
  EXPECT_EQ(firewall.owner, view().handle());
  EXPECT_EQ(status(), kChecked);
  expectBox(kCheckedBox, DialogIcon::Information);
}

TEST_F(NetworkCheckTest, AUserWhoDeclinesIsTold) {
  firewall.run = {.error = 1223};
  press();
  const std::u16string text = u"已取消管理员授权；再次点击“启动遥控服务”可重新请求。";
  EXPECT_EQ(status(), text);
  expectBox(text, DialogIcon::Information);
}

TEST_F(NetworkCheckTest, ACheckThatFailsIsAWarningAndAsksNoNetwork) {
  firewall.walk = RuleWalk::NoFirewall;
  press();
  const std::u16string text = u"无法读取 Windows 防火墙规则。";
  EXPECT_EQ(status(), text);
  expectBox(text, DialogIcon::Warning);
  EXPECT_EQ(network.questions, 0);
}

}  // namespace
}  // namespace mrl
