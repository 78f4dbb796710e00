// Checks whether the firewall lets phones through. Never changes or deletes a rule: a rule that
// differs or blocks is only reported. If there is no rule, one is added by an elevated command that
// the user has to permit. UI thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "remote/firewall_rules.h"
#include "settings/settings.h"

namespace mrl {

enum class FirewallRuleState : int32_t {
  Authorized = 0,     // the program's rule exists and is as required
  Missing = 1,        // no such rule, and no rule blocks
  ScopeMismatch = 2,  // a rule of that name exists but differs
  Blocked = 3,        // an enabled inbound block rule may apply
  Failed = 4,         // the check failed
};

/// True if access is allowed or has just been authorized; a missing rule is requested only if
/// `interactive`. Otherwise returns false and fills `message` for the user.
[[nodiscard]] bool ensureFirewallAccess(
    bool interactive, std::u16string& message,
    const std::function<FirewallRuleState(std::u16string&)>& check,
    const std::function<bool(std::u16string&)>& authorize);

/// Fills `message` for every state except Authorized and Missing.
[[nodiscard]] FirewallRuleState checkFirewallRule(FirewallRules& rules, int32_t port,
                                                  std::u16string& message);

/// Adds the program's rule if it is missing. Blocks until the user has answered and the command has
/// ended. On failure returns false and fills `message`.
[[nodiscard]] bool authorizeFirewallRule(FirewallRules& rules, WindowHandle owner, int32_t port,
                                         std::u16string& message);

/// True if no rule blocks. Otherwise returns false and fills `message`; `blockedFound` is set if a
/// rule blocks and unchanged if the scan failed.
[[nodiscard]] bool scanBlockRules(FirewallRules& rules, const std::u16string& exePath, int32_t port,
                                  std::u16string& message, bool& blockedFound);

/// Whether the service may use `port` at all.
[[nodiscard]] constexpr bool isServicePort(int32_t port) {
  constexpr Range kPorts = rowOf(kSettings, &Settings::remotePort).range;
  return std::cmp_greater_equal(port, kPorts.lowest) && std::cmp_less_equal(port, kPorts.highest);
}

/// Whether a rule's port list ("80,8000-8100") contains `port`; true if it can't be parsed.
[[nodiscard]] bool portSpecCovers(std::u16string_view ports, int32_t port);

/// The rule's name; depends on the program's path (ignoring case) and the port. The second form is
/// recognised, but never created.
[[nodiscard]] std::u16string firewallRuleName(const std::u16string& exePath, int32_t port,
                                              bool secondForm);

/// The netsh arguments that add the rule; empty if they can't be built.
[[nodiscard]] std::u16string netshRuleArguments(const std::u16string& exePath, int32_t port);

}  // namespace mrl
