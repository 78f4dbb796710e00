#include <gtest/gtest.h>

#include "base/text.h"
#include "remote/firewall.h"
#include "remote/firewall_rules_fake.h"

namespace mrl {
namespace {

constexpr int32_t kScannedPort = 8080;

class FirewallScanTest : public ::testing::Test {
 protected:
  FirewallRule block(const std::u16string& name = u"禁止") const {
    return {.name = name,
            .application = rules.path,
            .localPorts = u"8080",
            .enabled = kFirewallTrue,
            .protocol = 6,
            .profiles = 7,
            .direction = 1,
            .action = 0};
  }
  /// True if no rule blocks.
  bool passes() {
    message.clear();
    blockedFound = false;
    return scanBlockRules(rules, rules.path, kScannedPort, message, blockedFound);
  }
  bool blocks(const FirewallRule& rule) {
    rules.rules = {rule};
    return !passes() && blockedFound;
  }
  void expectFailure(const std::u16string& text) {
    EXPECT_FALSE(passes());
    EXPECT_FALSE(blockedFound);
    EXPECT_EQ(utf8From(message), utf8From(text));
  }
  template <typename Value, typename New>
  FirewallRule with(std::optional<Value> FirewallRule::*field, const New& value) const {
    FirewallRule rule = block();
    rule.*field = value;
    return rule;
  }
  static std::u16string report(const std::u16string& lines) {
    return u"发现可能阻止遥控的入站规则：" + lines +
           u"\n规则可能受地址、接口、服务或策略限制，来源请在防火墙控制台核实。"
           u"点击“检查与修复”查看处理方式。";
  }

