// The system's firewall: its list of rules, and the one elevated command that adds to it.
#pragma once

namespace mrl {

class FirewallRules {
 public:
  virtual ~FirewallRules() = default;
};

}  // namespace mrl
