// The DLL's entry points: the class objects of ADODB, and their registration.
#include <array>
#include <atomic>

#include "odbc/adodb/command_object.h"
#include "odbc/adodb/connection_object.h"
#include "odbc/adodb/parameter_objects.h"
#include "odbc/adodb/recordset_object.h"
#include "odbc/adodb/registration.h"

namespace kodra::adodb {
namespace {

struct ClassEntry {
  CLSID id;
  const wchar_t* progId;
  com_ptr<IDispatch> (*make)();
};

template <class Object>
com_ptr<IDispatch> MakeDispatch() {
  return com_ptr<IDispatch>(Make<Object>().get());
}

const std::array<ClassEntry, 4> kClasses{{
    {__uuidof(::Connection), L"ADODB.Connection", MakeDispatch<ConnectionObject>},
    {__uuidof(::Command), L"ADODB.Command", MakeDispatch<CommandObject>},
    {__uuidof(::Recordset), L"ADODB.Recordset", MakeDispatch<RecordsetObject>},
    {__uuidof(::Parameter), L"ADODB.Parameter", MakeDispatch<ParameterObject>},
}};

class Factory final : public IClassFactory {
 public:
  explicit Factory(const ClassEntry& entry) : entry_(entry) {}
  virtual ~Factory() = default;

  HRESULT __stdcall QueryInterface(REFIID id, void** out) noexcept override {
    if (out == nullptr) return E_POINTER;
    *out = id == IID_IUnknown || id == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG __stdcall AddRef() noexcept override { return ++references_; }
  ULONG __stdcall Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT __stdcall CreateInstance(IUnknown* outer, REFIID id, void** out) noexcept override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    com_ptr<IDispatch> object;
    const HRESULT made = Guarded<IClassFactory>([&] { object = entry_.make(); });
    return FAILED(made) ? made : object->QueryInterface(id, out);
  }
  HRESULT __stdcall LockServer(BOOL lock) noexcept override {
    if (lock) {
      locks_ += 1;
      AddRef();
    } else if (locks_ > 0) {
      locks_ -= 1;
      Release();
    }
    return S_OK;
  }

 private:
  const ClassEntry& entry_;
  std::atomic<ULONG> references_{0};
  std::atomic<long> locks_{0};
  ModuleReference module_;
};

template <class Step>
HRESULT ForEachClass(const Step& step) noexcept {
  HRESULT first = S_OK;
  for (const ClassEntry& entry : kClasses) {
    HRESULT result = S_OK;
    const HRESULT guarded = Guarded<IUnknown>([&] { result = step(entry); });
    if (FAILED(guarded)) result = guarded;
    if (FAILED(result) && SUCCEEDED(first)) first = result;
  }
  return first;
}

}  // namespace
}  // namespace kodra::adodb

using namespace kodra::adodb;  // the entry points below are C functions, which are in no namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(module);
    SetModule(module);
  }
  return TRUE;
}

extern "C" HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, LPVOID* out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  for (const ClassEntry& entry : kClasses) {
    if (entry.id != classId) continue;
    com_ptr<IClassFactory> factory;
    const HRESULT made = Guarded<IClassFactory>([&] { factory = com_ptr<IClassFactory>(new Factory(entry)); });
    return FAILED(made) ? made : factory->QueryInterface(interfaceId, out);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" HRESULT WINAPI DllCanUnloadNow() { return ModuleInUse() ? S_FALSE : S_OK; }

extern "C" HRESULT WINAPI DllRegisterServer() {
  return ForEachClass([](const ClassEntry& entry) { return RegisterAdoClass(entry.id, entry.progId, ModulePath()); });
}

extern "C" HRESULT WINAPI DllUnregisterServer() {
  return ForEachClass([](const ClassEntry& entry) { return UnregisterAdoClass(entry.id, entry.progId); });
}
