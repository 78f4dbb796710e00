#include "presentation/automation_win.h"

#include <windows.h>

#include <psapi.h>

#include "base/replaced_import_win.h"
#include "presentation/automation_place_win.inc"
#include "presentation/show_poll.h"
#include "settings/files_win.h"

namespace mrl {
namespace {

// --- reaching an application ---

TEST_F(AutomationWinTest, ARunningApplicationIsFoundByItsProgId) { EXPECT_TRUE(connect()); }

TEST_F(AutomationWinTest, AnApplicationThatDoesNotRunIsNotFound) { EXPECT_FALSE(running(kProgId)); }

TEST_F(AutomationWinTest, AProgIdThatIsNotRegisteredIsNotFound) {
  enroll();
  EXPECT_FALSE(running(u"Marlune.Test.NoSuchApplication"));
  EXPECT_FALSE(running(u""));
}

int looksAtTheDesktop = 0;

BOOL WINAPI countLook(WNDENUMPROC, LPARAM) {
  ++looksAtTheDesktop;
  return TRUE;
}

TEST_F(AutomationWinTest, APollThatFindsNothingLooksAtTheDesktopOnce) {
  const ReplacedImport<decltype(countLook)> noWindows("EnumWindows", countLook);
  WindowSystemWin windows;
  FilesWin files;
  AutomationState state;
  looksAtTheDesktop = 0;
  EXPECT_FALSE(pollShowStatus({automation, windows, files}, state).running);
  EXPECT_EQ(looksAtTheDesktop, 1);
}

TEST_F(AutomationWinTest, AnApplicationWithoutDispatchIsNotFound) {
  enroll();
  object.deniesDispatch = true;
  EXPECT_FALSE(running(kProgId));
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

/// Returns the test's object whenever COM asks for one in `context`.
class Factory : public IClassFactory {
 public:
  Factory(TestDispatch& objectIn, DWORD context) : object(objectIn) {
    EXPECT_EQ(CoRegisterClassObject(kClassId, this, context, REGCLS_MULTIPLEUSE, &cookie), S_OK);
  }
  Factory(const Factory&) = delete;
  virtual ~Factory() { EXPECT_EQ(CoRevokeClassObject(cookie), S_OK); }

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

 private:
  TestDispatch& object;
  DWORD cookie = 0;
};

// A factory in this process, registered as a local server, acts as the program that COM starts.
TEST_F(AutomationWinTest, AnApplicationStartsThroughItsFactory) {
  const Factory factory(object, CLSCTX_LOCAL_SERVER);
  answer(L"Count", [](VARIANT& result) { result.vt = VT_I4, result.lVal = 3; });
  const AutomationRef application = automation.start(kProgId);
  ASSERT_TRUE(application);
  int32_t value = 0;
  EXPECT_TRUE(automation.readInteger(application, u"Count", value));
  EXPECT_EQ(value, 3);
}

TEST_F(AutomationWinTest, AnApplicationStartsOnlyAsAProgramOfItsOwn) {
  const Factory factory(object, CLSCTX_INPROC_SERVER);
  EXPECT_FALSE(automation.start(kProgId));
}

// --- calls ---

TEST_F(AutomationWinTest, AnObjectThatIsGivenUpDuringItsOwnCallOutlivesIt) {
  AutomationRef application = connect();
  answer(L"Count", [](VARIANT& result) { result.vt = VT_I4, result.lVal = 3; });
  const ULONG held = object.references;
  object.onLookup = [&] {
    application = nullptr;
    EXPECT_EQ(object.references, held);
  };
  EXPECT_EQ(automation.call(application, u"Count", DispatchKind::Get, nullptr, {}), kAutomationOk);
  EXPECT_EQ(object.references, held - 1);

  retire();
  application = connect();
  int32_t value = 0;
  EXPECT_TRUE(automation.readInteger(application, u"Count", value));
  EXPECT_EQ(value, 3);
}

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
    // The record must be fresh, so that anything found in it afterwards is from this call.
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

/// Memory committed by this process.
uint64_t memoryInUse() {
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

// Otherwise a program that fails in every poll would use up the memory over a day.
TEST_F(AutomationWinTest, TheTextsOfAnExceptionAreFreed) {
  constexpr uint64_t kTextBytes = 4'000'000;
  const AutomationRef application = connect();
  for (BSTR EXCEPINFO::*text :
       {&EXCEPINFO::bstrSource, &EXCEPINFO::bstrDescription, &EXCEPINFO::bstrHelpFile}) {
    object.members[L"Next"] = [text](VARIANT*, EXCEPINFO* exception) {
      const std::wstring words(kTextBytes / sizeof(wchar_t), L'x');
      exception->*text = SysAllocString(words.c_str());
      return DISP_E_EXCEPTION;
    };
    const uint64_t before = memoryInUse();
    for (int times = 0; times < 20; ++times) {
      EXPECT_EQ(automation.call(application, u"Next", DispatchKind::Method, nullptr, {}),
                DISP_E_EXCEPTION);
    }
    EXPECT_LT(memoryInUse(), before + 5 * kTextBytes);
  }
}

}  // namespace
}  // namespace mrl
