#include "com/registration.h"

#include "ado/variant.h"
#include "com/class_table.h"
#include "com/kodrarpt_h.h"
#include "comkit/com_ptr.h"
#include "comkit/module.h"
#include "comkit/registry.h"
#include "values/upper.h"

// Every Windows since Vista has these functions; mingw-w64's headers lack them.
extern "C" {
WINOLEAUTAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
WINOLEAUTAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale, SYSKIND system);
}

namespace kodra::com {
namespace {

using comkit::com_ptr;
using comkit::GuidText;
using comkit::RegistryRow;

constexpr SYSKIND kSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

// The key below the id of a type library that contains the path of its version 1.0 in any language.
constexpr const wchar_t* kLibraryFile = sizeof(void*) == 8 ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32";

HKEY RootOf(Scope scope) { return scope == Scope::kThisUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

std::wstring ClassKey(const PublicClass& publicClass) { return L"CLSID\\" + GuidText(publicClass.id); }

void Raise(HRESULT hr) { throw ado::ErrorOf(hr, nullptr, IID_NULL); }

void CheckWin32(LSTATUS status) {
  if (status != ERROR_SUCCESS) Raise(HRESULT_FROM_WIN32(status));
}

// A path without the short names that some installers write; unchanged when there is no such file.
std::wstring LongPath(const std::wstring& path) {
  std::wstring longPath(32768, L'\0');
  longPath.resize(GetLongPathNameW(path.c_str(), longPath.data(), static_cast<DWORD>(longPath.size())));
  return longPath.empty() ? path : longPath;
}

// Whether the default value of a key is the path of a file other than this DLL: another copy is registered there.
bool NamesAnotherFile(HKEY root, const std::wstring& key) {
  const std::wstring registered = comkit::ReadText(root, key, L"").value_or(L"");
  return !registered.empty() && !values::EqualIgnoringCase(LongPath(registered), LongPath(comkit::ModulePath()));
}

// The rows that register a DLL at `modulePath`. Automation writes the type library's own rows.
std::vector<RegistryRow> RegistryRows(const std::wstring& modulePath) {
  std::vector<RegistryRow> rows;
  for (const PublicClass& publicClass : PublicClasses()) {
    const std::wstring classKey = ClassKey(publicClass);
    for (RegistryRow& row : comkit::ClassRows(ProgId(publicClass), GuidText(publicClass.id), modulePath))
      rows.push_back(std::move(row));
    rows.push_back({classKey + L"\\TypeLib", L"", GuidText(LIBID_KodraRpt)});
    rows.push_back({classKey + L"\\Version", L"", L"1.0"});
  }
  return rows;
}

}  // namespace

void RegisterModule(Scope scope) {
  std::wstring path = comkit::ModulePath();
  for (const RegistryRow& row : RegistryRows(path)) CheckWin32(comkit::WriteRow(RootOf(scope), row));
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
    CheckWin32(comkit::DeleteKey(root, ProgId(publicClass)));
    CheckWin32(comkit::DeleteKey(root, ClassKey(publicClass)));
  }
  const std::wstring libraryFile = L"TypeLib\\" + GuidText(LIBID_KodraRpt) + kLibraryFile;
  // Where this user has no registration of the library, removing it may remove that of all users, as in Wine.
  const bool ownsLibrary = !comkit::ReadText(root, libraryFile, L"").value_or(L"").empty();
  if (NamesAnotherFile(ownsLibrary ? root : HKEY_LOCAL_MACHINE, libraryFile)) return;
  const auto unregisterLibrary = scope == Scope::kThisUser ? UnRegisterTypeLibForUser : UnRegisterTypeLib;
  const HRESULT hr = unregisterLibrary(LIBID_KodraRpt, 1, 0, LOCALE_NEUTRAL, kSystem);
  // An absent library is TYPE_E_REGISTRYACCESS on Windows and E_INVALIDARG in Wine.
  if (FAILED(hr) && hr != TYPE_E_REGISTRYACCESS && hr != E_INVALIDARG) Raise(hr);
}

}  // namespace kodra::com
