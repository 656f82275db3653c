#include "console/command_line/console.h"

#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <cstdio>

#include "values/utf8.h"
#else
#include <unistd.h>
#endif

namespace kodra::console {

#ifdef _WIN32

Utf8Console::Utf8Console() : formerCodePage_(GetConsoleOutputCP()) {
  SetConsoleOutputCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}

Utf8Console::~Utf8Console() {
  if (formerCodePage_ != 0) SetConsoleOutputCP(formerCodePage_);
}

// The arguments of main have lost every character outside the machine's code page.
std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** values = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(values::ToUtf8(values[i]));
  LocalFree(values);
  return arguments;
}

std::filesystem::path ProgramPath() {
  constexpr std::size_t kLongest = 32768;  // of any path of Windows
  std::wstring path(kLongest, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongest));
  return path;
}

bool IsTerminal(const std::ostream& output) { return &output == &std::cout && _isatty(_fileno(stdout)) != 0; }
bool StandardErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

#else

bool IsTerminal(const std::ostream& output) { return &output == &std::cout && isatty(STDOUT_FILENO) != 0; }
bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

std::filesystem::path ProgramPath() { return std::filesystem::read_symlink("/proc/self/exe"); }

Utf8Console::Utf8Console() = default;
Utf8Console::~Utf8Console() = default;

std::vector<std::string> Arguments(int count, char** values) { return {values + 1, values + count}; }

#endif

}  // namespace kodra::console
