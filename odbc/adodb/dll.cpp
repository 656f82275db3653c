// The DLL's entry points: the class objects of ADODB, and their registration.
#include <array>

#include "comkit/class_factory.h"
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
  if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(module);
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, LPVOID* out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  for (const ClassEntry& entry : kClasses) {
    if (entry.id != classId) continue;
    return kodra::comkit::CreateFactory(entry.make, interfaceId, out);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return kodra::comkit::ModuleInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  return ForEachClass(
      [](const ClassEntry& entry) { return RegisterAdoClass(entry.id, entry.progId, kodra::comkit::ModulePath()); });
}

STDAPI DllUnregisterServer() {
  return ForEachClass([](const ClassEntry& entry) { return UnregisterAdoClass(entry.id, entry.progId); });
}
