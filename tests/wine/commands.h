// A program in a process of its own, and its output.
#pragma once

#include <windows.h>

#include <string>

namespace kodra::face {

// The output of the command, without carriage returns.
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

}  // namespace kodra::face
