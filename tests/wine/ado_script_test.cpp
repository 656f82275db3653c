// ADO as VBScript uses it, in a process of its own.
#include <string>

#include "wine/ado_support.h"

namespace kodra::wine {
namespace {

class AdoScript : public AdoTest {};

// What the command writes, without carriage returns.
std::string OutputOf(std::wstring command) {
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

TEST_F(AdoScript, EveryIdiomOfAScriptWorks) {
  EXPECT_EQ(
      "state 1\n"
      "changed 2\n"
      "COD DESCR ANDAR 3 COD\n"
      "00001 Arquivo 1 00001\n"
      "Biblioteca True False\n"
      "end True\n"
      "00001\n"
      "0\n"
      "00001\n"
      "00002\n"
      "3\n"
      "1 00002 Biblioteca\n"
      "Arquivo\n"
      "2 True\n"
      "1 1 00002 True\n"
      "x7 2 True\n"
      "y4\n"
      "5000000000\n"
      "80040E14 Microsoft OLE DB Provider for ODBC Drivers\n"
      "1 1 True\n"
      "3704 ADODB.Recordset: Operation is not allowed when the object is closed.\n"
      "3265\n"
      "80004001 ADODB: Recordset.Sort is not implemented by this ADO over ODBC.\n"
      "0 0\n",
      OutputOf(L"cscript.exe //nologo vbs\\ado.vbs " + DatabasePath()));
}

}  // namespace
}  // namespace kodra::wine
