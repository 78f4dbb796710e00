// The part of the firewall check that scans for block rules.
#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "base/char_rules.h"
#include "base/text.h"
#include "remote/firewall.h"

namespace mrl {
namespace {

constexpr char16_t kNoRules[] = u"无法读取 Windows 防火墙规则。";
constexpr char16_t kNoEnumeration[] = u"无法检查可能冲突的防火墙规则。";
constexpr char16_t kUnreadable[] = u"无法读取防火墙规则，不能确认权限状态。";
constexpr char16_t kNoPorts[] = u"无法读取阻止规则的端口范围。";
constexpr char16_t kNoName[] = u"无法读取阻止规则名称。";
constexpr char16_t kBroken[] = u"检查防火墙规则时发生错误。";
constexpr char16_t kAllPorts[] = u"全部端口";
constexpr char16_t kAllProtocols[] = u"所有协议及端口";
constexpr char16_t kUnnamed[] = u"（未命名规则）";
constexpr char16_t kThisProgram[] = u"本程序";
constexpr char16_t kAllPrograms[] = u"所有程序";
constexpr char16_t kFoundHead[] = u"发现可能阻止遥控的入站规则：";
constexpr char16_t kFoundTail[] =
    u"\n规则可能受地址、接口、服务或策略限制，来源请在防火墙控制台核实。"
    u"点击“检查与修复”查看处理方式。";

constexpr size_t kListed = 4;
constexpr int32_t kAnyProtocol = 256;
constexpr int32_t kBlock = 0;
constexpr int32_t kProfiles = 7;

struct BlockScan {
  FirewallRules& rules;
  const std::u16string& exePath;
  int32_t port;
  size_t count = 0;
  std::vector<std::u16string> lines = {};
};

bool isReadable(const FirewallRule& rule) {
  return rule.enabled && rule.direction && rule.action && rule.profiles && rule.protocol &&
         rule.application;
}

/// REQUIRES: isReadable(rule).
bool blocksInbound(const FirewallRule& rule) {
  return *rule.enabled != kFirewallFalse && *rule.direction == kFirewallInbound &&
         *rule.action == kBlock && (*rule.profiles & kProfiles) != 0 &&
         (*rule.protocol == kFirewallTcp || *rule.protocol == kAnyProtocol);
}

/// Examines one rule. Returns the message with which the walk must end; null to continue.
const char16_t* look(BlockScan& scan, const FirewallRule& rule) {
  if (!isReadable(rule)) return kUnreadable;
  if (!blocksInbound(rule)) return nullptr;
  const std::u16string application = scan.rules.expanded(*rule.application);
  const bool namesProgram = !application.empty() && application != u"*";
  if (namesProgram && lowerCopy(application) != lowerCopy(scan.exePath)) return nullptr;

  std::u16string ports = kAllProtocols;
  if (*rule.protocol == kFirewallTcp) {
    if (!rule.localPorts) return kNoPorts;
    if (!portSpecCovers(*rule.localPorts, scan.port)) return nullptr;
    ports = rule.localPorts->empty() ? kAllPorts : *rule.localPorts;
  }
  if (!rule.name) return kNoName;
  ++scan.count;
  if (scan.lines.size() < kListed) {
    scan.lines.push_back((rule.name->empty() ? kUnnamed : *rule.name) + u"（" +
                         (namesProgram ? kThisProgram : kAllPrograms) + u"；端口：" + ports +
                         u"）");
  }
  return nullptr;
}

std::u16string blockReport(const BlockScan& scan) {
  std::u16string report = kFoundHead;
  for (const std::u16string& line : scan.lines) report += u"\n• " + line;
  if (scan.count > scan.lines.size()) {
    report += u"\n以及其他 " + decimal(static_cast<int64_t>(scan.count - scan.lines.size())) +
              u" 条规则。";
  }
  return report + kFoundTail;
}

/// Null if all rules were seen. `trouble` is the message of the rule that stopped the walk.
const char16_t* failureOf(RuleWalk walk, const char16_t* trouble) {
  switch (walk) {
    case RuleWalk::Ended: return nullptr;
    case RuleWalk::Stopped: return trouble;
    case RuleWalk::NoFirewall: return kNoRules;
    case RuleWalk::NoEnumeration: return kNoEnumeration;
    case RuleWalk::NoRule: return kUnreadable;
    case RuleWalk::Broken: return kBroken;
  }
  return kBroken;
}

std::optional<int32_t> portOf(std::u16string_view text) {
  if (text.empty() || text.size() > 5) return std::nullopt;
  int32_t value = 0;
  for (const char16_t digit : text) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    value = value * 10 + (digit - u'0');
  }
  if (value < 1 || value > 65535) return std::nullopt;
  return value;
}

/// A port or a range of ports. Anything else is treated as covering every port.
bool tokenCovers(std::u16string_view token, int32_t port) {
  const size_t dash = token.find(u'-');
  const std::optional<int32_t> first = portOf(trimmed(token.substr(0, dash)));
  const std::optional<int32_t> last =
      dash == token.npos ? first : portOf(trimmed(token.substr(dash + 1)));
  if (!first || !last || *first > *last) return true;
  return *first <= port && port <= *last;
}

}  // namespace

bool scanBlockRules(FirewallRules& rules, const std::u16string& exePath, int32_t port,
                    std::u16string& message, bool& blockedFound) {
  BlockScan scan{rules, exePath, port};
  const char16_t* trouble = nullptr;
  const RuleWalk walk = rules.forEach([&](const FirewallRule& rule) {
    trouble = look(scan, rule);
    return trouble == nullptr;
  });
  if (const char16_t* const failure = failureOf(walk, trouble)) {
    message = failure;
    return false;
  }
  if (scan.count == 0) return true;
  blockedFound = true;
  message = blockReport(scan);
  return false;
}

bool portSpecCovers(std::u16string_view ports, int32_t port) {
  if (!isServicePort(port) || ports.empty() || ports == u"*") return true;
  while (true) {
    const size_t comma = ports.find(u',');
    if (tokenCovers(trimmed(ports.substr(0, comma)), port)) return true;
    if (comma == ports.npos) return false;
    ports.remove_prefix(comma + 1);
  }
}

}  // namespace mrl
