// See firewall_class.h. Most methods of the system's interfaces are never called.
#include "windows/firewall_class.h"

#include <netfw.h>
#include <oleauto.h>

#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "base/wide_win.h"

namespace mrl {
namespace {

/// The rule that the system would create for the command in the log (one argument per line). An
/// unknown value leaves its field unset.
FirewallRule ruleOfCommand(std::istream& log) {
  FirewallRule rule{.edgeTraversal = kFirewallFalse};
  for (std::string word; std::getline(log, word);) {
    const size_t equals = word.find('=');
    if (equals == word.npos) continue;
    const std::string key = word.substr(0, equals);
    const std::string value = word.substr(equals + 1);
    if (key == "name") rule.name = utf16From(value);
    if (key == "program") rule.application = utf16From(value);
    if (key == "localport") rule.localPorts = utf16From(value);
    if (word == "remoteip=localsubnet") rule.remoteAddresses = u"LocalSubnet";
    if (word == "enable=yes") rule.enabled = kFirewallTrue;
    if (word == "protocol=TCP") rule.protocol = 6;
    if (word == "profile=domain,private,public") rule.profiles = 7;
    if (word == "dir=in") rule.direction = 1;
    if (word == "action=allow") rule.action = 1;
  }
  return rule;
}

std::vector<FirewallRule> rulesOf(const FirewallStory& story) {
  std::vector<FirewallRule> rules = story.rules;
  std::ifstream log(std::filesystem::path(story.commandLog), std::ios::binary);
  if (log.is_open()) rules.push_back(ruleOfCommand(log));
  return rules;
}

/// Implements IUnknown for one interface and its base.
template <class Interface, class Base>
class Counted : public Interface {
 public:
  virtual ~Counted() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    if (id != __uuidof(Interface) && id != __uuidof(Base) && id != IID_IUnknown) {
      *out = nullptr;
      return E_NOINTERFACE;
    }
    *out = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references;
    if (left == 0) delete this;
    return left;
  }

 private:
  ULONG references = 1;
};

template <class Interface>
class CountedDispatch : public Counted<Interface, IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }
};

HRESULT give(const std::optional<std::u16string>& text, BSTR* out) {
  if (!text) return E_FAIL;
  *out = text->empty() ? nullptr : SysAllocString(wideFrom(*text).c_str());
  return S_OK;
}
template <typename Number>
HRESULT give(const std::optional<int32_t>& number, Number* out) {
  if (!number) return E_FAIL;
  *out = static_cast<Number>(*number);
  return S_OK;
}

