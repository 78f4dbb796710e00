#pragma once

#include "remote/firewall_rules.h"

namespace mrl {

class FirewallRulesFake : public FirewallRules {};

}  // namespace mrl
