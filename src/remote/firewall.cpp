#include "remote/firewall.h"

#include <cstdio>

#include "base/char_rules.h"
#include "base/fnv1a.h"
#include "base/text.h"

namespace mrl {
namespace {

constexpr char16_t kNotAuthorized[] = u"遥控服务尚未授权，请在远程遥控中点击启动服务。";
constexpr char16_t kNoPathOrPort[] = u"无法确定程序路径或端口无效。";
constexpr char16_t kNoSearch[] = u"无法查询 Windows 防火墙规则。";
constexpr char16_t kNoMemory[] = u"内存不足。";
constexpr char16_t kNoDetails[] = u"无法读取防火墙规则详情。";
constexpr char16_t kMismatch[] = u"同名防火墙规则的范围不符合要求，请在网络权限设置中检查。";
constexpr char16_t kNotPrepared[] = u"无法准备防火墙授权。";
constexpr char16_t kDeclined[] = u"已取消管理员授权；再次点击“启动遥控服务”可重新请求。";
constexpr char16_t kNotElevated[] = u"无法请求管理员授权（错误 ";
constexpr char16_t kNotElevatedEnd[] = u"）。";
constexpr char16_t kNotMade[] = u"无法创建防火墙规则（错误 ";
constexpr char16_t kNotMadeEnd[] = u"）；请检查系统策略。";
constexpr char16_t kNotVerified[] = u"防火墙规则未能验证，请检查系统策略。";

constexpr int32_t kAllow = 1;
constexpr int32_t kThreeProfiles = 7;
constexpr int32_t kAllProfiles = 0x7FFFFFFF;
constexpr uint32_t kErrorCancelled = 1223;

bool sameText(const std::u16string& a, const std::u16string& b) {
  return lowerCopy(a) == lowerCopy(b);
}

bool isWhole(const FirewallRule& rule) {
  return rule.application && rule.localPorts && rule.remoteAddresses && rule.enabled &&
         rule.edgeTraversal && rule.protocol && rule.profiles && rule.direction && rule.action;
}

/// REQUIRES: isWhole(rule).
bool allowsProgram(const FirewallRule& rule, const std::u16string& exePath, int32_t port) {
  return sameText(*rule.application, exePath) && sameText(*rule.localPorts, decimal(port)) &&
         sameText(*rule.remoteAddresses, u"LocalSubnet") && *rule.enabled == kFirewallTrue &&
         *rule.edgeTraversal == kFirewallFalse && *rule.protocol == kFirewallTcp &&
         *rule.direction == kFirewallInbound && *rule.action == kAllow &&
         (*rule.profiles == kThreeProfiles || *rule.profiles == kAllProfiles);
}

RuleSearch findOwnRule(FirewallRules& rules, const std::u16string& exePath, int32_t port,
                       FirewallRule& rule) {
  const RuleSearch first = rules.find(firewallRuleName(exePath, port, false), rule);
  if (first != RuleSearch::NotFound) return first;
  return rules.find(firewallRuleName(exePath, port, true), rule);
}

FirewallRuleState checkOwnRule(FirewallRules& rules, const std::u16string& exePath, int32_t port,
                               std::u16string& message) {
  FirewallRule rule;
  switch (findOwnRule(rules, exePath, port, rule)) {
    case RuleSearch::NotFound: return FirewallRuleState::Missing;
    case RuleSearch::NoMemory: message = kNoMemory; return FirewallRuleState::Failed;
    case RuleSearch::Failed: message = kNoSearch; return FirewallRuleState::Failed;
    case RuleSearch::Found: break;
  }
  if (!isWhole(rule)) {
    message = kNoDetails;
    return FirewallRuleState::Failed;
  }
  if (allowsProgram(rule, exePath, port)) return FirewallRuleState::Authorized;
  message = kMismatch;
  return FirewallRuleState::ScopeMismatch;
}

bool makeRule(FirewallRules& rules, WindowHandle owner, int32_t port, std::u16string& message) {
  const std::u16string arguments = netshRuleArguments(rules.programPath(), port);
  const std::u16string system = rules.systemFolder();
  if (arguments.empty() || system.empty()) {
    message = kNotPrepared;
    return false;
  }
  // Full path and system folder on purpose: a search for the program or one of its libraries could
  // find another file of that name, and this one runs with administrator rights.
  const ElevatedRun run = rules.runElevated(
      owner, {.program = system + u"\\netsh.exe", .arguments = arguments, .folder = system});
  if (!run.started) {
    message = run.error == kErrorCancelled ? kDeclined
                                           : kNotElevated + decimal(run.error) + kNotElevatedEnd;
    return false;
  }
  if (run.exitCode != 0) {
    message = kNotMade + decimal(run.exitCode) + kNotMadeEnd;
    return false;
  }
  return true;
}

}  // namespace

bool ensureFirewallAccess(bool interactive, std::u16string& message,
                          const std::function<FirewallRuleState(std::u16string&)>& check,
                          const std::function<bool(std::u16string&)>& authorize) {
  const FirewallRuleState state = check(message);
  if (state == FirewallRuleState::Authorized) return true;
  if (state != FirewallRuleState::Missing) return false;
  if (interactive) return authorize(message);
  message = kNotAuthorized;
  return false;
}

FirewallRuleState checkFirewallRule(FirewallRules& rules, int32_t port, std::u16string& message) {
  const std::u16string exePath = rules.programPath();
  if (exePath.empty() || !isServicePort(port)) {
    message = kNoPathOrPort;
    return FirewallRuleState::Failed;
  }
  // Checked first: in the firewall, too, a block rule overrides the program's own rule.
  bool blockedFound = false;
  if (!scanBlockRules(rules, exePath, port, message, blockedFound)) {
    return blockedFound ? FirewallRuleState::Blocked : FirewallRuleState::Failed;
  }
  return checkOwnRule(rules, exePath, port, message);
}

bool authorizeFirewallRule(FirewallRules& rules, WindowHandle owner, int32_t port,
                           std::u16string& message) {
  const FirewallRuleState before = checkFirewallRule(rules, port, message);
  if (before != FirewallRuleState::Missing) return before == FirewallRuleState::Authorized;
  if (!makeRule(rules, owner, port, message)) return false;
  std::u16string reason;
  if (checkFirewallRule(rules, port, reason) == FirewallRuleState::Authorized) return true;
  message = reason.empty() ? kNotVerified : reason;
  return false;
}

std::u16string firewallRuleName(const std::u16string& exePath, int32_t port, bool secondForm) {
  uint64_t hash = kFnvOffsetBasis;
  for (const char16_t unit : lowerCopy(exePath)) hash = fnv1a(hash, unit);
  char text[96];
  const int length = std::snprintf(text, sizeof text, "Marlune %sLAN %016llX TCP %d All Profiles",
                                   secondForm ? "Native " : "",
                                   static_cast<unsigned long long>(hash), static_cast<int>(port));
  return {text, text + length};
}

std::u16string netshRuleArguments(const std::u16string& exePath, int32_t port) {
  const bool canBeQuoted = exePath.find(u'"') == exePath.npos;
  if (exePath.empty() || !canBeQuoted || !isServicePort(port)) return {};
  return u"advfirewall firewall add rule name=\"" + firewallRuleName(exePath, port, false) +
         u"\" dir=in action=allow program=\"" + exePath + u"\" protocol=TCP localport=" +
         decimal(port) + u" profile=domain,private,public remoteip=localsubnet enable=yes";
}

}  // namespace mrl
