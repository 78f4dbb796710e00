// COM objects of the tests' own, and a place where one of them is the running application.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/wide_win.h"
#include "presentation/automation_win.h"

namespace mrl {

// {6F2B7D5C-0E3A-4A51-9B0B-8C5D4E1F7A01}
inline constexpr CLSID kClassId = {
    0x6F2B7D5C, 0x0E3A, 0x4A51, {0x9B, 0x0B, 0x8C, 0x5D, 0x4E, 0x1F, 0x7A, 0x01}};
inline constexpr wchar_t kProgIdKey[] = L"Marlune.Test.Application";
inline constexpr char16_t kProgId[] = u"Marlune.Test.Application";

/// An object that tells what it was asked and answers what the test says.
class TestDispatch : public IDispatch {
 public:
  struct Call {
    LCID locale = 0;
    WORD flags = 0;
    bool wantsResult = false;
    UINT namedArguments = 0;
    std::vector<std::wstring> arguments;  // as they came: the last one first
  };

  std::map<std::wstring, std::function<HRESULT(VARIANT*, EXCEPINFO*)>> members;
  std::vector<Call> calls;
  LCID lookupLocale = 0;
  ULONG references = 0;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IDispatch);
    *object = known && !(deniesDispatch && IsEqualIID(wanted, IID_IDispatch)) ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }  // lives in the test
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID none, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    if (!IsEqualIID(none, IID_NULL) || count != 1) return E_INVALIDARG;
    lookupLocale = locale;
    if (onLookup) onLookup();
    const auto found = members.find(names[0]);
    if (found == members.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(std::distance(members.begin(), found)) + 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID none, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrongArgument) override {
    if (member == DISPID_VALUE) return DISP_E_MEMBERNOTFOUND;  // what an object is as a number
    if (!IsEqualIID(none, IID_NULL) || !exception || !wrongArgument) return E_INVALIDARG;
    Call call{locale, flags, result != nullptr, parameters->cNamedArgs, {}};
    for (UINT index = 0; index < parameters->cArgs; ++index) {
      const VARIANT& argument = parameters->rgvarg[index];
      call.arguments.push_back(argument.vt == VT_I4     ? L"i4 " + std::to_wstring(argument.lVal)
                               : argument.vt == VT_BSTR ? L"bstr " + std::wstring(argument.bstrVal)
                                                        : L"vt " + std::to_wstring(argument.vt));
    }
    calls.push_back(call);
    return std::next(members.begin(), member - 1)->second(result, exception);
  }

  bool deniesDispatch = false;
  std::function<void()> onLookup;  // in the midst of each search for a name
};

/// A thread with COM on which `object` can be enrolled as the running application of kProgId.
struct AutomationPlaceWin {
  TestDispatch object;
  AutomationWin automation;
  DWORD registration = 0;

  AutomationPlaceWin() {
    EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    // The machine's part of the registry: Wine 8 does not look into the user's for class names.
    const wchar_t text[] = L"{6F2B7D5C-0E3A-4A51-9B0B-8C5D4E1F7A01}";
    EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, (std::wstring(kProgIdKey) + L"\\CLSID").c_str(),
                              nullptr, REG_SZ, text, sizeof text),
              ERROR_SUCCESS);
  }
  AutomationPlaceWin(const AutomationPlaceWin&) = delete;
  ~AutomationPlaceWin() {
    retire();
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgIdKey);
    CoUninitialize();
    EXPECT_EQ(object.references, 0u);
  }
  void enroll() {
    ASSERT_EQ(RegisterActiveObject(&object, kClassId, ACTIVEOBJECT_WEAK, &registration), S_OK);
  }
  void retire() {
    if (registration) RevokeActiveObject(registration, nullptr);
    registration = 0;
  }
  AutomationRef connect() {
    enroll();
    AutomationRef found = automation.running(kProgId);
    if (!found) throw std::runtime_error("the test's application was not found");
    return found;
  }
  void answer(const std::wstring& member, std::function<void(VARIANT&)> fill) {
    object.members[member] = [fill](VARIANT* result, EXCEPINFO*) {
      if (result) fill(*result);
      return S_OK;
    };
  }
  static void putText(VARIANT& variant, const wchar_t* text) {
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(text);
  }
};

class AutomationWinTest : public testing::Test, protected AutomationPlaceWin {};

}  // namespace mrl
