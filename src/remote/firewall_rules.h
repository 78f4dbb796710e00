// Interface to the system's firewall: its rules, and the elevated command that adds one.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/window_handle.h"

namespace mrl {

constexpr int32_t kFirewallTrue = -1;
constexpr int32_t kFirewallFalse = 0;
constexpr int32_t kFirewallTcp = 6;
constexpr int32_t kFirewallInbound = 1;

/// A rule as the firewall reports it, with the firewall's own numbers. A field that can't be read
/// is std::nullopt; a text that the rule doesn't set is empty.
struct FirewallRule {
  std::optional<std::u16string> name = {};
  std::optional<std::u16string> application = {};
  std::optional<std::u16string> localPorts = {};
  std::optional<std::u16string> remoteAddresses = {};
  std::optional<int32_t> enabled = {};        // kFirewallTrue or kFirewallFalse, or neither
  std::optional<int32_t> edgeTraversal = {};  // likewise
  std::optional<int32_t> protocol = {};
  std::optional<int32_t> profiles = {};
  std::optional<int32_t> direction = {};
  std::optional<int32_t> action = {};
};

enum class RuleWalk {
  Ended,          // all rules were seen
  Stopped,        // the visitor returned false
  NoFirewall,     // the rules can't be accessed at all
  NoEnumeration,  // the rules can't be enumerated
  NoRule,         // an element is not a rule
  Broken,         // the enumeration failed half-way
};

enum class RuleSearch { Found, NotFound, NoMemory, Failed };

struct ElevatedCommand {
  std::u16string program;    // full path
  std::u16string arguments;  // a single command line
  std::u16string folder;     // working directory
  bool operator==(const ElevatedCommand&) const = default;
};

/// Result of an elevated command.
struct ElevatedRun {
  bool started = false;
  uint32_t error = 0;     // system error code, if not started
  uint32_t exitCode = 0;  // if started
};

/// UI thread only. Every call may block for a while; nothing is cached between calls.
class FirewallRules {
 public:
  virtual ~FirewallRules() = default;
  /// Full path of the running program; empty if it can't be read.
  [[nodiscard]] virtual std::u16string programPath() = 0;
  /// Empty if it can't be read.
  [[nodiscard]] virtual std::u16string systemFolder() = 0;
  /// `text` with environment variables expanded; unchanged if that fails.
  [[nodiscard]] virtual std::u16string expanded(const std::u16string& text) = 0;
  /// Passes every rule to `visit` until that returns false.
  [[nodiscard]] virtual RuleWalk forEach(const std::function<bool(const FirewallRule&)>& visit) = 0;
  [[nodiscard]] virtual RuleSearch find(const std::u16string& name, FirewallRule& rule) = 0;
  /// Asks the user for administrator rights, runs the program hidden and waits for it to exit.
  [[nodiscard]] virtual ElevatedRun runElevated(WindowHandle owner,
                                                const ElevatedCommand& command) = 0;
};

}  // namespace mrl
