#include "presentation/automation_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <map>
#include <stdexcept>

#include "core/com_ref_win.h"
#include "core/wide_win.h"
#include "presentation/automation_access.h"
#include "presentation/window_system_win.h"
#include "settings/files_fake.h"

namespace mrl {
namespace {

// {6F2B7D5C-0E3A-4A51-9B0B-8C5D4E1F7A01}
constexpr CLSID kClassId = {
    0x6F2B7D5C, 0x0E3A, 0x4A51, {0x9B, 0x0B, 0x8C, 0x5D, 0x4E, 0x1F, 0x7A, 0x01}};
constexpr wchar_t kProgIdKey[] = L"Marlune.Test.Application";
constexpr char16_t kProgId[] = u"Marlune.Test.Application";

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
    const auto found = members.find(names[0]);
    if (found == members.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(std::distance(members.begin(), found)) + 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID none, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrongArgument) override {
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
};

class AutomationWinTest : public testing::Test {
 protected:
  TestDispatch object;
  AutomationWin automation;
  DWORD registration = 0;

  AutomationWinTest() {
    EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    // The machine's part of the registry: Wine 8 does not look into the user's for class names.
    const wchar_t text[] = L"{6F2B7D5C-0E3A-4A51-9B0B-8C5D4E1F7A01}";
    EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, (std::wstring(kProgIdKey) + L"\\CLSID").c_str(),
                              nullptr, REG_SZ, text, sizeof text),
              ERROR_SUCCESS);
  }
  ~AutomationWinTest() override {
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
  /// What a property that holds `fill` reads as.
  AutomationValue valueOf(std::function<void(VARIANT&)> fill) {
    const AutomationRef application = connect();
    answer(L"Member", std::move(fill));
    AutomationValue value;
    EXPECT_EQ(automation.call(application, u"Member", DispatchKind::Get, &value, {}),
              kAutomationOk);
    retire();
    return value;
  }
  /// The same as an integer; -77 when it can't be read as one.
  int32_t integerOf(std::function<void(VARIANT&)> fill) {
    const AutomationRef application = connect();
    answer(L"Member", std::move(fill));
    int32_t value = -77;
    const bool read = automation.readInteger(application, u"Member", value);
    EXPECT_EQ(read, value != -77);
    retire();
    return value;
  }
  static void putText(VARIANT& variant, const wchar_t* text) {
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(text);
  }
};

// --- reaching an application ---

TEST_F(AutomationWinTest, ARunningApplicationIsFoundByItsProgId) { EXPECT_TRUE(connect()); }

TEST_F(AutomationWinTest, AnApplicationThatDoesNotRunIsNotFound) {
  EXPECT_FALSE(automation.running(kProgId));
}

TEST_F(AutomationWinTest, AProgIdThatIsNotRegisteredIsNotFound) {
  enroll();
  EXPECT_FALSE(automation.running(u"Marlune.Test.NoSuchApplication"));
  EXPECT_FALSE(automation.running(u""));
}

TEST_F(AutomationWinTest, AnApplicationWithoutDispatchIsNotFound) {
  enroll();
  object.deniesDispatch = true;
  EXPECT_FALSE(automation.running(kProgId));
}

TEST_F(AutomationWinTest, AReferenceIsGivenUpWithItsLastCopy) {
  AutomationRef application = connect();
  AutomationRef copy = application;
  const ULONG held = object.references;
  application = nullptr;
  EXPECT_EQ(object.references, held);
  copy = nullptr;
  EXPECT_EQ(object.references, held - 1);
}

TEST_F(AutomationWinTest, AnApplicationWithoutAServerDoesNotStart) {
  EXPECT_FALSE(automation.start(kProgId));
  EXPECT_FALSE(automation.start(u"Marlune.Test.NoSuchApplication"));
}

// A factory of this process, offered as a local server, stands for the program that COM starts.
TEST_F(AutomationWinTest, AnApplicationStartsThroughItsFactory) {
  struct Factory : IClassFactory {
    explicit Factory(TestDispatch& objectIn) : object(objectIn) {}
    TestDispatch& object;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** result) override {
      const bool known = IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IClassFactory);
      *result = known ? this : nullptr;
      return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** result) override {
      return object.QueryInterface(wanted, result);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
  } factory(object);
  DWORD cookie = 0;
  ASSERT_EQ(
      CoRegisterClassObject(kClassId, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie),
      S_OK);
  answer(L"Count", [](VARIANT& result) { result.vt = VT_I4, result.lVal = 3; });
  {
    const AutomationRef application = automation.start(kProgId);
    ASSERT_TRUE(application);
    int32_t value = 0;
    EXPECT_TRUE(automation.readInteger(application, u"Count", value));
    EXPECT_EQ(value, 3);
  }
  EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
}

