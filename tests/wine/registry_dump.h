// The machine-wide class registry as rows that can be compared.
#pragma once

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <string>
#include <vector>

#include "automation.h"

namespace kodra::face {

// "key" for a key, "key|name=value" for each of its values; the default value has no name.
using RegistryLines = std::vector<std::wstring>;

inline void DumpValues(HKEY key, const std::wstring& path, RegistryLines& lines) {
  std::wstring name(256, L'\0');
  std::wstring data(4096, L'\0');
  for (DWORD i = 0;; ++i) {
    auto nameSize = static_cast<DWORD>(name.size());
    auto dataSize = static_cast<DWORD>(data.size() * sizeof(wchar_t));
    DWORD type = REG_NONE;
    if (RegEnumValueW(key, i, name.data(), &nameSize, nullptr, &type, reinterpret_cast<BYTE*>(data.data()),
                      &dataSize) != ERROR_SUCCESS)
      return;
    std::wstring value = L"(type " + std::to_wstring(type) + L")";
    if (type == REG_SZ) value = std::wstring(data, 0, dataSize / sizeof(wchar_t)).c_str();
    lines.push_back(path + L"|" + name.substr(0, nameSize) + L"=" + value);
  }
}

inline void DumpKey(HKEY parent, const std::wstring& name, const std::wstring& path, RegistryLines& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  lines.push_back(path);
  DumpValues(key, path, lines);
  wchar_t child[256];
  for (DWORD i = 0;; ++i) {
    DWORD size = 256;
    if (RegEnumKeyExW(key, i, child, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    // Key names are the same in any letter case; Wine spells this one in its own.
    const std::wstring spelt = _wcsicmp(child, L"TypeLib") == 0 ? L"TypeLib" : child;
    DumpKey(key, spelt, path.empty() ? spelt : path + L"\\" + spelt, lines);
  }
  RegCloseKey(key);
}

inline RegistryLines DumpClasses() {
  RegistryLines lines;
  DumpKey(HKEY_LOCAL_MACHINE, L"Software\\Classes", L"", lines);
  std::sort(lines.begin(), lines.end());
  return lines;
}

// What `all` has and `some` has not.
inline RegistryLines Without(const RegistryLines& all, const RegistryLines& some) {
  RegistryLines rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::back_inserter(rest));
  return rest;
}

}  // namespace kodra::face
