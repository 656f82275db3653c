#include "comkit/registry.h"

namespace kodra::comkit {
namespace {

std::wstring PathOf(const std::wstring& key) { return L"Software\\Classes\\" + key; }

const wchar_t* NameOf(const std::wstring& name) { return name.empty() ? nullptr : name.c_str(); }

}  // namespace

std::wstring GuidText(REFGUID id) {
  wchar_t text[39];
  StringFromGUID2(id, text, 39);
  return text;
}

std::vector<RegistryRow> ClassRows(const std::wstring& progId, const std::wstring& classId,
                                   const std::wstring& serverPath) {
  const std::wstring classKey = L"CLSID\\" + classId;
  return {
      {progId, L"", progId},
      {progId + L"\\CLSID", L"", classId},
      {classKey, L"", progId},
      {classKey + L"\\InprocServer32", L"", serverPath},
      {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {classKey + L"\\ProgID", L"", progId},
  };
}

LSTATUS WriteRow(HKEY root, const RegistryRow& row) {
  HKEY key = nullptr;
  LSTATUS status = RegCreateKeyExW(root, PathOf(row.key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
  if (status != ERROR_SUCCESS) return status;
  const std::size_t bytes = (row.value.size() + 1) * sizeof(wchar_t);
  status = RegSetValueExW(key, NameOf(row.name), 0, REG_SZ, reinterpret_cast<const BYTE*>(row.value.c_str()),
                          static_cast<DWORD>(bytes));
  RegCloseKey(key);
  return status;
}

LSTATUS DeleteKey(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, PathOf(key).c_str());
  return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

std::optional<std::wstring> ReadText(HKEY root, const std::wstring& key, const std::wstring& name) {
  constexpr DWORD kLength = 32768;  // longer than any path
  std::wstring text(kLength, L'\0');
  DWORD bytes = kLength * sizeof(wchar_t);
  if (RegGetValueW(root, PathOf(key).c_str(), NameOf(name), RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
      ERROR_SUCCESS)
    return std::nullopt;
  return text.c_str();
}

}  // namespace kodra::comkit
