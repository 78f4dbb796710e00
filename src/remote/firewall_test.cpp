#include "remote/firewall.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "remote/firewall_rules_fake.h"

namespace mrl {
namespace {

constexpr int32_t kRulePort = 8080;
constexpr WindowHandle kOwner{7};
using State = FirewallRuleState;

class FirewallTest : public ::testing::Test {
 protected:
  FirewallRule ownRule() const { return fittingRule(rules.path, kRulePort); }
  FirewallRule blockRule() const {
    FirewallRule rule = ownRule();
    rule.name = u"block";
    rule.action = 0;
    return rule;
  }
  State check(int32_t port = kRulePort) {
    message.clear();
    return checkFirewallRule(rules, port, message);
  }
  void expectCheck(State state, const std::u16string& text) {
    EXPECT_EQ(check(), state);
    EXPECT_EQ(utf8From(message), utf8From(text));
  }
  bool authorize() {
    message.clear();
    return authorizeFirewallRule(rules, kOwner, kRulePort, message);
  }
  void expectNotAuthorized(const std::u16string& text) {
    EXPECT_FALSE(authorize());
    EXPECT_EQ(utf8From(message), utf8From(text));
  }

  FirewallRulesFake rules;
  std::u16string message;
};

TEST_F(FirewallTest, ARuleThatFitsIsEnough) {
  rules.rules = {ownRule()};
  expectCheck(State::Authorized, u"");
}

TEST_F(FirewallTest, WithoutARuleItIsMissing) {
  expectCheck(State::Missing, u"");
  EXPECT_EQ(rules.searched, (std::vector{firewallRuleName(rules.path, kRulePort, false),
                                         firewallRuleName(rules.path, kRulePort, true)}));
}

TEST_F(FirewallTest, ARuleUnderTheSecondNameFitsLikeOneUnderTheFirst) {
  rules.rules = {ownRule()};
  rules.rules[0].name = firewallRuleName(rules.path, kRulePort, true);
  expectCheck(State::Authorized, u"");
}

TEST_F(FirewallTest, WithoutAPathOrWithAPortOutOfRangeNothingCanBeChecked) {
  for (const int32_t port : {1023, 65536, 0, -1}) {
    EXPECT_EQ(check(port), State::Failed) << port;
    EXPECT_EQ(message, u"无法确定程序路径或端口无效。");
  }
  for (const int32_t port : {1024, 65535}) EXPECT_EQ(check(port), State::Missing) << port;
  rules.path.clear();
  expectCheck(State::Failed, u"无法确定程序路径或端口无效。");
}

TEST_F(FirewallTest, EveryFailureOfTheSystemIsTold) {
  rules.walk = RuleWalk::NoFirewall;
  expectCheck(State::Failed, u"无法读取 Windows 防火墙规则。");
  rules.walk = RuleWalk::Ended;
  rules.search = RuleSearch::Failed;
  expectCheck(State::Failed, u"无法查询 Windows 防火墙规则。");
  rules.search = RuleSearch::NoMemory;
  expectCheck(State::Failed, u"内存不足。");
  EXPECT_EQ(rules.searched.size(), 2u) << "the second name was not tried";
}

TEST_F(FirewallTest, ASearchForTheSecondNameThatFailsIsNoMissingRule) {
  rules.search = RuleSearch::Failed;
  rules.goodSearches = 1;
  expectCheck(State::Failed, u"无法查询 Windows 防火墙规则。");
  EXPECT_EQ(rules.searched.size(), 2u);
}

TEST_F(FirewallTest, ADetailThatCannotBeReadFailsTheCheck) {
  rules.rules = {ownRule()};
  const auto expectFailureWithout = [&](auto FirewallRule::*field) {
    rules.onFound = [field](FirewallRule& rule) { (rule.*field).reset(); };
    expectCheck(State::Failed, u"无法读取防火墙规则详情。");
  };
  expectFailureWithout(&FirewallRule::application);
  expectFailureWithout(&FirewallRule::localPorts);
  expectFailureWithout(&FirewallRule::remoteAddresses);
  expectFailureWithout(&FirewallRule::enabled);
  expectFailureWithout(&FirewallRule::edgeTraversal);
  expectFailureWithout(&FirewallRule::protocol);
  expectFailureWithout(&FirewallRule::profiles);
  expectFailureWithout(&FirewallRule::direction);
  expectFailureWithout(&FirewallRule::action);
}

TEST_F(FirewallTest, EveryDetailMustFit) {
  const auto change = [&](auto FirewallRule::*field, const auto& value) {
    rules.rules = {ownRule()};
    rules.rules[0].*field = value;
    const State state = check();
    if (state == State::ScopeMismatch) {
      EXPECT_EQ(message, u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。");
    }
    return state;
  };
  const auto text = [](const char16_t* value) { return std::u16string(value); };
  EXPECT_EQ(change(&FirewallRule::application, text(u"C:\\other.exe")), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::application, text(u"")), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::application, text(u"c:\\MARLUNE\\Marlune.EXE")),
            State::Authorized);
  EXPECT_EQ(change(&FirewallRule::localPorts, text(u"8080,8081")), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::localPorts, text(u"")), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::remoteAddresses, text(u"localsubnet")), State::Authorized);
  EXPECT_EQ(change(&FirewallRule::remoteAddresses, text(u"LocalSubnet,10.0.0.1")),
            State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::enabled, kFirewallFalse), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::enabled, 1), State::ScopeMismatch) << "neither yes nor no";
  EXPECT_EQ(change(&FirewallRule::edgeTraversal, kFirewallTrue), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::edgeTraversal, 1), State::ScopeMismatch) << "neither yes nor no";
  EXPECT_EQ(change(&FirewallRule::protocol, 17), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::direction, 2), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::action, 2), State::ScopeMismatch);
  EXPECT_EQ(change(&FirewallRule::profiles, 0x7FFFFFFF), State::Authorized);
  EXPECT_EQ(change(&FirewallRule::profiles, 6), State::ScopeMismatch);
}

