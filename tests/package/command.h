// Windows' installer, run to its end.
#pragma once

#include "tests/wine/commands.h"

namespace kodra::package {

using face::Quoted;
using face::RunCommand;

// Installs (/i) or removes (/x) a package without asking; returns the exit code.
inline DWORD Msiexec(const std::wstring& action, const std::wstring& msi) {
  return RunCommand(L"msiexec " + action + L" " + Quoted(msi) + L" /qn");
}

}  // namespace kodra::package
