// kodra_siblings.dll: the sibling components as an in-process server for late-bound clients.
#include "comkit/class_factory.h"
#include "odbc/engine/surroundings.h"
#include "siblings/com/dispatch_face.h"
#include "siblings/com/dll_classes.h"
#include "siblings/com/registration.h"

namespace kodra::siblings {
namespace {

// The surroundings in which the siblings read data. Made on first use, never destroyed: objects may outlive every other
// static.
platform::Surroundings& Machine() {
  static auto* machine = new odbc::Surroundings;
  return *machine;
}

}  // namespace
}  // namespace kodra::siblings

// The error of a sibling is returned as EXCEPINFO; besides that, only memory can run out.
HRESULT kodra::comkit::CurrentHresult(REFIID) noexcept { return E_OUTOFMEMORY; }

// NOLINTNEXTLINE(misc-unused-parameters): the system passes all three.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(instance);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) try {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  for (const auto& entry : kodra::siblings::DllClasses()) {
    CLSID known;
    if (FAILED(CLSIDFromString(std::wstring(entry.clsid).c_str(), &known)) || !IsEqualCLSID(known, clsid)) continue;
    const auto make = [&entry] {
      return kodra::siblings::DispatchFace::Make(entry.create(kodra::siblings::Machine()));
    };
    return kodra::comkit::CreateFactory(make, iid, out);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
} catch (...) {
  return E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() { return kodra::comkit::ModuleInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() try { return kodra::siblings::RegisterClasses(); } catch (...) {
  return E_OUTOFMEMORY;
}

STDAPI DllUnregisterServer() try { return kodra::siblings::UnregisterClasses(); } catch (...) {
  return E_OUTOFMEMORY;
}