TEST_F(FirewallTest, ABlockRuleIsReportedEvenBesideTheProgramsOwn) {
  rules.rules = {ownRule(), blockRule()};
  EXPECT_EQ(check(), State::Blocked);
}

TEST_F(FirewallTest, ARuleUnderTheFirstNameDecidesEvenIfOneUnderTheSecondFits) {
  rules.rules = {ownRule(), ownRule()};
  rules.rules[0].profiles = 6;
  rules.rules[1].name = firewallRuleName(rules.path, kRulePort, true);
  EXPECT_EQ(check(), State::ScopeMismatch);
}

TEST_F(FirewallTest, AnAuthorizedProgramAsksForNothing) {
  rules.rules = {ownRule()};
  EXPECT_TRUE(authorize());
  EXPECT_TRUE(rules.commands.empty());
}

TEST_F(FirewallTest, ARuleIsMadeOnlyWhereNothingOfItsKindExists) {
  rules.rules = {ownRule()};
  rules.rules[0].enabled = kFirewallFalse;
  expectNotAuthorized(u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。");
  rules.rules = {blockRule()};
  EXPECT_FALSE(authorize());
  rules.rules.clear();
  rules.walk = RuleWalk::Broken;
  expectNotAuthorized(u"检查防火墙规则时发生错误。");
  EXPECT_TRUE(rules.commands.empty());
}

TEST_F(FirewallTest, TheCommandIsRunByItsFullPathInTheSystemsFolderForTheWindowThatAsked) {
  rules.made = {ownRule()};
  EXPECT_TRUE(authorize());
  EXPECT_EQ(rules.commands,
            (std::vector<ElevatedCommand>{{u"C:\\Windows\\system32\\netsh.exe",
                                           netshRuleArguments(rules.path, kRulePort),
                                           u"C:\\Windows\\system32"}}));
  EXPECT_EQ(rules.owner, kOwner);
  EXPECT_EQ(message, u"");
}

TEST_F(FirewallTest, WhatCannotBeQuotedIsNotRun) {
  rules.path = u"C:\\a\"b\\marlune.exe";
  expectNotAuthorized(u"无法准备防火墙授权。");
  EXPECT_TRUE(rules.commands.empty());
}

TEST_F(FirewallTest, WithoutTheSystemsFolderNothingIsRun) {
  rules.system.clear();
  expectNotAuthorized(u"无法准备防火墙授权。");
  EXPECT_TRUE(rules.commands.empty());
}

TEST_F(FirewallTest, AUserWhoDeclinesIsInvitedToTryAgainAndNoRuleExists) {
  rules.made = {ownRule()};
  rules.run = {.error = 1223};
  expectNotAuthorized(u"已取消管理员授权；再次点击“启动遥控服务”可重新请求。");
  EXPECT_TRUE(rules.rules.empty());
}

TEST_F(FirewallTest, AnyOtherRefusalIsToldWithItsNumber) {
  rules.run = {.error = 5};
  expectNotAuthorized(u"无法请求管理员授权（错误 5）。");
}

TEST_F(FirewallTest, ACommandThatFailsIsToldWithItsExitCodeUnsigned) {
  rules.run = {.started = true, .exitCode = 1};
  expectNotAuthorized(u"无法创建防火墙规则（错误 1）；请检查系统策略。");
  rules.run.exitCode = 0xFFFFFFFF;
  expectNotAuthorized(u"无法创建防火墙规则（错误 4294967295）；请检查系统策略。");
}

TEST_F(FirewallTest, ACommandThatMadeNothingIsNotBelieved) {
  expectNotAuthorized(u"防火墙规则未能验证，请检查系统策略。");
}

TEST_F(FirewallTest, AnEarlierMessageIsReplacedByAFailureAndKeptOtherwise) {
  message = u"earlier";
  EXPECT_FALSE(authorizeFirewallRule(rules, kOwner, kRulePort, message));
  EXPECT_EQ(message, u"防火墙规则未能验证，请检查系统策略。");
  rules.made = {ownRule()};
  message = u"earlier";
  EXPECT_TRUE(authorizeFirewallRule(rules, kOwner, kRulePort, message));
  EXPECT_EQ(message, u"earlier");
}

TEST_F(FirewallTest, ACommandThatMadeSomethingElseIsToldWhatIsWrong) {
  rules.made = {ownRule()};
  rules.made[0].profiles = 1;
  expectNotAuthorized(u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。");
}

TEST_F(FirewallTest, TheNameDependsOnPathAndPortButNotOnLetterCase) {
  const std::u16string name = firewallRuleName(u"C:\\Marlune\\marlune.exe", 22222, false);
  EXPECT_EQ(firewallRuleName(u"c:\\MARLUNE\\marlune.EXE", 22222, false), name);
  EXPECT_NE(firewallRuleName(u"D:\\Marlune\\marlune.exe", 22222, false), name);
  EXPECT_NE(firewallRuleName(u"C:\\Marlune\\marlune.exe", 22223, false), name);
}

TEST_F(FirewallTest, TheNameHoldsTheHashOfEachUnitWholeInUpperCase) {
  // For a path of one code unit: (offset basis XOR unit) times the prime, modulo 2^64.
  EXPECT_EQ(firewallRuleName(u"a", 8080, false),
            u"Marlune LAN AF63DC4C8601EC8C TCP 8080 All Profiles");
  EXPECT_EQ(firewallRuleName(u"", 1024, true),
            u"Marlune Native LAN CBF29CE484222325 TCP 1024 All Profiles");
  EXPECT_EQ(firewallRuleName(u"演", 8080, false),
            u"Marlune LAN AF8CC94C86477743 TCP 8080 All Profiles");
}

TEST_F(FirewallTest, TheArgumentsOfTheCommand) {
  EXPECT_EQ(netshRuleArguments(u"C:\\Program Files\\marlune.exe", 8080),
            u"advfirewall firewall add rule name=\"" +
                firewallRuleName(u"C:\\Program Files\\marlune.exe", 8080, false) +
                u"\" dir=in action=allow program=\"C:\\Program Files\\marlune.exe\" protocol=TCP "
                u"localport=8080 profile=domain,private,public remoteip=localsubnet enable=yes");
  EXPECT_EQ(netshRuleArguments(u"", 8080), u"");
  EXPECT_EQ(netshRuleArguments(u"C:\\a\"b.exe", 8080), u"");
  EXPECT_EQ(netshRuleArguments(u"C:\\a.exe", 1023), u"");
  EXPECT_EQ(netshRuleArguments(u"C:\\a.exe", 65536), u"");
}

TEST(FirewallAccessTest, TheUserIsAskedOnlyForAMissingRuleAndOnlyWhenPresent) {
  struct Case {
    State state;
    bool interactive;
    bool authorized;  // result of asking the user
    bool expected;
    int asked;
  };
  const Case cases[] = {
      {State::Authorized, true, false, true, 0}, {State::Authorized, false, false, true, 0},
      {State::Missing, true, true, true, 1},     {State::Missing, true, false, false, 1},
      {State::Missing, false, true, false, 0},   {State::ScopeMismatch, true, true, false, 0},
      {State::Blocked, true, true, false, 0},    {State::Failed, true, true, false, 0}};
  for (const Case& c : cases) {
    int asked = 0;
    std::u16string message;
    EXPECT_EQ(ensureFirewallAccess(
                  c.interactive, message, [&](std::u16string&) { return c.state; },
                  [&](std::u16string&) {
                    ++asked;
                    return c.authorized;
                  }),
              c.expected);
    EXPECT_EQ(asked, c.asked);
  }
}

TEST(FirewallAccessTest, EachSideSpeaksForItself) {
  std::u16string message;
  EXPECT_FALSE(ensureFirewallAccess(
      true, message,
      [](std::u16string& text) {
        text = u"checked";
        return State::Failed;
      },
      [](std::u16string&) { return true; }));
  EXPECT_EQ(message, u"checked");
  EXPECT_FALSE(ensureFirewallAccess(
      false, message, [](std::u16string&) { return State::Missing; },
      [](std::u16string&) { return true; }));
  EXPECT_EQ(message, u"遥控服务尚未授权，请在远程遥控中点击启动服务。");
}

}  // namespace
}  // namespace mrl
