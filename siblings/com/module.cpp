// kodra_siblings.dll: the sibling components as an in-process server for late-bound clients.
#include <windows.h>
// Needs the types above.
#include <objbase.h>

#include <atomic>

#include "odbc/engine/surroundings.h"
#include "siblings/com/dispatch_face.h"
#include "siblings/com/dll_classes.h"
#include "siblings/com/module_lock.h"
#include "siblings/com/registration.h"

namespace kodra::siblings {
namespace {

HMODULE module = nullptr;

// Where the siblings read data. Made on first use, never destroyed: objects may outlive every other static.
platform::Surroundings& Machine() {
  static auto* machine = new odbc::Surroundings;
  return *machine;
}

class Factory final : public IClassFactory {
 public:
  explicit Factory(const SiblingClass& entry) : entry_(entry) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IClassFactory)) return E_NOINTERFACE;
    *out = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** out) override try {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return DispatchFace::Make(entry_.create(Machine()))->QueryInterface(iid, out);
  } catch (...) {
    return E_OUTOFMEMORY;
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    ModuleLock::Add(lock ? 1 : -1);
    return S_OK;
  }

 private:
  ~Factory() = default;

  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
  const SiblingClass& entry_;
};

}  // namespace
}  // namespace kodra::siblings

// NOLINTNEXTLINE(misc-unused-parameters): the system gives all three.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    kodra::siblings::module = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) try {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  for (const auto& entry : kodra::siblings::DllClasses()) {
    CLSID known;
    if (FAILED(CLSIDFromString(std::wstring(entry.clsid).c_str(), &known)) || !IsEqualCLSID(known, clsid)) continue;
    auto* factory = new kodra::siblings::Factory(entry);
    const HRESULT hr = factory->QueryInterface(iid, out);
    factory->Release();
    return hr;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
} catch (...) {
  return E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() { return kodra::siblings::ModuleLock::Any() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() try { return kodra::siblings::RegisterClasses(kodra::siblings::module); } catch (...) {
  return E_OUTOFMEMORY;
}

STDAPI DllUnregisterServer() try { return kodra::siblings::UnregisterClasses(); } catch (...) {
  return E_OUTOFMEMORY;
}
