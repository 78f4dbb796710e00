// The tests' firewall as a DLL that the system loads in place of its own. Its only rule is the one
// that the netsh stand-in was last asked for.
#include "windows/firewall_class.h"

namespace {

std::wstring commandLog() {
  wchar_t path[MAX_PATH];
  const DWORD length = GetEnvironmentVariableW(L"MARLUNE_NETSH", path, MAX_PATH);
  return {path, length < MAX_PATH ? length : 0};
}

}  // namespace

extern "C" __declspec(dllexport) HRESULT
    __stdcall DllGetClassObject(REFCLSID classId, REFIID id, void** out) {
  static const mrl::FirewallStory story{.commandLog = commandLog()};
  *out = nullptr;
  if (classId != mrl::kFirewallPolicyClass) return CLASS_E_CLASSNOTAVAILABLE;
  IClassFactory* const factory = mrl::makeFirewallFactory(story);
  const HRESULT result = factory->QueryInterface(id, out);
  factory->Release();
  return result;
}
