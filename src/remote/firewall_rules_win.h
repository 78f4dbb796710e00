// FirewallRules over the COM interfaces of the Windows firewall.
#pragma once

#include "remote/firewall_rules.h"

namespace mrl {

/// REQUIRES: COM is initialised on the calling thread.
class FirewallRulesWin : public FirewallRules {
 public:
  std::u16string programPath() override;
  std::u16string systemFolder() override;
  std::u16string expanded(const std::u16string& text) override;
  RuleWalk forEach(const std::function<bool(const FirewallRule&)>& visit) override;
  RuleSearch find(const std::u16string& name, FirewallRule& rule) override;
  ElevatedRun runElevated(WindowHandle owner, const ElevatedCommand& command) override;
};

}  // namespace mrl
