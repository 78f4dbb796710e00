// Will the firewall let a phone through? Never changes or deletes a rule: one that doesn't fit, or
// that blocks, is reported, and only where there is none at all one is made, through an elevated
// command that the user has to allow. UI thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "remote/firewall_rules.h"

namespace mrl {

enum class FirewallRuleState : int32_t {
  Authorized = 0,     // the program's rule exists and fits in every respect
  Missing = 1,        // there is none, and no rule blocks
  ScopeMismatch = 2,  // one of that name exists, but differs
  Blocked = 3,        // an enabled inbound block rule may apply
  Failed = 4,         // the check could not be carried out
};

/// True when the way is free, or has been freed: asks for a missing rule only if `interactive`.
/// Otherwise false, with `message` for the user.
[[nodiscard]] bool ensureFirewallAccess(
    bool interactive, std::u16string& message,
    const std::function<FirewallRuleState(std::u16string&)>& check,
    const std::function<bool(std::u16string&)>& authorize);

/// `message` is filled for every state but Authorized and Missing.
[[nodiscard]] FirewallRuleState checkFirewallRule(FirewallRules& rules, int32_t port,
                                                  std::u16string& message);

/// Makes the program's rule if nothing of its kind exists. Waits for the user and the command. On
/// failure returns false and fills `message`.
[[nodiscard]] bool authorizeFirewallRule(FirewallRules& rules, WindowHandle owner, int32_t port,
                                         std::u16string& message);

/// True if no rule blocks. Otherwise false with `message`, and `blockedFound` tells rules that
/// block from a failure.
[[nodiscard]] bool scanBlockRules(FirewallRules& rules, const std::u16string& exePath, int32_t port,
                                  std::u16string& message, bool& blockedFound);

/// Whether the service may use `port` at all.
[[nodiscard]] constexpr bool isServicePort(int32_t port) { return port >= 1024 && port <= 65535; }

/// Whether a firewall's list of ports ("80,8000-8100") holds `port`; true whenever that can't be
/// told.
[[nodiscard]] bool portSpecCovers(std::u16string_view ports, int32_t port);

/// Depends on the place of the program, whatever its letter case, and on the port. The second form
/// is only looked for.
[[nodiscard]] std::u16string firewallRuleName(const std::u16string& exePath, int32_t port,
                                              bool secondForm);

/// The arguments that make the rule; empty if they can't be built.
[[nodiscard]] std::u16string netshRuleArguments(const std::u16string& exePath, int32_t port);

}  // namespace mrl
