#include "remote/firewall_rules_win.h"

#include <windows.h>

#include <netfw.h>
#include <oleauto.h>
#include <shellapi.h>

#include "base/com_ref_win.h"
#include "base/geometry_win.h"
#include "base/kernel_handle_win.h"
#include "base/wide_win.h"

namespace mrl {
namespace {

constexpr GUID kFirewallPolicy = {
    0xE2B3C97F, 0x6AE1, 0x41AC, {0x81, 0x7A, 0xF6, 0xF9, 0x21, 0x66, 0xD7, 0xDD}};
constexpr GUID kIFirewallPolicy = {
    0x98325047, 0xC671, 0x4174, {0x8D, 0x81, 0xDE, 0xFC, 0xD3, 0xF0, 0x31, 0x86}};
constexpr GUID kIFirewallRule = {
    0xAF230D27, 0xBABA, 0x4E42, {0xAC, 0xED, 0xF5, 0x24, 0xF2, 0x2C, 0xFC, 0xE2}};
constexpr HRESULT kFileNotFound = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
constexpr HRESULT kNotFound = HRESULT_FROM_WIN32(ERROR_NOT_FOUND);

struct TextTraits {
  static BSTR none() { return nullptr; }
  static void close(BSTR text) { SysFreeString(text); }
};
using Text = UniqueHandle<TextTraits>;

struct Variant : VARIANT {
  Variant() { VariantInit(this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(this); }
};

using TextReader = HRESULT (STDMETHODCALLTYPE INetFwRule::*)(BSTR*);
std::optional<std::u16string> textOf(INetFwRule& rule, TextReader read) {
  Text text;
  if (FAILED((rule.*read)(text.put()))) return std::nullopt;
  return u16From({text.get(), SysStringLen(text.get())});
}

template <typename Value>
std::optional<int32_t> numberOf(INetFwRule& rule,
                                HRESULT (STDMETHODCALLTYPE INetFwRule::*read)(Value*)) {
  Value value{};
  if (FAILED((rule.*read)(&value))) return std::nullopt;
  return static_cast<int32_t>(value);
}

FirewallRule ruleFrom(INetFwRule& rule) {
  return {.name = textOf(rule, &INetFwRule::get_Name),
          .application = textOf(rule, &INetFwRule::get_ApplicationName),
          .localPorts = textOf(rule, &INetFwRule::get_LocalPorts),
          .remoteAddresses = textOf(rule, &INetFwRule::get_RemoteAddresses),
          .enabled = numberOf(rule, &INetFwRule::get_Enabled),
          .edgeTraversal = numberOf(rule, &INetFwRule::get_EdgeTraversal),
          .protocol = numberOf(rule, &INetFwRule::get_Protocol),
          .profiles = numberOf(rule, &INetFwRule::get_Profiles),
          .direction = numberOf(rule, &INetFwRule::get_Direction),
          .action = numberOf(rule, &INetFwRule::get_Action)};
}

ComRef<INetFwRules> openRules() {
  ComRef<INetFwPolicy2> policy;
  ComRef<INetFwRules> rules;
  if (SUCCEEDED(CoCreateInstance(kFirewallPolicy, nullptr, CLSCTX_INPROC_SERVER, kIFirewallPolicy,
                                 reinterpret_cast<void**>(policy.put()))) &&
      FAILED(policy->get_Rules(rules.put()))) {
    return {};
  }
  return rules;
}

ComRef<IEnumVARIANT> openEnumeration(INetFwRules& rules) {
  ComRef<IUnknown> source;
  ComRef<IEnumVARIANT> enumeration;
  if (SUCCEEDED(rules.get__NewEnum(source.put())) && source) {
    (void)source->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(enumeration.put()));
  }
  return enumeration;
}

}  // namespace

std::u16string FirewallRulesWin::programPath() {
  std::wstring path(32768, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  if (length >= path.size()) return {};  // truncated
  return u16From({path.data(), length});
}

std::u16string FirewallRulesWin::systemFolder() {
  wchar_t path[260];
  const UINT length = GetSystemDirectoryW(path, 260);
  if (length >= 260) return {};
  return u16From({path, length});
}

std::u16string FirewallRulesWin::expanded(const std::u16string& text) {
  const std::wstring from = wideFrom(text);
  const DWORD size = ExpandEnvironmentStringsW(from.c_str(), nullptr, 0);
  std::wstring to(size, L'\0');
  const DWORD written = ExpandEnvironmentStringsW(from.c_str(), to.data(), size);
  if (written == 0 || written > size) return text;
  return u16From({to.data(), written - 1});  // without the terminator
}

RuleWalk FirewallRulesWin::forEach(const std::function<bool(const FirewallRule&)>& visit) {
  const ComRef<INetFwRules> rules = openRules();
  if (!rules) return RuleWalk::NoFirewall;
  const ComRef<IEnumVARIANT> enumeration = openEnumeration(*rules);
  if (!enumeration) return RuleWalk::NoEnumeration;
  while (true) {
    Variant element;
    ULONG fetched = 0;
    const HRESULT result = enumeration->Next(1, &element, &fetched);
    if (FAILED(result)) return RuleWalk::Broken;
    if (result != S_OK || fetched == 0) return RuleWalk::Ended;
    ComRef<INetFwRule> rule;
    if (element.vt != VT_DISPATCH || element.pdispVal == nullptr ||
        FAILED(element.pdispVal->QueryInterface(kIFirewallRule,
                                                reinterpret_cast<void**>(rule.put())))) {
      return RuleWalk::NoRule;
    }
    if (!visit(ruleFrom(*rule))) return RuleWalk::Stopped;
  }
}

RuleSearch FirewallRulesWin::find(const std::u16string& name, FirewallRule& rule) {
  const ComRef<INetFwRules> rules = openRules();
  if (!rules) return RuleSearch::Failed;
  const Text wanted(SysAllocString(wideFrom(name).c_str()));
  if (!wanted) return RuleSearch::NoMemory;
  ComRef<INetFwRule> found;
  const HRESULT result = rules->Item(wanted.get(), found.put());
  if (result == kFileNotFound || result == kNotFound) return RuleSearch::NotFound;
  if (FAILED(result) || !found) return RuleSearch::Failed;
  rule = ruleFrom(*found);
  return RuleSearch::Found;
}

ElevatedRun FirewallRulesWin::runElevated(WindowHandle owner, const ElevatedCommand& command) {
  const std::wstring file = wideFrom(command.program);
  const std::wstring parameters = wideFrom(command.arguments);
  const std::wstring folder = wideFrom(command.folder);
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_NOASYNC;
  info.hwnd = windowFrom(owner);
  info.lpVerb = L"runas";
  info.lpFile = file.c_str();
  info.lpParameters = parameters.c_str();
  info.lpDirectory = folder.c_str();
  info.nShow = SW_HIDE;
  if (!ShellExecuteExW(&info)) return {.error = GetLastError()};
  ElevatedRun run{.started = true, .exitCode = 0xFFFFFFFF};
  const KernelHandle process(info.hProcess);
  if (!process) return run;
  WaitForSingleObject(process.get(), INFINITE);
  DWORD exitCode = run.exitCode;
  if (GetExitCodeProcess(process.get(), &exitCode)) run.exitCode = exitCode;
  return run;
}

}  // namespace mrl
