#include "siblings/com/registration.h"

#include <olectl.h>

#include <string>

#include "comkit/module.h"
#include "comkit/registry.h"
#include "siblings/com/dll_classes.h"

namespace kodra::siblings {
namespace {

bool Remove(const std::wstring& key) { return comkit::DeleteKey(HKEY_LOCAL_MACHINE, key) == ERROR_SUCCESS; }

}  // namespace

HRESULT RegisterClasses() {
  const std::wstring path = comkit::ModulePath();
  for (const SiblingClass& entry : DllClasses())
    for (const auto& row : comkit::ClassRows(std::wstring(entry.progId), std::wstring(entry.clsid), path))
      if (comkit::WriteRow(HKEY_LOCAL_MACHINE, row) != ERROR_SUCCESS) return SELFREG_E_CLASS;
  return S_OK;
}

HRESULT UnregisterClasses() {
  bool removed = true;
  for (const SiblingClass& entry : DllClasses()) {
    removed = Remove(std::wstring(entry.progId)) && removed;
    removed = Remove(L"CLSID\\" + std::wstring(entry.clsid)) && removed;
  }
  return removed ? S_OK : SELFREG_E_CLASS;
}

}  // namespace kodra::siblings
