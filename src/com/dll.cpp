// The DLL's entry points.
#include <algorithm>

#include "com/boundary.h"
#include "com/class_factory.h"
#include "com/registration.h"

using kodra::com::AtBoundary;
using kodra::com::Scope;

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto classes = kodra::com::PublicClasses();
  const auto found = std::find_if(classes.begin(), classes.end(), [&](const auto& c) { return c.id == classId; });
  if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  HRESULT result = E_FAIL;
  const HRESULT hr = AtBoundary(IID_IUnknown, [&] {
    using kodra::com::ClassFactory;
    result = kodra::ado::com_ptr<ClassFactory>::adopt(new ClassFactory(*found))->QueryInterface(iid, object);
  });
  return FAILED(hr) ? hr : result;
}

STDAPI DllCanUnloadNow() { return kodra::com::ModuleInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  return AtBoundary(IID_IUnknown, [] { kodra::com::RegisterModule(Scope::kAllUsers); });
}

STDAPI DllUnregisterServer() {
  return AtBoundary(IID_IUnknown, [] { kodra::com::UnregisterModule(Scope::kAllUsers); });
}

// What `regsvr32 /n /i:user` calls, and without "user" the registration of all users.
STDAPI DllInstall(BOOL install, PCWSTR commandLine) {
  Scope scope = Scope::kAllUsers;
  if (commandLine != nullptr && *commandLine != L'\0') {
    if (lstrcmpiW(commandLine, L"user") != 0) return E_INVALIDARG;
    scope = Scope::kThisUser;
  }
  return AtBoundary(IID_IUnknown, [&] {
    if (install != FALSE)
      kodra::com::RegisterModule(scope);
    else
      kodra::com::UnregisterModule(scope);
  });
}
