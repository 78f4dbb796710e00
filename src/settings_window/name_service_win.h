// A fake of the system's service for the accessible names of controls. Tests only.
#pragma once

#include <windows.h>
// Must come after <windows.h>.
#include <objbase.h>
#include <oleacc.h>

#include <map>
#include <string>

namespace mrl {

/// The service and its class factory in one. Not reference-counted: the test owns it.
class NameService : public IAccPropServices, public IClassFactory {
 public:
  std::map<HWND, std::wstring> names;
  HRESULT answer = S_OK;

  /// While it lives, this thread gets it instead of the system's.
  NameService() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    registered =
        SUCCEEDED(CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this),
                                        CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
  }
  ~NameService() {
    CoRevokeClassObject(cookie);
    CoUninitialize();
  }
  NameService(const NameService&) = delete;
  NameService& operator=(const NameService&) = delete;

  bool registered = false;

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

  // Not called.
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

 private:
  DWORD cookie = 0;
};

}  // namespace mrl
