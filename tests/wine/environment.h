// Where the tests of the COM face find things, and files of their own.
#pragma once

#include <windows.h>

#include <string>

namespace kodra::face {

inline std::wstring Variable(const wchar_t* name) {
  wchar_t text[1024];
  return std::wstring(text, GetEnvironmentVariableW(name, text, 1024));
}

// The name in Wine of a path of the machine around it.
inline std::wstring WindowsPath(std::wstring path) {
  if (!path.starts_with(L'/')) return path;
  for (wchar_t& c : path)
    if (c == L'/') c = L'\\';
  return L"Z:" + path;
}

inline std::wstring DllPath() { return WindowsPath(Variable(L"KODRA_BIN")) + L"\\KodraRpt.dll"; }

inline std::wstring ProgramPath() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}

// The driver runs outside Windows, so it needs the path in the machine's own form.
inline std::wstring ConnectionTo(const std::wstring& path) { return L"Driver={SQLite3};Database=" + path; }
inline std::wstring ArchiveConnection() { return ConnectionTo(Variable(L"KODRA_ARCHIVE")); }

// A file of this test, deleted with this object.
class OwnFile {
 public:
  explicit OwnFile(const std::wstring& name)
      : path_(L"/tmp/kodra-face-" + std::to_wstring(GetCurrentProcessId()) + L"-" + name) {
    Remove();
  }
  OwnFile(const OwnFile&) = delete;
  OwnFile& operator=(const OwnFile&) = delete;
  ~OwnFile() { Remove(); }

  const std::wstring& path() const { return path_; }
  std::wstring windowsPath() const { return WindowsPath(path_); }
  void CreateEmpty() const {
    CloseHandle(CreateFileW(windowsPath().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  }

 private:
  void Remove() const { DeleteFileW(windowsPath().c_str()); }

  std::wstring path_;
};

}  // namespace kodra::face
