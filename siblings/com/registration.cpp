#include "siblings/com/registration.h"

#include <olectl.h>

#include <string>

#include "siblings/com/dll_classes.h"

namespace kodra::siblings {
namespace {

const std::wstring kClasses = L"Software\\Classes\\";

std::wstring PathOf(HMODULE module) {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

// Writes a text under a key; an empty name is the key's own value.
bool Write(const std::wstring& key, const std::wstring& name, std::wstring_view value) {
  const std::wstring text(value);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str(), name.empty() ? nullptr : name.c_str(), REG_SZ,
                         text.c_str(), bytes) == ERROR_SUCCESS;
}

bool Remove(const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

}  // namespace

HRESULT RegisterClasses(HMODULE module) {
  const std::wstring path = PathOf(module);
  bool written = true;
  for (const SiblingClass& entry : DllClasses()) {
    const std::wstring progId(entry.progId);
    const std::wstring classKey = L"CLSID\\" + std::wstring(entry.clsid);
    written = written && Write(progId, L"", progId) && Write(progId + L"\\CLSID", L"", entry.clsid) &&
              Write(classKey, L"", progId) && Write(classKey + L"\\ProgID", L"", progId) &&
              Write(classKey + L"\\InprocServer32", L"", path) &&
              Write(classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  }
  return written ? S_OK : SELFREG_E_CLASS;
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
