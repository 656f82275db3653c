// The script client of the package, which runs every report on the sample archive.
#pragma once

#include <gtest/gtest.h>

#include "tests/package/command.h"
#include "tests/package/paths.h"

namespace kodra::package {

struct ClientRun {
  DWORD code = STILL_ACTIVE;
  // The last line that the client wrote.
  std::wstring result;
};

inline std::wstring LastLine(std::wstring text) {
  while (text.ends_with(L'\n') || text.ends_with(L'\r')) text.pop_back();
  if (text.empty()) return L"(no output)";
  return text.substr(text.rfind(L'\n') + 1);
}

// Runs the script client of a folder of the package with a script host.
inline ClientRun RunClient(const std::wstring& host, const std::wstring& folder) {
  const std::wstring output = Temporary(L"kodra-cliente.txt");
  const std::wstring log = Temporary(L"kodra-cliente.log");
  ClientRun run;
  run.code = RunCommand(Quoted(host) + L" //nologo " + Quoted(folder + L"\\exemplos\\cliente.vbs") + L" " +
                        Quoted(face::ArchiveConnection()) + L" " + Quoted(output) + L" " + Quoted(log));
  run.result = LastLine(face::TextOfFile(output));
  DeleteFileW(output.c_str());
  DeleteFileW(log.c_str());
  return run;
}

// Expects 42 calls, many rows, the eight statements that SQLite refuses, and no other surprise.
inline void ExpectServed(const ClientRun& run) {
  EXPECT_EQ(0U, run.code);
  EXPECT_TRUE(run.result.starts_with(L"42 chamadas, ") &&
              run.result.ends_with(L" linhas, 8 sem linhas neste banco como previsto, 0 surpresas."))
      << testing::PrintToString(run.result);
}

// While it exists, ADO and the siblings, which the client needs, are registered.
class RegisteredDependencies {
 public:
  RegisteredDependencies() { Regsvr32(L""); }
  RegisteredDependencies(const RegisteredDependencies&) = delete;
  RegisteredDependencies& operator=(const RegisteredDependencies&) = delete;
  ~RegisteredDependencies() { Regsvr32(L"/u "); }

 private:
  static void Regsvr32(const std::wstring& option) {
    for (const wchar_t* dll : {L"kodra_ado.dll", L"kodra_siblings.dll"})
      EXPECT_EQ(0U, RunCommand(L"regsvr32 /s " + option + Quoted(face::DllPath(dll))));
  }
};

}  // namespace kodra::package