class Rule : public CountedDispatch<INetFwRule> {
 public:
  explicit Rule(FirewallRule from) : rule(std::move(from)) {}
  HRESULT STDMETHODCALLTYPE get_Name(BSTR* out) override { return give(rule.name, out); }
  HRESULT STDMETHODCALLTYPE put_Name(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Description(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Description(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_ApplicationName(BSTR* out) override {
    return give(rule.application, out);
  }
  HRESULT STDMETHODCALLTYPE put_ApplicationName(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_ServiceName(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_ServiceName(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Protocol(LONG* out) override { return give(rule.protocol, out); }
  HRESULT STDMETHODCALLTYPE put_Protocol(LONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_LocalPorts(BSTR* out) override {
    return give(rule.localPorts, out);
  }
  HRESULT STDMETHODCALLTYPE put_LocalPorts(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_RemotePorts(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_RemotePorts(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_LocalAddresses(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_LocalAddresses(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_RemoteAddresses(BSTR* out) override {
    return give(rule.remoteAddresses, out);
  }
  HRESULT STDMETHODCALLTYPE put_RemoteAddresses(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_IcmpTypesAndCodes(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_IcmpTypesAndCodes(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Direction(NET_FW_RULE_DIRECTION* out) override {
    return give(rule.direction, out);
  }
  HRESULT STDMETHODCALLTYPE put_Direction(NET_FW_RULE_DIRECTION) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Interfaces(VARIANT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Interfaces(VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_InterfaceTypes(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_InterfaceTypes(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* out) override {
    return give(rule.enabled, out);
  }
  HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Grouping(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Grouping(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Profiles(LONG* out) override { return give(rule.profiles, out); }
  HRESULT STDMETHODCALLTYPE put_Profiles(LONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_EdgeTraversal(VARIANT_BOOL* out) override {
    return give(rule.edgeTraversal, out);
  }
  HRESULT STDMETHODCALLTYPE put_EdgeTraversal(VARIANT_BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Action(NET_FW_ACTION* out) override {
    return give(rule.action, out);
  }
  HRESULT STDMETHODCALLTYPE put_Action(NET_FW_ACTION) override { return E_NOTIMPL; }

 private:
  FirewallRule rule;
};

class Enumeration : public Counted<IEnumVARIANT, IUnknown> {
 public:
  explicit Enumeration(const FirewallStory& from) : story(from), rules(rulesOf(from)) {}
  HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT* out, ULONG* fetched) override {
    *fetched = 0;
    const bool isBehind = next >= rules.size();
    if (isBehind && story.breaksInTheMiddle) return E_FAIL;
    if (isBehind && (!story.hasStranger || next > rules.size())) return S_FALSE;
    VariantInit(out);
    if (isBehind) {
      out->vt = VT_I4;
    } else {
      out->vt = VT_DISPATCH;
      out->pdispVal = new Rule(rules[next]);
    }
    ++next;
    *fetched = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  const FirewallStory& story;
  const std::vector<FirewallRule> rules;
  size_t next = 0;
};

class Rules : public CountedDispatch<INetFwRules> {
 public:
  explicit Rules(const FirewallStory& from) : story(from) {}
  HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Add(INetFwRule*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Remove(BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Item(BSTR name, INetFwRule** out) override {
    for (const FirewallRule& rule : rulesOf(story)) {
      if (!rule.name || wideFrom(*rule.name) != name) continue;
      *out = new Rule(rule);
      return S_OK;
    }
    *out = nullptr;
    return story.notFound;
  }
  HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** out) override {
    *out = story.givesEnumeration ? new Enumeration(story) : nullptr;
    return story.givesEnumeration ? S_OK : E_NOTIMPL;
  }

 private:
  const FirewallStory& story;
};

class Policy : public CountedDispatch<INetFwPolicy2> {
 public:
  explicit Policy(const FirewallStory& from) : story(from) {}
  HRESULT STDMETHODCALLTYPE get_CurrentProfileTypes(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_FirewallEnabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE put_FirewallEnabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_ExcludedInterfaces(NET_FW_PROFILE_TYPE2, VARIANT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE put_ExcludedInterfaces(NET_FW_PROFILE_TYPE2, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_BlockAllInboundTraffic(NET_FW_PROFILE_TYPE2,
                                                       VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE put_BlockAllInboundTraffic(NET_FW_PROFILE_TYPE2,
                                                       VARIANT_BOOL) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_NotificationsDisabled(NET_FW_PROFILE_TYPE2,
                                                      VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE put_NotificationsDisabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE
  get_UnicastResponsesToMulticastBroadcastDisabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE
  put_UnicastResponsesToMulticastBroadcastDisabled(NET_FW_PROFILE_TYPE2, VARIANT_BOOL) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_Rules(INetFwRules** out) override;
  HRESULT STDMETHODCALLTYPE get_ServiceRestriction(INetFwServiceRestriction**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE EnableRuleGroup(LONG, BSTR, VARIANT_BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE IsRuleGroupEnabled(LONG, BSTR, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE RestoreLocalFirewallDefaults() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_DefaultInboundAction(NET_FW_PROFILE_TYPE2,
                                                     NET_FW_ACTION*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE put_DefaultInboundAction(NET_FW_PROFILE_TYPE2, NET_FW_ACTION) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_DefaultOutboundAction(NET_FW_PROFILE_TYPE2,
                                                      NET_FW_ACTION*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE put_DefaultOutboundAction(NET_FW_PROFILE_TYPE2,
                                                      NET_FW_ACTION) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_IsRuleGroupCurrentlyEnabled(BSTR, VARIANT_BOOL*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE get_LocalPolicyModifyState(NET_FW_MODIFY_STATE*) override {
    return E_NOTIMPL;
  }

 private:
  const FirewallStory& story;
};

HRESULT Policy::get_Rules(INetFwRules** out) {
  *out = story.givesRules ? new Rules(story) : nullptr;
  return story.givesRules ? S_OK : E_FAIL;
}

class Factory : public Counted<IClassFactory, IUnknown> {
 public:
  explicit Factory(const FirewallStory& from) : story(from) {}
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
    auto* const policy = new Policy(story);
    const HRESULT result = policy->QueryInterface(id, out);
    policy->Release();
    return result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  const FirewallStory& story;
};

}  // namespace

IClassFactory* makeFirewallFactory(const FirewallStory& story) { return new Factory(story); }

FirewallClass::FirewallClass(const FirewallStory& story) {
  IClassFactory* const factory = makeFirewallFactory(story);
  (void)CoRegisterClassObject(kFirewallPolicyClass, factory, CLSCTX_INPROC_SERVER,
                              REGCLS_MULTIPLEUSE, &cookie);
  factory->Release();
}

FirewallClass::~FirewallClass() {
  if (cookie != 0) CoRevokeClassObject(cookie);
}

}  // namespace mrl
