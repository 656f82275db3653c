// The registry as rows that can be compared.
#pragma once

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <string>
#include <vector>

#include "tests/wine/automation.h"

namespace kodra::face {

// "key" for a key, "key|name=value" for each of its values; the default value has no name.
using RegistryLines = std::vector<std::wstring>;

inline std::wstring ValueText(DWORD type, const std::vector<BYTE>& data) {
  if (type == REG_SZ) {
    const std::wstring text(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t));
    return text.c_str();  // without the closing zero
  }
  std::wstring text = L"(type " + std::to_wstring(type) + L")";
  for (const BYTE byte : data) text += L" " + std::to_wstring(byte);
  return text;
}

inline void DumpKey(HKEY parent, const std::wstring& name, const std::wstring& path, RegistryLines& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  lines.push_back(path);
  DWORD children = 0, values = 0, nameLimit = 0, dataLimit = 0;
  RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &children, nullptr, nullptr, &values, &nameLimit, &dataLimit,
                   nullptr, nullptr);
  std::wstring valueName(nameLimit + 1, L'\0');
  for (DWORD i = 0; i < values; ++i) {
    std::vector<BYTE> data(dataLimit);
    DWORD nameSize = nameLimit + 1, dataSize = dataLimit, type = REG_NONE;
    if (RegEnumValueW(key, i, valueName.data(), &nameSize, nullptr, &type, data.data(), &dataSize) != ERROR_SUCCESS)
      break;
    data.resize(dataSize);
    lines.push_back(path + L"|" + valueName.substr(0, nameSize) + L"=" + ValueText(type, data));
  }
  for (DWORD i = 0; i < children; ++i) {
    wchar_t child[256];
    DWORD size = 256;
    if (RegEnumKeyExW(key, i, child, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    // Key names are the same in any letter case; Wine has its own spelling of this one.
    const std::wstring spelt = _wcsicmp(child, L"TypeLib") == 0 ? L"TypeLib" : child;
    DumpKey(key, spelt, path.empty() ? spelt : path + L"\\" + spelt, lines);
  }
  RegCloseKey(key);
}

// The rows of everything below a key, sorted.
inline RegistryLines Dump(HKEY root, const std::wstring& key) {
  RegistryLines lines;
  DumpKey(root, key, L"", lines);
  std::sort(lines.begin(), lines.end());
  return lines;
}

// The classes that all users of the machine share.
inline RegistryLines DumpClasses() { return Dump(HKEY_LOCAL_MACHINE, L"Software\\Classes"); }

// The rows that are in `all` and not in `some`.
inline RegistryLines Without(const RegistryLines& all, const RegistryLines& some) {
  RegistryLines rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::back_inserter(rest));
  return rest;
}

}  // namespace kodra::face