  FirewallRulesFake rules;
  std::u16string message;
  bool blockedFound = false;
};

TEST_F(FirewallScanTest, WithoutRulesNothingBlocks) {
  EXPECT_TRUE(passes());
  EXPECT_EQ(message, u"");
}

TEST_F(FirewallScanTest, ABlockRuleForTheProgramAndItsPortBlocks) {
  EXPECT_TRUE(blocks(block()));
  EXPECT_EQ(utf8From(message), utf8From(report(u"\n• 禁止（本程序；端口：8080）")));
}

TEST_F(FirewallScanTest, OnlyEnabledInboundBlocksOfTheThreeProfilesCount) {
  EXPECT_FALSE(blocks(with(&FirewallRule::enabled, kFirewallFalse)));
  EXPECT_FALSE(blocks(with(&FirewallRule::direction, 2)));
  EXPECT_FALSE(blocks(with(&FirewallRule::action, 1)));
  EXPECT_FALSE(blocks(with(&FirewallRule::profiles, 8)));
  EXPECT_TRUE(blocks(with(&FirewallRule::profiles, 4)));
  EXPECT_TRUE(blocks(with(&FirewallRule::profiles, 0x7FFFFFFF)));
  EXPECT_FALSE(blocks(with(&FirewallRule::protocol, 17)));
  EXPECT_TRUE(blocks(with(&FirewallRule::protocol, 256)));
}

TEST_F(FirewallScanTest, ARuleForAnotherProgramDoesNotCountAndOneForAllDoes) {
  EXPECT_FALSE(blocks(with(&FirewallRule::application, u"C:\\other.exe")));
  EXPECT_TRUE(blocks(with(&FirewallRule::application, u"c:\\MARLUNE\\marlune.exe")));
  for (const char16_t* everybody : {u"", u"*"}) {
    EXPECT_TRUE(blocks(with(&FirewallRule::application, everybody)));
    EXPECT_EQ(utf8From(message), utf8From(report(u"\n• 禁止（所有程序；端口：8080）")));
  }
}

TEST_F(FirewallScanTest, ABlockRuleForFewAddressesStillCounts) {
  EXPECT_TRUE(blocks(with(&FirewallRule::remoteAddresses, u"10.0.0.1")));
  EXPECT_TRUE(blocks(with(&FirewallRule::edgeTraversal, kFirewallTrue)));
}

TEST_F(FirewallScanTest, VariablesInTheProgramsNameAreFilledIn) {
  EXPECT_TRUE(blocks(with(&FirewallRule::application, u"%program%")));
}

TEST_F(FirewallScanTest, OnlyARuleForThePortCounts) {
  EXPECT_FALSE(blocks(with(&FirewallRule::localPorts, u"80,443")));
  EXPECT_TRUE(blocks(with(&FirewallRule::localPorts, u"8000-8100")));
  EXPECT_EQ(utf8From(message), utf8From(report(u"\n• 禁止（本程序；端口：8000-8100）")));
  EXPECT_TRUE(blocks(with(&FirewallRule::localPorts, u"")));
  EXPECT_EQ(utf8From(message), utf8From(report(u"\n• 禁止（本程序；端口：全部端口）")));
}

TEST_F(FirewallScanTest, ARuleForAllProtocolsHasNoPorts) {
  FirewallRule rule = with(&FirewallRule::protocol, 256);
  rule.localPorts.reset();
  EXPECT_TRUE(blocks(rule));
  EXPECT_EQ(utf8From(message), utf8From(report(u"\n• 禁止（本程序；端口：所有协议及端口）")));
}

TEST_F(FirewallScanTest, ARuleWithoutANameIsCalledSo) {
  EXPECT_TRUE(blocks(with(&FirewallRule::name, u"")));
  EXPECT_EQ(utf8From(message), utf8From(report(u"\n• （未命名规则）（本程序；端口：8080）")));
}

TEST_F(FirewallScanTest, FourRulesAreListedAndTheRestIsCounted) {
  for (int number = 1; number <= 6; ++number) rules.rules.push_back(block(decimal(number)));
  EXPECT_FALSE(passes());
  const auto line = [](const char16_t* name) {
    return u"\n• " + std::u16string(name) + u"（本程序；端口：8080）";
  };
  const std::u16string four = line(u"1") + line(u"2") + line(u"3") + line(u"4");
  EXPECT_EQ(utf8From(message), utf8From(report(four + u"\n以及其他 2 条规则。")));
  rules.rules.resize(4);
  EXPECT_FALSE(passes());
  EXPECT_EQ(utf8From(message), utf8From(report(four)));
}

TEST_F(FirewallScanTest, EveryFailureOfTheWalkIsTold) {
  rules.walk = RuleWalk::NoFirewall;
  expectFailure(u"无法读取 Windows 防火墙规则。");
  rules.walk = RuleWalk::NoEnumeration;
  expectFailure(u"无法检查可能冲突的防火墙规则。");
  rules.walk = RuleWalk::NoRule;
  expectFailure(u"无法读取防火墙规则，不能确认权限状态。");
  rules.walk = RuleWalk::Broken;
  expectFailure(u"检查防火墙规则时发生错误。");
}

TEST_F(FirewallScanTest, AWalkThatBreaksBehindABlockRuleIsAFailure) {
  rules.rules = {block()};
  rules.walk = RuleWalk::Broken;
  expectFailure(u"检查防火墙规则时发生错误。");
}

TEST_F(FirewallScanTest, ADetailThatCannotBeReadEndsTheScan) {
  const auto failsWithout = [&](auto field) {
    FirewallRule rule = block();
    (rule.*field).reset();
    rules.rules = {rule, block()};
    expectFailure(u"无法读取防火墙规则，不能确认权限状态。");
  };
  failsWithout(&FirewallRule::enabled);
  failsWithout(&FirewallRule::direction);
  failsWithout(&FirewallRule::action);
  failsWithout(&FirewallRule::profiles);
  failsWithout(&FirewallRule::protocol);
  failsWithout(&FirewallRule::application);
}

TEST_F(FirewallScanTest, PortsAndNameAreNeededOnlyOfARuleThatMayBlock) {
  FirewallRule rule = block();
  rule.localPorts.reset();
  rules.rules = {rule};
  expectFailure(u"无法读取阻止规则的端口范围。");
  rule = block();
  rule.name.reset();
  rules.rules = {rule};
  expectFailure(u"无法读取阻止规则名称。");
  rule.localPorts.reset();
  rule.enabled = kFirewallFalse;
  rules.rules = {rule};
  EXPECT_TRUE(passes());
}

TEST_F(FirewallScanTest, OfPortsAndNameThePortsAreAskedFirst) {
  FirewallRule rule = block();
  rule.name.reset();
  rule.localPorts.reset();
  rules.rules = {rule};
  expectFailure(u"无法读取阻止规则的端口范围。");
  rule.localPorts = u"80";
  rules.rules = {rule};
  EXPECT_TRUE(passes()) << "a rule for another port needs no name";
}

TEST(PortSpecTest, APortOrARangeOfThemCovers) {
  EXPECT_TRUE(portSpecCovers(u"8080", 8080));
  EXPECT_TRUE(portSpecCovers(u"8000-8100", 8080));
  EXPECT_TRUE(portSpecCovers(u"8080-8080", 8080));
  EXPECT_TRUE(portSpecCovers(u"80, 8080", 8080));
  EXPECT_TRUE(portSpecCovers(u"\t8000 - 8100 ", 8080));
  EXPECT_FALSE(portSpecCovers(u"80,443", 8080));
  EXPECT_FALSE(portSpecCovers(u"80, 443", 8080));
  EXPECT_FALSE(portSpecCovers(u"8081-8100", 8080));
  EXPECT_FALSE(portSpecCovers(u"8000-8079", 8080));
}

TEST(PortSpecTest, WhatCannotBeToldCovers) {
  for (const char16_t* ports :
       {u"", u"*", u"RPC", u"80,", u",", u"80,,443", u"100-50", u"0", u"65536", u"123456", u"1-",
        u"-1", u"1-2-3", u"80,x", u"８０８１", u"8 0"}) {
    EXPECT_TRUE(portSpecCovers(ports, 8080)) << utf8From(ports);
  }
}

TEST(PortSpecTest, APortThatIsNoServicesPortIsAlwaysCovered) {
  EXPECT_TRUE(portSpecCovers(u"80", 1023));
  EXPECT_TRUE(portSpecCovers(u"80", 65536));
  EXPECT_FALSE(portSpecCovers(u"80", 1024));
  EXPECT_FALSE(portSpecCovers(u"80", 65535));
}

}  // namespace
}  // namespace mrl
