// A firewall for the tests, under the class of the system's own, in the test's process: what asks
// the system for its rules is answered by this one. Windows only.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "remote/firewall_rules.h"

namespace mrl {

/// What the firewall says. A field of a rule that holds nothing can't be read.
struct FirewallStory {
  std::vector<FirewallRule> rules;
  bool givesRules = true;
  bool givesEnumeration = true;
  bool breaksInTheMiddle = false;  // behind the last rule
  bool hasStranger = false;        // an element that is no rule, behind the last one
  std::wstring commandLog;         // what the command in this file asked for is a rule as well
  HRESULT notFound = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
};

/// The class stands for as long as this lives. REQUIRES: COM is initialised; `story` outlives it.
class FirewallClass {
 public:
  explicit FirewallClass(const FirewallStory& story);
  FirewallClass(const FirewallClass&) = delete;
  ~FirewallClass();
  bool isRegistered() const { return cookie != 0; }

 private:
  DWORD cookie = 0;
};

}  // namespace mrl