// --- calls ---

TEST_F(AutomationWinTest, ArgumentsArriveReversedWithTheirTypes) {
  const AutomationRef application = connect();
  answer(L"Open", [](VARIANT&) {});
  EXPECT_EQ(automation.call(application, u"Open", DispatchKind::Method, nullptr,
                            {std::u16string(u"C:\\幻灯.pptx"), 0, 5, -1}),
            kAutomationOk);
  ASSERT_EQ(object.calls.size(), 1u);
  EXPECT_EQ(object.calls[0].arguments,
            (std::vector<std::wstring>{L"i4 -1", L"i4 5", L"i4 0", L"bstr C:\\幻灯.pptx"}));
  EXPECT_EQ(object.calls[0].namedArguments, 0u);
}

TEST_F(AutomationWinTest, EachKindOfDispatchArrivesAsItsFlags) {
  const AutomationRef application = connect();
  answer(L"Item", [](VARIANT&) {});
  for (const DispatchKind kind :
       {DispatchKind::Method, DispatchKind::Get, DispatchKind::MethodOrGet}) {
    EXPECT_EQ(automation.call(application, u"Item", kind, nullptr, {}), kAutomationOk);
  }
  ASSERT_EQ(object.calls.size(), 3u);
  EXPECT_EQ(object.calls[0].flags, 1);
  EXPECT_EQ(object.calls[1].flags, 2);
  EXPECT_EQ(object.calls[2].flags, 3);
}

TEST_F(AutomationWinTest, NamesAndCallsGoInTheUsersLocale) {
  const AutomationRef application = connect();
  answer(L"Name", [](VARIANT&) {});
  EXPECT_EQ(automation.call(application, u"Name", DispatchKind::Get, nullptr, {}), kAutomationOk);
  EXPECT_EQ(object.lookupLocale, 1024u);
  EXPECT_EQ(object.calls.at(0).locale, 1024u);
}

TEST_F(AutomationWinTest, AResultIsAskedForOnlyWhenSomebodyWantsIt) {
  const AutomationRef application = connect();
  answer(L"Next", [](VARIANT&) {});
  AutomationValue value;
  EXPECT_EQ(automation.call(application, u"Next", DispatchKind::Method, nullptr, {}), 0);
  EXPECT_EQ(automation.call(application, u"Next", DispatchKind::Method, &value, {}), 0);
  EXPECT_FALSE(object.calls.at(0).wantsResult);
  EXPECT_TRUE(object.calls.at(1).wantsResult);
}

TEST_F(AutomationWinTest, AnUnknownNameFailsWithoutACall) {
  const AutomationRef application = connect();
  EXPECT_EQ(automation.call(application, u"NoSuchMember", DispatchKind::Get, nullptr, {}),
            DISP_E_UNKNOWNNAME);
  int32_t value = 7;
  EXPECT_FALSE(automation.readInteger(application, u"NoSuchMember", value));
  EXPECT_EQ(value, 7);
  EXPECT_TRUE(object.calls.empty());
}

TEST_F(AutomationWinTest, AFailedCallGivesItsResultAndNoValue) {
  const AutomationRef application = connect();
  object.members[L"Next"] = [](VARIANT* result, EXCEPINFO*) {
    if (result) putText(*result, L"nonsense");
    return E_ACCESSDENIED;
  };
  AutomationValue value;
  EXPECT_EQ(automation.call(application, u"Next", DispatchKind::Get, &value, {}), E_ACCESSDENIED);
  EXPECT_TRUE(std::holds_alternative<std::monostate>(value));
  int32_t number = 7;
  EXPECT_FALSE(automation.readInteger(application, u"Next", number));
  EXPECT_EQ(number, 7);
}

TEST_F(AutomationWinTest, ASuccessThatIsNotPlainIsHandedOn) {
  const AutomationRef application = connect();
  object.members[L"Next"] = [](VARIANT*, EXCEPINFO*) { return S_FALSE; };
  EXPECT_EQ(automation.call(application, u"Next", DispatchKind::Method, nullptr, {}), S_FALSE);
}

