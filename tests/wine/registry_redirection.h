// Registration into a key of the test in place of HKEY_LOCAL_MACHINE.
#pragma once

#include <windows.h>

#include <set>
#include <string>

namespace kodra::face {

// A value that is a text; "(none)" where there is none.
inline std::wstring RegistryText(HKEY root, const std::wstring& path, const wchar_t* name = nullptr) {
  wchar_t text[MAX_PATH] = L"";
  DWORD bytes = sizeof text;
  const LSTATUS status = RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return status == ERROR_SUCCESS ? text : L"(none)";
}

// While it exists, this process finds an initially empty key in place of HKEY_LOCAL_MACHINE.
class RegistryRedirection {
 public:
  RegistryRedirection() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
    if (RegCreateKeyW(HKEY_CURRENT_USER, kPath, &key_) == ERROR_SUCCESS)
      active_ = RegOverridePredefKey(HKEY_LOCAL_MACHINE, key_) == ERROR_SUCCESS;
  }
  RegistryRedirection(const RegistryRedirection&) = delete;
  RegistryRedirection& operator=(const RegistryRedirection&) = delete;
  ~RegistryRedirection() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    if (key_ != nullptr) RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
  }

  // A test that registers asserts this first; it would write to the real key otherwise.
  bool IsActive() const { return active_; }

  std::wstring Text(const std::wstring& path, const wchar_t* name = nullptr) const {
    return RegistryText(key_, path, name);
  }
  LSTATUS SetText(const std::wstring& path, const wchar_t* name, const std::wstring& text) const {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(key_, path.c_str(), name, REG_SZ, text.c_str(), bytes);
  }
  std::set<std::wstring> KeysBelow(const wchar_t* path) const {
    std::set<std::wstring> names;
    HKEY key = nullptr;
    if (RegOpenKeyW(key_, path, &key) != ERROR_SUCCESS) return names;
    wchar_t name[256];
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == ERROR_SUCCESS; ++i) names.insert(name);
    RegCloseKey(key);
    return names;
  }

 private:
  static constexpr wchar_t kPath[] = L"Software\\KodraTesteRegistro";
  HKEY key_ = nullptr;
  bool active_ = false;
};

}  // namespace kodra::face
