// The package's script client over the sample archive, whichever copy of the component it uses.
#pragma once

#include <gtest/gtest.h>

#include "tests/package/command.h"
#include "tests/package/paths.h"

namespace kodra::package {

struct ClientRun {
  DWORD code = STILL_ACTIVE;
  // The last line that the client wrote; without any, the reason.
  std::wstring result;
};

inline std::wstring LastLine(const std::string& utf16) {
  std::wstring text(reinterpret_cast<const wchar_t*>(utf16.data()), utf16.size() / sizeof(wchar_t));
  while (text.ends_with(L'\n') || text.ends_with(L'\r')) text.pop_back();
  if (text.empty()) return L"(no output)";
  return text.substr(text.rfind(L'\n') + 1);
}

// Runs cliente.vbs of a folder of the package with a script host.
inline ClientRun RunClient(const std::wstring& host, const std::wstring& folder) {
  const std::wstring output = Temporary(L"kodra-cliente.txt");
  const std::wstring log = Temporary(L"kodra-cliente.log");
  ClientRun run;
  run.code = RunCommand(Quoted(host) + L" //nologo " + Quoted(folder + L"\\exemplos\\cliente.vbs") + L" " +
                        Quoted(face::ArchiveConnection()) + L" " + Quoted(output) + L" " + Quoted(log));
  run.result = LastLine(Bytes(output));
  DeleteFileW(output.c_str());
  DeleteFileW(log.c_str());
  return run;
}

// 42 calls, many rows, the eight refusals of SQLite, and nothing that the client did not expect.
inline void ExpectServed(const ClientRun& run) {
  EXPECT_EQ(0U, run.code);
  EXPECT_TRUE(run.result.starts_with(L"42 chamadas, ") &&
              run.result.ends_with(L" linhas, 8 sem linhas neste banco como previsto, 0 surpresas."))
      << testing::PrintToString(run.result);
}

// ADO and the siblings for the client, registered for as long as this exists; nothing of KodraRpt.
class Surroundings {
 public:
  Surroundings() { Each(L""); }
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;
  ~Surroundings() { Each(L"/u "); }

 private:
  static void Each(const std::wstring& option) {
    for (const wchar_t* dll : {L"kodra_ado.dll", L"kodra_siblings.dll"}) {
      const std::wstring path = face::WindowsPath(face::Variable(L"KODRA_BIN")) + L"\\" + dll;
      EXPECT_EQ(0U, RunCommand(L"regsvr32 /s " + option + Quoted(path)));
    }
  }
};

}  // namespace kodra::package
