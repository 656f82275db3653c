// Runs a script of scripts/ for the tests of the siblings, and reads the output of the script and its components.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/wine/environment.h"

namespace kodra::siblings {

inline std::string BytesOf(const face::OwnFile& file) {
  std::ifstream in(std::filesystem::path(file.windowsPath()), std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The text of a UTF-16 file without its byte order mark.
inline std::wstring TextOf(const face::OwnFile& file) {
  const std::string bytes = BytesOf(file);
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::copy_n(bytes.data(), text.size() * sizeof(wchar_t), reinterpret_cast<char*>(text.data()));
  if (text.starts_with(L'\xFEFF')) text.erase(0, 1);
  return text;
}

// Runs a script with a file to write and further arguments; returns the file's text.
inline std::wstring OutputOf(const std::wstring& script, const std::vector<std::wstring>& arguments) {
  const face::OwnFile file(L"siblings.txt");
  std::wstring command = L"cscript.exe //nologo scripts\\" + script + L" \"" + file.windowsPath() + L"\"";
  for (const auto& argument : arguments) command += L" \"" + argument + L"\"";
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
    return L"(not started)";
  DWORD code = STILL_ACTIVE;
  EXPECT_EQ(WaitForSingleObject(process.hProcess, 60000), WAIT_OBJECT_0);
  EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &code));
  EXPECT_EQ(code, 0U);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return TextOf(file);
}

}  // namespace kodra::siblings
