#include "com/registration.h"

#include "ado/variant.h"
#include "com/class_table.h"
#include "com/kodrarpt_h.h"
#include "com/module.h"
#include "values/upper.h"

// In every Windows since Vista, and missing in mingw-w64's headers.
extern "C" {
WINOLEAUTAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
WINOLEAUTAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale, SYSKIND system);
}

namespace kodra::com {
namespace {

using ado::com_ptr;

constexpr std::wstring_view kClassesRoot = L"Software\\Classes\\";
constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

// Below the id of a type library: where the file of its version 1.0 in any language is named.
constexpr const wchar_t* kLibraryFile = sizeof(void*) == 8 ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32";

HKEY RootOf(Scope scope) { return scope == Scope::kThisUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

std::wstring GuidText(REFGUID id) {
  wchar_t text[39];
  StringFromGUID2(id, text, 39);
  return text;
}

std::wstring ClassKey(const PublicClass& publicClass) { return L"CLSID\\" + GuidText(publicClass.id); }

void Raise(HRESULT hr) { throw ado::ErrorOf(hr, nullptr, IID_NULL); }

void CheckWin32(LSTATUS status) {
  if (status != ERROR_SUCCESS) Raise(HRESULT_FROM_WIN32(status));
}

void Write(HKEY root, const RegistryRow& row) {
  const std::wstring path = std::wstring(kClassesRoot) + row.key;
  HKEY key = nullptr;
  CheckWin32(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr));
  const auto size = static_cast<DWORD>((row.value.size() + 1) * sizeof(wchar_t));
  const LSTATUS status = RegSetValueExW(key, row.name.empty() ? nullptr : row.name.c_str(), 0, REG_SZ,
                                        reinterpret_cast<const BYTE*>(row.value.c_str()), size);
  RegCloseKey(key);
  CheckWin32(status);
}

void Delete(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, (std::wstring(kClassesRoot) + key).c_str());
  if (status != ERROR_FILE_NOT_FOUND) CheckWin32(status);
}

// The default value of a key; the empty text for an absent one.
std::wstring DefaultValue(HKEY root, const std::wstring& key) {
  const std::wstring path = std::wstring(kClassesRoot) + key;
  std::wstring value(32768, L'\0');  // longer than any path
  auto bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
  if (RegGetValueW(root, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &bytes) != ERROR_SUCCESS)
    return {};
  return value.c_str();
}

// A path without the short names that some installers write; as it is when there is no such file.
std::wstring LongPath(const std::wstring& path) {
  std::wstring longPath(32768, L'\0');
  longPath.resize(GetLongPathNameW(path.c_str(), longPath.data(), static_cast<DWORD>(longPath.size())));
  return longPath.empty() ? path : longPath;
}

// Whether the default value of a key is the path of another file than this DLL: another copy is registered there.
bool NamesAnotherFile(HKEY root, const std::wstring& key) {
  const std::wstring registered = DefaultValue(root, key);
  return !registered.empty() && !values::EqualIgnoringCase(LongPath(registered), LongPath(ModulePath()));
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

void RegisterModule(Scope scope) {
  std::wstring path = ModulePath();
  for (const RegistryRow& row : RegistryRows(path)) Write(RootOf(scope), row);
  com_ptr<ITypeLib> library;
  HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put());
  const auto registerLibrary = scope == Scope::kThisUser ? RegisterTypeLibForUser : RegisterTypeLib;
  // With its backslash, as an installer writes a folder.
  std::wstring folder = path.substr(0, path.rfind(L'\\') + 1);
  if (SUCCEEDED(hr)) hr = registerLibrary(library.get(), path.data(), folder.data());
  if (FAILED(hr)) Raise(hr);
}

void UnregisterModule(Scope scope) {
  const HKEY root = RootOf(scope);
  for (const PublicClass& publicClass : PublicClasses()) {
    if (NamesAnotherFile(root, ClassKey(publicClass) + L"\\InprocServer32")) continue;
    Delete(root, ProgId(publicClass));
    Delete(root, ClassKey(publicClass));
  }
  const std::wstring libraryFile = L"TypeLib\\" + GuidText(LIBID_KodraRpt) + kLibraryFile;
  // Where this user has no library of their own, taking it back may reach that of all users, as in Wine.
  const bool ownsLibrary = !DefaultValue(root, libraryFile).empty();
  if (NamesAnotherFile(ownsLibrary ? root : HKEY_LOCAL_MACHINE, libraryFile)) return;
  const auto unregisterLibrary = scope == Scope::kThisUser ? UnRegisterTypeLibForUser : UnRegisterTypeLib;
  const HRESULT hr = unregisterLibrary(LIBID_KodraRpt, 1, 0, LOCALE_NEUTRAL, kSystem);
  // An absent library is TYPE_E_REGISTRYACCESS on Windows and E_INVALIDARG in Wine.
  if (FAILED(hr) && hr != TYPE_E_REGISTRYACCESS && hr != E_INVALIDARG) Raise(hr);
}

}  // namespace kodra::com
