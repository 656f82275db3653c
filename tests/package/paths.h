// Where the tests of installation find things, and the contents of folders.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/wine/environment.h"

namespace kodra::package {

inline std::wstring Unpacked() { return face::WindowsPath(face::Variable(L"KODRA_UNPACKED")); }
inline std::wstring Installer() { return face::WindowsPath(face::Variable(L"KODRA_MSI")); }
// The same package as a later version.
inline std::wstring LaterInstaller() { return face::WindowsPath(face::Variable(L"KODRA_LATER_MSI")); }

// The folder of programs of this test program's kind.
inline std::wstring ProgramFolder() { return face::Variable(L"ProgramFiles"); }
inline std::wstring Installed() { return ProgramFolder() + L"\\KodraRpt"; }

inline std::wstring Temporary(const std::wstring& name) {
  wchar_t folder[MAX_PATH];
  return std::wstring(folder, GetTempPathW(MAX_PATH, folder)) + name;
}

// A whole file; empty when there is none.
inline std::string Bytes(const std::wstring& path) {
  HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD count = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
  CloseHandle(file);
  return bytes;
}

// The paths of the files and folders below a folder, in order and relative to it; a folder's path ends with a
// backslash.
inline std::vector<std::wstring> Listing(const std::wstring& folder, const std::wstring& from = L"") {
  std::vector<std::wstring> paths;
  WIN32_FIND_DATAW found = {};
  HANDLE search = FindFirstFileW((folder + L"\\" + from + L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return paths;
  do {
    const std::wstring name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      paths.push_back(from + name);
      continue;
    }
    paths.push_back(from + name + L"\\");
    const auto below = Listing(folder, paths.back());
    paths.insert(paths.end(), below.begin(), below.end());
  } while (FindNextFileW(search, &found));
  FindClose(search);
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace kodra::package
