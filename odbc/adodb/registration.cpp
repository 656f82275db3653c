#include "odbc/adodb/registration.h"

#include <optional>

#include "comkit/registry.h"

namespace kodra::adodb {
namespace {

constexpr wchar_t kVersion[] = L".2.8";
// Marks a key that this registration made: the whole key is deleted when the class is unregistered.
constexpr wchar_t kMadeHere[] = L"KodraMade";
// A value of a server's key, and where the value that was there before is kept meanwhile.
struct ServerValue {
  const wchar_t* name;
  const wchar_t* kept;
};
constexpr ServerValue kPath{L"", L"KodraReplaced"};
constexpr ServerValue kModel{L"ThreadingModel", L"KodraReplacedModel"};

// An open registry key, closed with it.
class Key {
 public:
  Key() = default;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  HKEY* put() noexcept { return &key_; }

 private:
  HKEY key_ = nullptr;
};

std::wstring PathOf(const std::wstring& key) { return L"Software\\Classes\\" + key; }

std::wstring ClassKey(REFCLSID id) { return L"CLSID\\" + comkit::GuidText(id); }

LSTATUS SetText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
  return comkit::WriteRow(HKEY_LOCAL_MACHINE, {key, name, text});
}

std::optional<std::wstring> GetText(const std::wstring& key, const std::wstring& name) {
  return comkit::ReadText(HKEY_LOCAL_MACHINE, key, name);
}

// Makes the key unless it is there, and marks what was made.
LSTATUS MakeKey(const std::wstring& key) {
  Key opened;
  DWORD disposition = 0;
  const LSTATUS status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, PathOf(key).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                         opened.put(), &disposition);
  if (status != ERROR_SUCCESS || disposition != REG_CREATED_NEW_KEY) return status;
  return SetText(key, kMadeHere, L"1");
}

// Deletes a key that was made here; one that was there before stays.
LSTATUS RemoveKey(const std::wstring& key) {
  if (!GetText(key, kMadeHere)) return ERROR_SUCCESS;
  return comkit::DeleteKey(HKEY_LOCAL_MACHINE, key);
}

LSTATUS RegisterProgId(const std::wstring& progId, REFCLSID id) {
  LSTATUS status = MakeKey(progId);
  if (status == ERROR_SUCCESS) status = SetText(progId + L"\\CLSID", L"", comkit::GuidText(id));
  return status;
}

std::wstring ServerKey(REFCLSID id) { return ClassKey(id) + L"\\InprocServer32"; }

// Writes a value of the server's key. The value that was there at first is kept, also when the class is registered
// again.
LSTATUS Replace(REFCLSID id, const ServerValue& value, const std::wstring& text) {
  const std::wstring server = ServerKey(id);
  const auto before = GetText(server, value.name);
  if (before && !GetText(ClassKey(id), kMadeHere) && !GetText(server, value.kept)) {
    const LSTATUS status = SetText(server, value.kept, *before);
    if (status != ERROR_SUCCESS) return status;
  }
  return SetText(server, value.name, text);
}

LSTATUS Restore(REFCLSID id, const ServerValue& value) {
  const std::wstring server = ServerKey(id);
  const auto before = GetText(server, value.kept);
  if (!before) return ERROR_SUCCESS;
  const LSTATUS status = SetText(server, value.name, *before);
  if (status != ERROR_SUCCESS) return status;
  return RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, PathOf(server).c_str(), value.kept);
}

LSTATUS RegisterServer(REFCLSID id, const std::wstring& path) {
  LSTATUS status = MakeKey(ClassKey(id));
  if (status == ERROR_SUCCESS) status = Replace(id, kPath, path);
  if (status == ERROR_SUCCESS) status = Replace(id, kModel, L"Both");
  return status;
}

LSTATUS UnregisterServer(REFCLSID id) {
  LSTATUS status = Restore(id, kPath);
  if (status == ERROR_SUCCESS) status = Restore(id, kModel);
  if (status == ERROR_SUCCESS) status = RemoveKey(ClassKey(id));
  return status;
}

}  // namespace

HRESULT RegisterAdoClass(REFCLSID id, const std::wstring& progId, const std::wstring& serverPath) {
  LSTATUS status = RegisterServer(id, serverPath);
  if (status == ERROR_SUCCESS) status = RegisterProgId(progId, id);
  if (status == ERROR_SUCCESS) status = RegisterProgId(progId + kVersion, id);
  return HRESULT_FROM_WIN32(status);
}

HRESULT UnregisterAdoClass(REFCLSID id, const std::wstring& progId) {
  LSTATUS status = UnregisterServer(id);
  if (status == ERROR_SUCCESS) status = RemoveKey(progId);
  if (status == ERROR_SUCCESS) status = RemoveKey(progId + kVersion);
  return HRESULT_FROM_WIN32(status);
}

}  // namespace kodra::adodb
