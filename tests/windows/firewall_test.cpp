// The firewall code with its real system calls: a fake firewall under the system's class, and a
// stand-in for the system's netsh.
#include <gtest/gtest.h>

#include "base/wide_win.h"
#include "remote/firewall_rules_fake.h"
#include "remote/firewall_rules_win.h"
#include "windows/firewall_class.h"
#include "windows/netsh_in_place.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

constexpr int32_t kPort = 8080;
using State = FirewallRuleState;

class FirewallSystemTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(firewall.isRegistered()); }

  FirewallRule ownRule() { return fittingRule(rules.programPath(), kPort); }
  void expectCheck(State state, const std::u16string& text = u"") {
    std::u16string message;
    EXPECT_EQ(checkFirewallRule(rules, kPort, message), state);
    EXPECT_EQ(message, text);
  }

  const standin::Apartment apartment;
  FirewallStory story;
  const FirewallClass firewall{story};
  FirewallRulesWin rules;
};

TEST_F(FirewallSystemTest, TheProgramsOwnPathAndTheSystemsFolderAreFull) {
  EXPECT_TRUE(rules.programPath().ends_with(u"marlune_system_tests.exe"));
  EXPECT_EQ(rules.programPath()[1], u':');
  EXPECT_TRUE(std::filesystem::exists(wideFrom(rules.systemFolder())));
}

TEST_F(FirewallSystemTest, VariablesAreFilledInAndOtherTextsStay) {
  SetEnvironmentVariableW(L"MARLUNE_PLACE", L"C:\\place");
  EXPECT_EQ(rules.expanded(u"%MARLUNE_PLACE%\\a.exe"), u"C:\\place\\a.exe");
  EXPECT_EQ(rules.expanded(u"plain"), u"plain");
  EXPECT_EQ(rules.expanded(u""), u"");
  SetEnvironmentVariableW(L"MARLUNE_PLACE", nullptr);
}

TEST_F(FirewallSystemTest, EveryDetailOfARuleIsRead) {
  story.rules = {ownRule()};
  FirewallRule found;
  EXPECT_EQ(rules.find(*story.rules[0].name, found), RuleSearch::Found);
  EXPECT_EQ(found.name, story.rules[0].name);
  EXPECT_EQ(found.application, story.rules[0].application);
  EXPECT_EQ(found.localPorts, u"8080");
  EXPECT_EQ(found.remoteAddresses, u"LocalSubnet");
  EXPECT_EQ(found.enabled, kFirewallTrue);
  EXPECT_EQ(found.edgeTraversal, kFirewallFalse);
  EXPECT_EQ(found.protocol, 6);
  EXPECT_EQ(found.profiles, 7);
  EXPECT_EQ(found.direction, 1);
  EXPECT_EQ(found.action, 1);
}

TEST_F(FirewallSystemTest, WhatCannotBeReadIsLeftOutAndAMissingTextIsEmpty) {
  story.rules = {{.name = u"bare", .localPorts = u""}};
  FirewallRule found;
  EXPECT_EQ(rules.find(u"bare", found), RuleSearch::Found);
  EXPECT_EQ(found.localPorts, u"");
  EXPECT_FALSE(found.application);
  EXPECT_FALSE(found.enabled);
  EXPECT_FALSE(found.action);
}

TEST_F(FirewallSystemTest, BothOfTheSystemsWordsForNotFoundMeanIt) {
  FirewallRule found;
  EXPECT_EQ(rules.find(u"x", found), RuleSearch::NotFound);
  story.notFound = HRESULT_FROM_WIN32(ERROR_NOT_FOUND);
  EXPECT_EQ(rules.find(u"x", found), RuleSearch::NotFound);
  story.notFound = E_ACCESSDENIED;
  EXPECT_EQ(rules.find(u"x", found), RuleSearch::Failed);
}

