// Registration in the registry, the running object table and as class objects.
#include "standin/server.h"

#include "standin/dispatch.h"
#include "standin/stand_in.h"

namespace mrl::standin {
namespace {

using Microsoft::WRL::ComPtr;

struct ClassRow {
  const wchar_t* progId;
  const wchar_t* classId;
};

constexpr ClassRow kClasses[] = {
    {L"PowerPoint.Application", L"{4119CC63-7047-4CF3-82F5-38D76110EF8A}"},
    {L"KWPP.Application", L"{A4E7F9FF-24CF-4294-8FD8-EC8EC67AA4E0}"},
    {L"WPP.Application", L"{E70AAE7E-72F8-4BA0-8A54-5641DA5EB712}"},
};

const ClassRow* classOf(const std::wstring& progId) {
  for (const ClassRow& row : kClasses)
    if (progId == row.progId) return &row;
  return nullptr;
}

// Machine-wide: Wine's COM ignores per-user classes.
bool writeDefault(const std::wstring& key, const std::wstring& value) {
  return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

/// There is only one application, so every request for a new one returns it.
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
  // The process ends only on command.
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
    const std::wstring classKey = std::wstring(L"CLSID\\") + row->classId;
    if (!writeDefault(progId + L"\\CLSID", row->classId) ||
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
    RegDeleteTreeW(HKEY_CLASSES_ROOT, progId.c_str());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, (std::wstring(L"CLSID\\") + row->classId).c_str());
  }
}

bool Server::announce(StandIn& standIn) {
  withdraw();
  application = dispatchObject(standIn, ObjectRef{ObjectKind::Application});
  return list(standIn.options);
}

bool Server::list(const Options& options) {
  unlist();
  if (!application || options.unlisted) return true;
  ComPtr<IClassFactory> factory;
  factory.Attach(new Factory(application));
  for (const std::wstring& progId : options.progIds) {
    const ClassRow* row = classOf(progId);
    CLSID id;
    if (!row || FAILED(CLSIDFromString(row->classId, &id))) return false;
    DWORD handle = 0;
    // Strong, so that the object stays registered while nobody holds a reference.
    if (FAILED(RegisterActiveObject(application.Get(), id, ACTIVEOBJECT_STRONG, &handle)))
      return false;
    activeObjects.push_back(handle);
    if (FAILED(CoRegisterClassObject(id, factory.Get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                     &handle)))
      return false;
    classObjects.push_back(handle);
  }
  return true;
}

void Server::unlist() {
  for (const DWORD handle : activeObjects) RevokeActiveObject(handle, nullptr);
  activeObjects.clear();
  revokeClassObjects();
}

void Server::withdraw() {
  unlist();
  if (application) CoDisconnectObject(application.Get(), 0);
  application.Reset();
}

void Server::crash() {
  // Windows drops the class objects of dead processes. Wine keeps returning them, even after a
  // restart of the program, so revoke them first.
  revokeClassObjects();
  TerminateProcess(GetCurrentProcess(), 1);
}

void Server::revokeClassObjects() {
  for (const DWORD handle : classObjects) CoRevokeClassObject(handle);
  classObjects.clear();
}

}  // namespace mrl::standin
