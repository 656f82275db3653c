// Windows' installer, run to its end.
#pragma once

#include "tests/wine/commands.h"

namespace kodra::package {

using face::Quoted;
using face::RunCommand;

// Installs (/i) or removes (/x) a package without asking, with properties such as "NAME=1"; returns the exit code.
inline DWORD Msiexec(const std::wstring& action, const std::wstring& msi, const std::wstring& properties = L"") {
  return RunCommand(L"msiexec " + action + L" " + Quoted(msi) + L" /qn " + properties);
}

}  // namespace kodra::package
