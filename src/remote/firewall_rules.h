// The system's firewall: its list of rules, and the one elevated command that adds to it.
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

/// A rule as the firewall tells it, with the firewall's own numbers. Nothing stands in a field that
/// could not be read; a text that the rule doesn't have is empty.
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
  Stopped,        // the visitor has seen enough
  NoFirewall,     // there are no rules to be had at all
  NoEnumeration,  // the rules can't be gone through
  NoRule,         // an element was no rule
  Broken,         // the walk failed on its way
};

enum class RuleSearch { Found, NotFound, NoMemory, Failed };

struct ElevatedCommand {
  std::u16string program;    // by its full path
  std::u16string arguments;  // as one line
  std::u16string folder;     // in which it starts
  bool operator==(const ElevatedCommand&) const = default;
};

/// How an elevated command went.
struct ElevatedRun {
  bool started = false;
  uint32_t error = 0;     // the system's, where it did not start
  uint32_t exitCode = 0;  // where it did
};

/// UI thread only. All of it may take the system a while; nothing is kept between calls.
class FirewallRules {
 public:
  virtual ~FirewallRules() = default;
  /// Full path of the running program; empty when it can't be told.
  [[nodiscard]] virtual std::u16string programPath() = 0;
  /// Empty when it can't be told.
  [[nodiscard]] virtual std::u16string systemFolder() = 0;
  /// `text` with its environment variables filled in; as it is when that fails.
  [[nodiscard]] virtual std::u16string expanded(const std::u16string& text) = 0;
  /// Hands every rule to `visit` until that returns false.
  [[nodiscard]] virtual RuleWalk forEach(const std::function<bool(const FirewallRule&)>& visit) = 0;
  [[nodiscard]] virtual RuleSearch find(const std::u16string& name, FirewallRule& rule) = 0;
  /// Asks the user for administrator rights, runs the program hidden and waits for its end.
  [[nodiscard]] virtual ElevatedRun runElevated(WindowHandle owner,
                                                const ElevatedCommand& command) = 0;
};

}  // namespace mrl
