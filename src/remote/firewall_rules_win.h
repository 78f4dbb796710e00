#pragma once

#include "remote/firewall_rules.h"

namespace mrl {

class FirewallRulesWin : public FirewallRules {};

}  // namespace mrl
