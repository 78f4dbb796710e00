// A firewall for the tests, under the class of the system's own: what asks the system for its rules
// is answered by this one. In the test's process, or as a library in the program's. Windows only.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <string>
#include <vector>

#include "remote/firewall_rules.h"

namespace mrl {

constexpr GUID kFirewallPolicyClass = {
    0xE2B3C97F, 0x6AE1, 0x41AC, {0x81, 0x7A, 0xF6, 0xF9, 0x21, 0x66, 0xD7, 0xDD}};

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

/// What makes the firewall. REQUIRES: `story` outlives it. The caller releases it.
IClassFactory* makeFirewallFactory(const FirewallStory& story);

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
