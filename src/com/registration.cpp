#include "com/registration.h"

#include "com/class_table.h"
#include "com/kodrarpt_h.h"
#include "com/module.h"
#include "platform/windows/variant.h"

namespace kodra::com {
namespace {

using platform::windows::com_ptr;

constexpr std::wstring_view kClassesRoot = L"Software\\Classes\\";

std::wstring GuidText(REFGUID id) {
  wchar_t text[39];
  StringFromGUID2(id, text, 39);
  return text;
}

std::wstring ClassKey(const PublicClass& publicClass) { return L"CLSID\\" + GuidText(publicClass.id); }

void Raise(HRESULT hr) { throw platform::windows::ErrorOf(hr, nullptr, IID_NULL); }

void CheckWin32(LSTATUS status) {
  if (status != ERROR_SUCCESS) Raise(HRESULT_FROM_WIN32(status));
}

void Write(const RegistryRow& row) {
  const std::wstring path = std::wstring(kClassesRoot) + row.key;
  HKEY key = nullptr;
  CheckWin32(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr));
  const auto size = static_cast<DWORD>((row.value.size() + 1) * sizeof(wchar_t));
  const LSTATUS status = RegSetValueExW(key, row.name.empty() ? nullptr : row.name.c_str(), 0, REG_SZ,
                                        reinterpret_cast<const BYTE*>(row.value.c_str()), size);
  RegCloseKey(key);
  CheckWin32(status);
}

}  // namespace

std::vector<RegistryRow> RegistryRows(const std::wstring& modulePath) {
  std::vector<RegistryRow> rows;
  for (const PublicClass& publicClass : PublicClasses()) {
    const std::wstring progId = ProgId(publicClass);
    const std::wstring classKey = ClassKey(publicClass);
    rows.push_back({progId, L"", progId});
    rows.push_back({progId + L"\\CLSID", L"", GuidText(publicClass.id)});
    rows.push_back({classKey, L"", progId});
    rows.push_back({classKey + L"\\InprocServer32", L"", modulePath});
    rows.push_back({classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
    rows.push_back({classKey + L"\\ProgID", L"", progId});
    rows.push_back({classKey + L"\\TypeLib", L"", GuidText(LIBID_KodraRpt)});
    rows.push_back({classKey + L"\\Version", L"", L"1.0"});
  }
  return rows;
}

std::vector<std::wstring> RegistryKeys() {
  std::vector<std::wstring> keys;
  for (const PublicClass& publicClass : PublicClasses()) {
    keys.push_back(ProgId(publicClass));
    keys.push_back(ClassKey(publicClass));
  }
  return keys;
}

void RegisterModule() {
  const std::wstring path = ModulePath();
  for (const RegistryRow& row : RegistryRows(path)) Write(row);
  com_ptr<ITypeLib> library;
  HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put());
  if (SUCCEEDED(hr)) hr = RegisterTypeLib(library.get(), const_cast<wchar_t*>(path.c_str()), nullptr);
  if (FAILED(hr)) Raise(hr);
}

void UnregisterModule() {
  for (const std::wstring& key : RegistryKeys()) {
    const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (std::wstring(kClassesRoot) + key).c_str());
    if (status != ERROR_FILE_NOT_FOUND) CheckWin32(status);
  }
  const HRESULT hr = UnRegisterTypeLib(LIBID_KodraRpt, 1, 0, LOCALE_NEUTRAL, SYS_WIN32);
  // An absent library is TYPE_E_REGISTRYACCESS on Windows and E_INVALIDARG in Wine.
  if (FAILED(hr) && hr != TYPE_E_REGISTRYACCESS && hr != E_INVALIDARG) Raise(hr);
}

}  // namespace kodra::com
