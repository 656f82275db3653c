// Programs of Windows, run to their end.
#pragma once

#include <windows.h>

#include <string>

namespace kodra::package {

// The exit code of a command line; STILL_ACTIVE when it could not be started or has not ended within a minute.
inline DWORD RunCommand(std::wstring command, const std::wstring& folder = L"") {
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      folder.empty() ? nullptr : folder.c_str(), &startup, &process))
    return STILL_ACTIVE;
  constexpr DWORD kMinute = 60000;
  DWORD code = STILL_ACTIVE;
  if (WaitForSingleObject(process.hProcess, kMinute) == WAIT_OBJECT_0) GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

inline std::wstring Quoted(const std::wstring& path) { return L"\"" + path + L"\""; }

// Installs (/i) or removes (/x) a package without asking.
inline DWORD Msiexec(const std::wstring& action, const std::wstring& msi) {
  return RunCommand(L"msiexec " + action + L" " + Quoted(msi) + L" /qn");
}

}  // namespace kodra::package
