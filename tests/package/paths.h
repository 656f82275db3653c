// The paths of the packages and of the installed files, and the contents of folders.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/wine/environment.h"

namespace kodra::package {

using face::BytesOf;

// The folder of the unpacked zip.
inline std::wstring Unpacked() { return face::WindowsPath(face::Variable(L"KODRA_UNPACKED")); }
inline std::wstring Installer() { return face::WindowsPath(face::Variable(L"KODRA_MSI")); }
// The installer of a later version.
inline std::wstring LaterInstaller() { return face::WindowsPath(face::Variable(L"KODRA_LATER_MSI")); }

// The folder where Windows installs programs that are, like this test program, 32-bit or 64-bit.
inline std::wstring ProgramFolder() { return face::Variable(L"ProgramFiles"); }
inline std::wstring Installed() { return ProgramFolder() + L"\\KodraRpt"; }

// The path of a temporary file or folder.
inline std::wstring Temporary(const std::wstring& name) {
  wchar_t folder[MAX_PATH];
  return std::wstring(folder, GetTempPathW(MAX_PATH, folder)) + name;
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