TEST_F(AutomationWinTest, AnExceptionWithTextsIsAFailureLikeAnyOther) {
  const AutomationRef application = connect();
  object.members[L"Next"] = [](VARIANT*, EXCEPINFO* exception) {
    // A fresh record, so that what stands in it can only be this call's.
    EXPECT_EQ(exception->bstrSource, nullptr);
    EXPECT_EQ(exception->bstrDescription, nullptr);
    EXPECT_EQ(exception->bstrHelpFile, nullptr);
    EXPECT_EQ(exception->wCode, 0);
    exception->bstrSource = SysAllocString(L"source");
    exception->bstrDescription = SysAllocString(L"description");
    exception->bstrHelpFile = SysAllocString(L"help");
    return DISP_E_EXCEPTION;
  };
  EXPECT_EQ(automation.call(application, u"Next", DispatchKind::Method, nullptr, {}),
            DISP_E_EXCEPTION);
}

// --- results ---

TEST_F(AutomationWinTest, ATextResultIsAText) {
  EXPECT_EQ(valueOf([](VARIANT& result) { putText(result, L"C:\\幻灯.pptx"); }),
            AutomationValue(u"C:\\幻灯.pptx"));
}

TEST_F(AutomationWinTest, ANullTextIsAnEmptyText) {
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_BSTR, result.bstrVal = nullptr; }),
            AutomationValue(u""));
}

TEST_F(AutomationWinTest, ANullObjectIsNothing) {
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_DISPATCH, result.pdispVal = nullptr; }),
            AutomationValue());
}

TEST_F(AutomationWinTest, WhatIsNeitherTextNorObjectIsNothing) {
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_I4, result.lVal = 5; }),
            AutomationValue());
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_NULL; }), AutomationValue());
  EXPECT_EQ(valueOf([this](VARIANT& result) {
              object.AddRef();
              result.vt = VT_UNKNOWN, result.punkVal = &object;
            }),
            AutomationValue());
}

TEST_F(AutomationWinTest, AnObjectResultCanBeCalledAndIsGivenUp) {
  TestDispatch slide;
  slide.members[L"SlideIndex"] = [](VARIANT* result, EXCEPINFO*) {
    result->vt = VT_I4, result->lVal = 12;
    return S_OK;
  };
  {
    const AutomationRef application = connect();
    answer(L"Slide", [&](VARIANT& result) {
      slide.AddRef();
      result.vt = VT_DISPATCH, result.pdispVal = &slide;
    });
    AutomationValue value;
    EXPECT_EQ(automation.call(application, u"Slide", DispatchKind::Get, &value, {}), 0);
    int32_t number = 0;
    EXPECT_TRUE(automation.readInteger(std::get<AutomationRef>(value), u"SlideIndex", number));
    EXPECT_EQ(number, 12);
    EXPECT_EQ(slide.references, 1u);
  }
  EXPECT_EQ(slide.references, 0u);
}

// --- integers ---

TEST_F(AutomationWinTest, AnIntegerIsReadByPropertyGet) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I4, result.lVal = -5; }), -5);
  EXPECT_EQ(object.calls.at(0).flags, DISPATCH_PROPERTYGET);
  EXPECT_TRUE(object.calls.at(0).arguments.empty());
}

TEST_F(AutomationWinTest, OtherKindsOfNumbersAreConverted) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I2, result.iVal = 300; }), 300);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_UI1, result.bVal = 200; }), 200);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I8, result.llVal = 70000; }), 70000);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_R8, result.dblVal = 6.9; }), 7);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_BOOL, result.boolVal = VARIANT_TRUE; }),
            -1);
}

TEST_F(AutomationWinTest, ATextOfDigitsIsConverted) {
  EXPECT_EQ(integerOf([](VARIANT& result) { putText(result, L"42"); }), 42);
}

TEST_F(AutomationWinTest, NothingAtAllIsZero) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_EMPTY; }), 0);
}

TEST_F(AutomationWinTest, WhatIsNoNumberCanNotBeReadAsOne) {
  EXPECT_EQ(integerOf([](VARIANT& result) { putText(result, L"many"); }), -77);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_NULL; }), -77);
}

TEST_F(AutomationWinTest, ANumberBeyond32BitsCanNotBeRead) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I8, result.llVal = 0x100000000; }), -77);
}

TEST_F(AutomationWinTest, AHandleWithItsTopBitSetComesThroughNegativeAndIsNoWindow) {
  const AutomationRef show = connect();
  answer(L"HWND",
         [](VARIANT& result) { result.vt = VT_I4, result.lVal = static_cast<LONG>(0x80000004); });
  WindowSystemWin windows;
  FilesFake files;
  const PresentationAccess access{automation, windows, files};
  EXPECT_EQ(getInt(access, show, u"HWND"), -2147483644);
  EXPECT_FALSE(showWindowHandle(access, show, u""));
}

}  // namespace
}  // namespace mrl
