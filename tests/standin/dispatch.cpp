// IDispatch: maps names to members, and VARIANTs to values and back.
#include "standin/dispatch.h"

#include <oleacc.h>

#include <algorithm>
#include <cwchar>
#include <utility>

#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

using Microsoft::WRL::ComPtr;

/// Reads the arguments into natural order. On a wrong type returns DISP_E_TYPEMISMATCH and the
/// index of the argument in the call's own order, which is reversed.
HRESULT readArguments(const Member& member, const DISPPARAMS& given, Arguments& out,
                      UINT& wrongArgument) {
  const size_t count = wcslen(member.arguments);
  if (given.cArgs != count || given.cNamedArgs != 0) return DISP_E_BADPARAMCOUNT;
  for (size_t i = 0; i < count; ++i) {
    const UINT place = static_cast<UINT>(count - 1 - i);
    const VARIANT& argument = given.rgvarg[place];
    if (argument.vt != (member.arguments[i] == L's' ? VT_BSTR : VT_I4)) {
      wrongArgument = place;
      return DISP_E_TYPEMISMATCH;
    }
    if (argument.vt == VT_I4)
      out.emplace_back(static_cast<int>(argument.lVal));
    else
      out.emplace_back(std::wstring(argument.bstrVal, SysStringLen(argument.bstrVal)));
  }
  return S_OK;
}

std::wstring textOf(const Arguments& arguments) {
  std::wstring text;
  for (const Value& argument : arguments) {
    if (!text.empty()) text += L", ";
    if (const auto* number = std::get_if<int>(&argument)) text += std::to_wstring(*number);
    if (const auto* words = std::get_if<std::wstring>(&argument)) text += L"\"" + *words + L"\"";
  }
  return text;
}

void putValue(StandIn& standIn, const Value& value, VARIANT& out) {
  if (const auto* number = std::get_if<int>(&value)) {
    out.vt = VT_I4;
    out.lVal = *number;
  } else if (const auto* text = std::get_if<std::wstring>(&value)) {
    out.vt = VT_BSTR;
    out.bstrVal = SysAllocString(text->c_str());
  } else if (const auto* ref = std::get_if<ObjectRef>(&value)) {
    out.vt = VT_DISPATCH;
    // The only application object, which may have been withdrawn.
    out.pdispVal = ref->kind == ObjectKind::Application
                       ? ComPtr<IDispatch>(standIn.server.object()).Detach()
                       : dispatchObject(standIn, *ref).Detach();
  }
}

/// Replaces the value by one of a wrong type: a text by a number, anything else by a text.
void turnToNonsense(Value& value) {
  if (std::holds_alternative<std::wstring>(value))
    value.emplace<int>(42);
  else
    value.emplace<std::wstring>(L"nonsense");
}

HRESULT explain(HRESULT result, const std::wstring& what, EXCEPINFO* info) {
  if (info) {
    *info = {};
    info->bstrSource = SysAllocString(L"Stand-in");
    info->bstrDescription = SysAllocString(what.c_str());
    info->bstrHelpFile = SysAllocString(L"standin.chm");
    info->scode = E_FAIL;
  }
  return result;
}

class DispatchObject : public IDispatch {
 public:
  DispatchObject(StandIn& owner, const ObjectRef& self) : standIn(owner), ref(self) {}
  virtual ~DispatchObject() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch;
    *out = known ? static_cast<IDispatch*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** out) override {
    *out = nullptr;
    return DISP_E_BADINDEX;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* info, UINT* wrongArgument) override;

 private:
  HRESULT call(const Member& member, const Arguments& arguments, VARIANT* result, EXCEPINFO* info);

  StandIn& standIn;
  const ObjectRef ref;
  ULONG references = 1;  // not atomic: all calls arrive on one thread
};

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  const auto table = members();
  // Case-sensitive, so that a misspelt name is noticed.
  const auto found = std::find_if(table.begin(), table.end(), [&](const Member& member) {
    return member.object == ref.kind && wcscmp(member.name, names[0]) == 0;
  });
  if (found == table.end()) return DISP_E_UNKNOWNNAME;
  ids[0] = static_cast<DISPID>(found - table.begin() + 1);  // 0 is the default member
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given,
                               VARIANT* result, EXCEPINFO* info, UINT* wrongArgument) {
  const auto table = members();
  if (id < 1 || id > static_cast<DISPID>(table.size())) return DISP_E_MEMBERNOTFOUND;
  const Member& member = table[id - 1];
  if (member.object != ref.kind) return DISP_E_MEMBERNOTFOUND;

  const std::wstring name = std::wstring(objectName(ref.kind)) + L"." + member.name;
  if (!(flags & member.flags)) {
    standIn.journal.add(L"refused " + name + L" flags " + std::to_wstring(flags));
    return DISP_E_MEMBERNOTFOUND;
  }
  Arguments arguments;
  UINT wrong = 0;
  const HRESULT read = readArguments(member, *given, arguments, wrong);
  if (wrongArgument) *wrongArgument = wrong;
  if (FAILED(read)) {
    standIn.journal.add(L"refused " + name + L" arguments");
    return read;
  }
  standIn.journal.add(member.flags == kGet ? L"get " + name
                                           : L"call " + name + L"(" + textOf(arguments) + L")");
  return call(member, arguments, result, info);
}

HRESULT DispatchObject::call(const Member& member, const Arguments& arguments, VARIANT* result,
                             EXCEPINFO* info) {
  Faults& faults = standIn.faults;
  const wchar_t* object = objectName(ref.kind);
  Sleep(std::exchange(faults.hangMs, 0));
  if (faults.deadly.take(object, member.name)) standIn.server.crash();
  if (faults.failing.take(object, member.name))
    return explain(E_FAIL, std::wstring(member.name) + L" was told to fail", info);
  if (faults.rejected.take(object, member.name)) return RPC_E_CALL_REJECTED;

  std::optional<Value> value = member.handler(standIn, ref, arguments);
  // Here and not later: the caller that runs a show may ask for its window at once.
  standIn.showChanges();
  if (!value) {
    const std::wstring what = std::wstring(member.name) + L": no such object or value";
    return explain(DISP_E_EXCEPTION, what, info);
  }
  if (faults.nonsense.take(object, member.name)) turnToNonsense(*value);
  if (result) {
    VariantInit(result);
    putValue(standIn, *value, *result);
  }
  return S_OK;
}

}  // namespace

ComPtr<IDispatch> dispatchObject(StandIn& standIn, const ObjectRef& ref) {
  ComPtr<IDispatch> object;
  object.Attach(new DispatchObject(standIn, ref));
  return object;
}

LRESULT answerNativeObject(StandIn& standIn, const ObjectRef& ref, WPARAM wParam) {
  constexpr wchar_t kObject[] = L"Window", kName[] = L"NativeObject";
  constexpr LRESULT kNothing = 0, kNonsense = 42;
  standIn.journal.add(std::wstring(L"get ") + kObject + L"." + kName);
  if (!standIn.server.announced()) return kNothing;
  Faults& faults = standIn.faults;
  Sleep(std::exchange(faults.hangMs, 0));
  if (faults.deadly.take(kObject, kName)) standIn.server.crash();
  if (faults.failing.take(kObject, kName)) return kNothing;
  if (faults.nonsense.take(kObject, kName)) return kNonsense;
  return LresultFromObject(IID_IDispatch, wParam, dispatchObject(standIn, ref).Get());
}

}  // namespace mrl::standin
