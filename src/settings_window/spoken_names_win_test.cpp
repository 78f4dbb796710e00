// The names as the system is told them: a class of the tests stands for its service.
#include "settings_window/spoken_names_win.h"

#include <gtest/gtest.h>
#include <objbase.h>
// After <objbase.h>, which it leans on.
#include <oleacc.h>

#include <string>

#include "core/wide_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"

namespace mrl {
namespace {

/// The service and its factory in one; lives on the stack, so nobody's count ends it.
class NameService : public IAccPropServices, public IClassFactory {
 public:
  std::map<HWND, std::wstring> names;
  HRESULT answer = S_OK;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** result) override {
    *result = nullptr;
    if (wanted == IID_IAccPropServices) *result = static_cast<IAccPropServices*>(this);
    if (wanted == IID_IUnknown || wanted == IID_IClassFactory) {
      *result = static_cast<IClassFactory*>(this);
    }
    return *result != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** result) override {
    return QueryInterface(wanted, result);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID what,
                                           LPCWSTR text) override {
    if (object == DWORD(OBJID_CLIENT) && child == CHILDID_SELF && what == PROPID_ACC_NAME) {
      names[window] = text;
    }
    return answer;
  }
  HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD object, DWORD child,
                                           const MSAAPROPID* what, int count) override {
    if (object == DWORD(OBJID_CLIENT) && child == CHILDID_SELF && count == 1 &&
        *what == PROPID_ACC_NAME) {
      names.erase(window);
    }
    return answer;
  }

  // Nobody calls these.
  HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int,
                                          IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int,
                                              IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*,
                                                        DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int,
                                               IAccPropServer*, AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*,
                                                         DWORD*) override {
    return E_NOTIMPL;
  }
};

class SpokenNamesTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    ASSERT_EQ(CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(&service),
                                    CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              S_OK);
    for (const Control& row : allControls()) {
      controls[row.id] = CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                         GetModuleHandleW(nullptr), nullptr);
    }
  }
  void TearDown() override {
    for (const auto& [id, control] : controls) DestroyWindow(control);
    CoRevokeClassObject(cookie);
    CoUninitialize();
  }

  NameService service;
  std::map<int, HWND> controls;
  DWORD cookie = 0;
};

TEST_F(SpokenNamesTest, TheSystemIsToldEachOfThem) {
  giveSpokenNames(controls);
  EXPECT_EQ(service.names.size(), spokenNames().size());
  for (const SpokenName& spoken : spokenNames()) {
    EXPECT_EQ(service.names[controls[spoken.id]], wideFrom(spoken.name));
  }
}

TEST_F(SpokenNamesTest, AllAreTakenBack) {
  giveSpokenNames(controls);
  takeSpokenNamesBack(controls);
  EXPECT_TRUE(service.names.empty());
}

TEST_F(SpokenNamesTest, AControlThatWasNeverMadeGetsNone) {
  giveSpokenNames({{kModeCombo, controls[kModeCombo]}});
  EXPECT_EQ(service.names.size(), 1u);
}

TEST_F(SpokenNamesTest, ARefusalOfOneDoesNotKeepTheOthersFromTheirs) {
  service.answer = E_FAIL;
  giveSpokenNames(controls);
  EXPECT_EQ(service.names.size(), spokenNames().size());
}

TEST_F(SpokenNamesTest, WithoutTheServiceNothingHappens) {
  CoUninitialize();
  giveSpokenNames(controls);
  takeSpokenNamesBack(controls);
  EXPECT_TRUE(service.names.empty());
  ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
}

}  // namespace
}  // namespace mrl