TEST_F(FirewallSystemTest, EveryStateOfTheCheckIsReached) {
  expectCheck(State::Missing);
  story.rules = {ownRule()};
  expectCheck(State::Authorized);
  story.rules[0].profiles = 6;
  expectCheck(State::ScopeMismatch, u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。");
  story.rules[0].profiles = 7;
  story.rules[0].action = 0;
  std::u16string message;
  EXPECT_EQ(checkFirewallRule(rules, kPort, message), State::Blocked);
}

TEST_F(FirewallSystemTest, ARuleThatCannotBeReadEndsTheWalkAsAFailure) {
  story.rules = {{.name = u"bare"}, ownRule()};
  expectCheck(State::Failed, u"无法读取防火墙规则，不能确认权限状态。");
}

TEST_F(FirewallSystemTest, EveryFailureOfTheWalkIsTold) {
  story.hasStranger = true;
  expectCheck(State::Failed, u"无法读取防火墙规则，不能确认权限状态。");
  story.breaksInTheMiddle = true;
  expectCheck(State::Failed, u"检查防火墙规则时发生错误。");
  story.givesEnumeration = false;
  expectCheck(State::Failed, u"无法检查可能冲突的防火墙规则。");
  story.givesRules = false;
  expectCheck(State::Failed, u"无法读取 Windows 防火墙规则。");
}

TEST_F(FirewallSystemTest, TheElevatedCommandGetsItsArgumentsAndItsRuleIsBelievedOnlyWhenSeen) {
  const NetshInPlace netsh(rules.systemFolder());
  std::u16string message;
  EXPECT_FALSE(authorizeFirewallRule(rules, {}, kPort, message));
  EXPECT_EQ(message, u"防火墙规则未能验证，请检查系统策略。") << "the command made no rule";

  const std::vector<std::string> arguments = netsh.arguments();
  ASSERT_EQ(arguments.size(), 13u);
  const std::u16string name = firewallRuleName(rules.programPath(), kPort, false);
  EXPECT_EQ(arguments[4], "name=" + std::string(name.begin(), name.end()));
  EXPECT_EQ(arguments[8], "protocol=TCP");
  EXPECT_EQ(arguments[9], "localport=8080");
  EXPECT_EQ(arguments[12], "enable=yes");

  story.rules = {ownRule()};  // as if added by the command
  EXPECT_TRUE(authorizeFirewallRule(rules, {}, kPort, message));
}

TEST_F(FirewallSystemTest, TheElevatedCommandRunsHiddenInTheSystemsFolder) {
  const NetshInPlace netsh(rules.systemFolder());
  std::u16string message;
  EXPECT_FALSE(authorizeFirewallRule(rules, {}, kPort, message));
  const std::vector<std::string> start = netsh.start();
  ASSERT_EQ(start.size(), 2u);
  EXPECT_TRUE(std::filesystem::equivalent(start[0], wideFrom(rules.systemFolder()))) << start[0];
  EXPECT_EQ(start[1], "hidden");
}

TEST_F(FirewallSystemTest, OneAuthorizationChecksRunsTheCommandAndSeesItsRule) {
  const NetshInPlace netsh(rules.systemFolder());
  story.commandLog = netsh.log();
  expectCheck(State::Missing);
  std::u16string message;
  EXPECT_TRUE(authorizeFirewallRule(rules, {}, kPort, message));
  EXPECT_EQ(message, u"");
  expectCheck(State::Authorized);
}

TEST_F(FirewallSystemTest, TheCommandsStatusIsTold) {
  const NetshInPlace netsh(rules.systemFolder());
  SetEnvironmentVariableW(L"MARLUNE_NETSH_STATUS", L"3");
  std::u16string message;
  EXPECT_FALSE(authorizeFirewallRule(rules, {}, kPort, message));
  EXPECT_EQ(message, u"无法创建防火墙规则（错误 3）；请检查系统策略。");
}

}  // namespace
}  // namespace mrl
