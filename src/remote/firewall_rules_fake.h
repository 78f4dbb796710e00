#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "remote/firewall.h"

namespace mrl {

/// The rule that the elevated command adds.
inline FirewallRule fittingRule(const std::u16string& program, int32_t port) {
  return {.name = firewallRuleName(program, port, false),
          .application = program,
          .localPorts = decimal(port),
          .remoteAddresses = u"LocalSubnet",
          .enabled = kFirewallTrue,
          .edgeTraversal = kFirewallFalse,
          .protocol = 6,
          .profiles = 7,
          .direction = 1,
          .action = 1};
}

class FirewallRulesFake : public FirewallRules {
 public:
  std::u16string programPath() override { return path; }
  std::u16string systemFolder() override { return system; }
  std::u16string expanded(const std::u16string& text) override {
    return text == u"%program%" ? path : text;
  }
  RuleWalk forEach(const std::function<bool(const FirewallRule&)>& visit) override {
    if (walk == RuleWalk::NoFirewall || walk == RuleWalk::NoEnumeration) return walk;
    for (const FirewallRule& rule : rules) {
      if (!visit(rule)) return RuleWalk::Stopped;
    }
    return walk;
  }
  RuleSearch find(const std::u16string& name, FirewallRule& found) override {
    searched.push_back(name);
    if (search != RuleSearch::Found && searched.size() > goodSearches) return search;
    for (const FirewallRule& rule : rules) {
      if (rule.name != name) continue;
      found = rule;
      if (onFound) onFound(found);
      return RuleSearch::Found;
    }
    return RuleSearch::NotFound;
  }
  ElevatedRun runElevated(WindowHandle window, const ElevatedCommand& command) override {
    owner = window;
    commands.push_back(command);
    if (run.started && run.exitCode == 0) rules.insert(rules.end(), made.begin(), made.end());
    return run;
  }

  std::u16string path = u"C:\\Marlune\\marlune.exe";
  std::u16string system = u"C:\\Windows\\system32";
  std::vector<FirewallRule> rules;
  RuleWalk walk = RuleWalk::Ended;             // another value: how forEach() fails
  RuleSearch search = RuleSearch::Found;       // another value: how find() fails
  size_t goodSearches = 0;                     // searches before it fails
  std::function<void(FirewallRule&)> onFound;  // changes a rule between forEach() and find()
  ElevatedRun run{.started = true};
  std::vector<FirewallRule> made;  // rules that the elevated command adds

  WindowHandle owner;
  std::vector<ElevatedCommand> commands;
  std::vector<std::u16string> searched;
};

}  // namespace mrl
