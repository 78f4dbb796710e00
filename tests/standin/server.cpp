// Registration in the registry, in the table of running objects and as a class object.
#include "standin/server.h"

#include "standin/dispatch.h"
#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

using Microsoft::WRL::ComPtr;

struct ClassRow {
  const wchar_t* progId;
  CLSID id;
  const wchar_t* text;  // the same, as the registry spells it
};

constexpr ClassRow kClasses[] = {
    {L"PowerPoint.Application",
     {0x4119cc63, 0x7047, 0x4cf3, {0x82, 0xf5, 0x38, 0xd7, 0x61, 0x10, 0xef, 0x8a}},
     L"{4119CC63-7047-4CF3-82F5-38D76110EF8A}"},
    {L"KWPP.Application",
     {0xa4e7f9ff, 0x24cf, 0x4294, {0x8f, 0xd8, 0xec, 0x8e, 0xc6, 0x7a, 0xa4, 0xe0}},
     L"{A4E7F9FF-24CF-4294-8FD8-EC8EC67AA4E0}"},
    {L"WPP.Application",
     {0xe70aae7e, 0x72f8, 0x4ba0, {0x8a, 0x54, 0x56, 0x41, 0xda, 0x5e, 0xb7, 0x12}},
     L"{E70AAE7E-72F8-4BA0-8A54-5641DA5EB712}"},
};

const ClassRow* classOf(const std::wstring& progId) {
  for (const ClassRow& row : kClasses)
    if (progId == row.progId) return &row;
  return nullptr;
}

const std::wstring kClassesKey = L"Software\\Classes\\";

bool writeDefault(const std::wstring& key, const std::wstring& value) {
  return RegSetKeyValueW(HKEY_CURRENT_USER, (kClassesKey + key).c_str(), nullptr, REG_SZ,
                         value.c_str(),
                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

/// There is one application, so every request for a new one gets that.
class Factory : public IClassFactory {
 public:
  explicit Factory(ComPtr<IDispatch> only) : application(std::move(only)) {}
  virtual ~Factory() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *out = known ? static_cast<IClassFactory*>(this) : nullptr;
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
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** out) override {
    *out = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return application->QueryInterface(id, out);
  }
  // The process ends when it is told to, never by itself.
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  const ComPtr<IDispatch> application;
  ULONG references = 1;
};

}  // namespace

bool registerProgIds(const std::vector<std::wstring>& progIds) {
  for (const std::wstring& progId : progIds) {
    const ClassRow* row = classOf(progId);
    if (!row) return false;
    const std::wstring server = L"\"" + imagePath() + L"\" --progid=" + progId;
    const std::wstring classKey = std::wstring(L"CLSID\\") + row->text;
    if (!writeDefault(progId + L"\\CLSID", row->text) ||
        !writeDefault(classKey + L"\\ProgID", progId) ||
        !writeDefault(classKey + L"\\LocalServer32", server))
      return false;
  }
  return true;
}

void unregisterProgIds(const std::vector<std::wstring>& progIds) {
  for (const std::wstring& progId : progIds) {
    const ClassRow* row = classOf(progId);
    if (!row) continue;
    RegDeleteTreeW(HKEY_CURRENT_USER, (kClassesKey + progId).c_str());
    RegDeleteTreeW(HKEY_CURRENT_USER, (kClassesKey + L"CLSID\\" + row->text).c_str());
  }
}

bool Server::announce(StandIn& standIn) {
  withdraw();
  application = dispatchObject(standIn, ObjectRef{ObjectKind::Application});
  ComPtr<IClassFactory> factory;
  factory.Attach(new Factory(application));
  for (const std::wstring& progId : standIn.options.progIds) {
    const ClassRow* row = classOf(progId);
    if (!row) return false;
    DWORD handle = 0;
    // Strong, so that the object stays reachable while nobody holds it.
    if (FAILED(RegisterActiveObject(application.Get(), row->id, ACTIVEOBJECT_STRONG, &handle)))
      return false;
    activeObjects.push_back(handle);
    if (FAILED(CoRegisterClassObject(row->id, factory.Get(), CLSCTX_LOCAL_SERVER,
                                     REGCLS_MULTIPLEUSE, &handle)))
      return false;
    classObjects.push_back(handle);
  }
  return true;
}

void Server::withdraw() {
  for (const DWORD handle : activeObjects) RevokeActiveObject(handle, nullptr);
  for (const DWORD handle : classObjects) CoRevokeClassObject(handle);
  activeObjects.clear();
  classObjects.clear();
  if (application) CoDisconnectObject(application.Get(), 0);
  application.Reset();
}

}  // namespace mrl::standin
