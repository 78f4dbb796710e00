// A fake firewall registered under the system's firewall class, so that code asking the system for
// its rules gets this one. Used in the test's process, or as a DLL in the program's. Windows only.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <string>
#include <vector>

#include "remote/firewall_rules.h"

namespace mrl {

constexpr GUID kFirewallPolicyClass = {
    0xE2B3C97F, 0x6AE1, 0x41AC, {0x81, 0x7A, 0xF6, 0xF9, 0x21, 0x66, 0xD7, 0xDD}};

/// Contents of the fake firewall. A rule's field that is std::nullopt can't be read.
struct FirewallStory {
  std::vector<FirewallRule> rules;
  bool givesRules = true;
  bool givesEnumeration = true;
  bool breaksInTheMiddle = false;  // enumeration fails after the last rule
  bool hasStranger = false;        // after the last rule comes an element that isn't one
  std::wstring commandLog;         // log of the netsh stand-in; its rule is added
  HRESULT notFound = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
};

/// Creates the class factory; the caller releases it. REQUIRES: `story` outlives it.
IClassFactory* makeFirewallFactory(const FirewallStory& story);

/// Registers the class while this object lives. REQUIRES: COM is initialised; `story` outlives it.
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
