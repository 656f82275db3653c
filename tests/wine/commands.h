// Programs and scripts that run in processes of their own.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "tests/wine/environment.h"

namespace kodra::face {

inline std::wstring Quoted(const std::wstring& argument) { return L"\"" + argument + L"\""; }

// Runs a command line to its end. Returns its exit code; STILL_ACTIVE when it could not be started or has not ended
// within a minute.
inline DWORD RunCommand(std::wstring command) {
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
    return STILL_ACTIVE;
  constexpr DWORD kMinute = 60000;
  DWORD code = STILL_ACTIVE;
  if (WaitForSingleObject(process.hProcess, kMinute) == WAIT_OBJECT_0) GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

// Runs a command line to its end. Returns what it printed, without carriage returns.
inline std::string OutputOf(std::wstring command) {
  SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
  if (!CreatePipe(&reading, &writing, &inherit, 0)) return "(no pipe)";
  SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = writing;
  startup.hStdError = writing;
  PROCESS_INFORMATION process{};
  const BOOL started =
      CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
  CloseHandle(writing);
  std::string output;
  char block[4096];
  DWORD count = 0;
  while (started && ReadFile(reading, block, sizeof(block), &count, nullptr) && count > 0)
    for (DWORD i = 0; i < count; ++i)
      if (block[i] != '\r') output += block[i];
  CloseHandle(reading);
  if (!started) return "(not started)";
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return output;
}

// Runs a script of scripts/ with a file to write as its first argument. Returns the text that it wrote there.
inline std::wstring OutputOfScript(const std::wstring& script, const std::vector<std::wstring>& arguments) {
  const TemporaryFile file(L"script.txt");
  std::wstring command = L"cscript.exe //nologo scripts\\" + script + L" " + Quoted(file.windowsPath());
  for (const auto& argument : arguments) command += L" " + Quoted(argument);
  EXPECT_EQ(0U, RunCommand(command));
  return TextOfFile(file.windowsPath());
}

}  // namespace kodra::face
