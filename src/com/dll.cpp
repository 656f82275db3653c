// The DLL's entry points.
#include <algorithm>

#include "com/class_table.h"
#include "com/library_threads.h"
#include "com/registration.h"
#include "comkit/class_factory.h"

using kodra::com::Scope;
using kodra::comkit::AtBoundary;

namespace __gnu_cxx {
// A function of the C++ library: frees the memory that it reserves for exceptions when no other is left.
void __freeres();  // NOLINT(bugprone-reserved-identifier)
}  // namespace __gnu_cxx

// When the DLL is unloaded before the process ends, it frees what the C++ library would otherwise keep.
BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
  if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) {
    kodra::com::ReleaseThreadValues();
    __gnu_cxx::__freeres();
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto classes = kodra::com::PublicClasses();
  const auto found = std::find_if(classes.begin(), classes.end(), [&](const auto& c) { return c.id == classId; });
  if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  const auto make = [create = found->create] { return kodra::comkit::com_ptr<IUnknown>::adopt(create()); };
  return kodra::comkit::CreateFactory(make, iid, object);
}

STDAPI DllCanUnloadNow() { return kodra::comkit::ModuleInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  return AtBoundary(IID_IUnknown, [] { kodra::com::RegisterModule(Scope::kAllUsers); });
}

STDAPI DllUnregisterServer() {
  return AtBoundary(IID_IUnknown, [] { kodra::com::UnregisterModule(Scope::kAllUsers); });
}

// `regsvr32 /n /i:user` calls this. Without "user" it registers the component for all users.
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
