// Late-bound calls: each member is looked up by name; values are passed as VARIANTs.
#include "presentation/automation_win.h"

#include <windows.h>

#include <oleauto.h>

#include "base/com_ref_win.h"
#include "base/wide_win.h"
#include "presentation/object_model_win.h"
#include "presentation/program_windows.h"

namespace mrl {
namespace {

class DispatchObject : public AutomationObject {
 public:
  explicit DispatchObject(ComRef<IDispatch> owned) : dispatch(std::move(owned)) {}
  const ComRef<IDispatch> dispatch;
};

// A VARIANT that frees the texts and objects inside it.
struct OwnedVariant : VARIANT {
  OwnedVariant() { VariantInit(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  ~OwnedVariant() { VariantClear(this); }
};
static_assert(sizeof(OwnedVariant) == sizeof(VARIANT), "an array of them is passed as VARIANTs");

// Error details of a failed call. Unused, but the caller has to free the strings.
struct OwnedExceptionInfo : EXCEPINFO {
  OwnedExceptionInfo() : EXCEPINFO{} {}
  OwnedExceptionInfo(const OwnedExceptionInfo&) = delete;
  ~OwnedExceptionInfo() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
};

void fillVariant(VARIANT& variant, const AutomationValue& value) {
  if (const int32_t* number = std::get_if<int32_t>(&value)) {
    variant.vt = VT_I4;
    variant.lVal = *number;
  } else if (const std::u16string* text = std::get_if<std::u16string>(&value)) {
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(wideFrom(*text).c_str());
  }
}

AutomationValue valueFrom(const VARIANT& variant) {
  if (variant.vt == VT_BSTR) {
    return u16From({variant.bstrVal, SysStringLen(variant.bstrVal)});
  }
  if (variant.vt == VT_DISPATCH && variant.pdispVal) {
    variant.pdispVal->AddRef();
    return AutomationRef(std::make_shared<DispatchObject>(ComRef<IDispatch>(variant.pdispVal)));
  }
  return {};
}

HRESULT invoke(const AutomationRef& object, std::u16string_view name, WORD flags, VARIANT* result,
               const std::vector<AutomationValue>& arguments) {
  const auto& dispatch = static_cast<const DispatchObject&>(*object).dispatch;
  std::wstring wideName = wideFrom(name);
  LPOLESTR names = wideName.data();
  DISPID member = 0;
  const HRESULT found = dispatch->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
  if (FAILED(found)) return found;

  std::vector<OwnedVariant> reversed(arguments.size());  // the last argument comes first
  for (size_t index = 0; index < arguments.size(); ++index) {
    fillVariant(reversed[arguments.size() - 1 - index], arguments[index]);
  }
  DISPPARAMS parameters = {};
  parameters.rgvarg = reversed.data();
  parameters.cArgs = static_cast<UINT>(reversed.size());
  OwnedExceptionInfo exception;
  UINT wrongArgument = 0;
  return dispatch->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                          &exception, &wrongArgument);
}

AutomationRef listedApplication(std::u16string_view progId) {
  CLSID classId = {};
  if (FAILED(CLSIDFromProgID(wideFrom(progId).c_str(), &classId))) return nullptr;
  ComRef<IUnknown> unknown;
  if (FAILED(GetActiveObject(classId, nullptr, unknown.put())) || !unknown) return nullptr;
  ComRef<IDispatch> dispatch;
  if (FAILED(unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.put())))) {
    return nullptr;
  }
  return std::make_shared<DispatchObject>(std::move(dispatch));
}

}  // namespace

AutomationRef AutomationWin::running(std::u16string_view progId, ProgramWindows& programs) {
  if (AutomationRef listed = listedApplication(progId)) return listed;
  const std::u16string_view otherName = otherProviderOf(progId);
  if (!otherName.empty() && listedApplication(otherName)) return nullptr;  // that name finds it
  // A program running with fewer rights than ours is not listed for us, but its windows can be
  // queried.
  ObjectModelSearch search;
  for (const WindowHandle window : objectModelWindows(programs, progId)) {
    ComRef<IDispatch> object = search.objectOf(window);
    if (!object) continue;
    AutomationValue application;
    call(std::make_shared<DispatchObject>(std::move(object)), u"Application", DispatchKind::Get,
         &application, {});
    const AutomationRef* found = std::get_if<AutomationRef>(&application);
    if (found && *found) return *found;
  }
  return nullptr;
}

AutomationRef AutomationWin::start(std::u16string_view progId) {
  CLSID classId = {};
  if (FAILED(CLSIDFromProgID(wideFrom(progId).c_str(), &classId))) return nullptr;
  ComRef<IDispatch> dispatch;
  if (FAILED(CoCreateInstance(classId, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(dispatch.put())))) {
    return nullptr;
  }
  return std::make_shared<DispatchObject>(std::move(dispatch));
}

AutomationResult AutomationWin::call(AutomationRef object, std::u16string_view name,
                                     DispatchKind kind, AutomationValue* result,
                                     const std::vector<AutomationValue>& arguments) {
  OwnedVariant returned;
  const HRESULT outcome =
      invoke(object, name, static_cast<WORD>(kind), result ? &returned : nullptr, arguments);
  if (SUCCEEDED(outcome) && result) *result = valueFrom(returned);
  return outcome;
}

bool AutomationWin::readInteger(AutomationRef object, std::u16string_view name, int32_t& value) {
  OwnedVariant returned;
  if (FAILED(invoke(object, name, DISPATCH_PROPERTYGET, &returned, {}))) return false;
  if (FAILED(VariantChangeType(&returned, &returned, 0, VT_I4))) return false;
  value = returned.lVal;
  return true;
}

}  // namespace mrl
