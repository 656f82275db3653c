// The environment of the tests of the COM face: its variables, paths and connection strings, and temporary files.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>

namespace kodra::face {

// An environment variable; the empty text when it is not set.
inline std::wstring Variable(const wchar_t* name) {
  wchar_t text[1024];
  return std::wstring(text, GetEnvironmentVariableW(name, text, 1024));
}

// The path in Wine of a path of the host.
inline std::wstring WindowsPath(std::wstring path) {
  if (!path.starts_with(L'/')) return path;
  for (wchar_t& c : path)
    if (c == L'/') c = L'\\';
  return L"Z:" + path;
}

// A DLL of the build: the component, unless another one is named.
inline std::wstring DllPath(const std::wstring& name = L"KodraRpt.dll") {
  return WindowsPath(Variable(L"KODRA_BIN")) + L"\\" + name;
}

// This test program.
inline std::wstring ProgramPath() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  return path;
}

// The connection string of an SQLite file. The driver runs outside Wine, so it needs the path of the host.
inline std::wstring ConnectionTo(const std::wstring& path) { return L"Driver={SQLite3};Database=" + path; }
inline std::wstring ArchiveConnection() { return ConnectionTo(Variable(L"KODRA_ARCHIVE")); }

// The connection string of another database of the MariaDB server.
inline std::wstring ConnectionOnMariaDb(const std::wstring& database) {
  const std::wstring key = L";Database=";
  std::wstring text = Variable(L"KODRA_MYSQL");
  const std::size_t from = text.find(key) + key.size();
  return text.replace(from, text.find(L';', from) - from, database);
}

// A whole file; empty when there is none.
inline std::string BytesOf(const std::wstring& windowsPath) {
  HANDLE file = CreateFileW(windowsPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD count = 0;
  if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) count = 0;
  CloseHandle(file);
  bytes.resize(count);
  return bytes;
}

// The text of a file in UTF-16, without its byte order mark.
inline std::wstring TextOfFile(const std::wstring& windowsPath) {
  const std::string bytes = BytesOf(windowsPath);
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  if (text.starts_with(L'\xFEFF')) text.erase(0, 1);
  return text;
}

// The path of a file that does not exist yet; the file is deleted with this object.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::wstring& name)
      : path_(L"/tmp/kodra-face-" + std::to_wstring(GetCurrentProcessId()) + L"-" + name) {
    Delete();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { Delete(); }

  // The path of the host, and the same in Wine.
  const std::wstring& path() const { return path_; }
  std::wstring windowsPath() const { return WindowsPath(path_); }
  void CreateEmpty() const {
    CloseHandle(CreateFileW(windowsPath().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  }
  BOOL Delete() const { return DeleteFileW(windowsPath().c_str()); }

 private:
  std::wstring path_;
};

}  // namespace kodra::face
