// A script as the client: VBScript creates the classes, reads the rows and reads Err after each failure.
#include "tests/wine/public_face.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

// Runs a script of scripts/ with a file to write and further arguments; returns the file's text.
std::wstring Output(const std::wstring& script, const std::vector<std::wstring>& arguments) {
  const OwnFile file(L"script.txt");
  std::wstring command = L"cscript.exe //nologo scripts\\" + script + L" \"" + file.windowsPath() + L"\"";
  for (const auto& argument : arguments) command += L" \"" + argument + L"\"";
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
    return L"(not started)";
  WaitForSingleObject(process.hProcess, 20000);
  DWORD code = STILL_ACTIVE;
  GetExitCodeProcess(process.hProcess, &code);
  EXPECT_EQ(0U, code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  HANDLE reading = CreateFileW(file.windowsPath().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_EXISTING, 0, nullptr);
  std::wstring text(1 << 16, L'\0');
  DWORD bytes = 0;
  ReadFile(reading, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &bytes, nullptr);
  CloseHandle(reading);
  text.resize(bytes / sizeof(wchar_t));
  if (text.starts_with(L'\xFEFF')) text.erase(0, 1);
  return text;
}

TEST(ScriptClient, ReadsNumberSourceAndDescriptionOfEveryFailure) {
  const OwnFile missing(L"ausente.db");
  const OwnFile empty(L"vazio.db");
  empty.CreateEmpty();
  const OwnFile tableless(L"sem-tabelas.db");
  {
    const auto connection = Create(L"ADODB.Connection");
    ASSERT_EQ(S_OK, Call(connection, L"Open", {ConnectionTo(tableless.path())}).hr);
    ASSERT_EQ(S_OK, Call(connection, L"Execute", {L"CREATE TABLE OUTRA (CODIGO VARCHAR(10))"}).hr);
  }
  const std::wstring departments =
      L"|-2147213397|KodraRpt.CDeptoRpt::RelatorioDeptos|Erro ao gerar dados para o relatório: ";
  const std::wstring media = L"|-2147213397|KodraRpt.CCDRpt::RelatorioMidias|Erro ao gerar dados para o relatório: ";
  EXPECT_EQ(L"no connection string" + departments + L"É preciso definir a propriedade \"StringConexao\".\n" +
                L"no parameter object" + departments + L"Objeto não definido.\n" +  //
                L"neither" + departments + L"É preciso definir a propriedade \"StringConexao\".\n" + L"missing file" +
                departments + L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"" + missing.path() +
                L"\" não encontrado.\n" + L"empty file" + departments +
                L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"" + empty.path() + L"\" danificado.\n" +
                L"no table" + departments +
                L"[Microsoft OLE DB Provider for ODBC Drivers]: [SQLite]no such table: DEPTO (1) [N:1]\n" +
                L"no such property" + media + L"O objeto de parâmetros não tem a propriedade \"TipoRpt\".\n" +
                L"no such property of ours|-2147213397|KodraRpt.CModeloRpt::RelatorioModelos|Erro ao gerar dados para "
                L"o relatório: O objeto de parâmetros não tem a propriedade \"CodModelo\".\n" +
                L"success|0|_Recordset|DESCR_DEPTO\n",
            Output(L"errors.vbs", {ArchiveConnection(), ConnectionTo(missing.path()), ConnectionTo(empty.path()),
                                   ConnectionTo(tableless.path())}));
}

// Rows as the script joins them: nothing for a null.
std::wstring Joined(const Table& table) {
  std::wstring text;
  for (const auto& name : table.columns) text += name + L"|";
  text += L"\n";
  for (const Table::Row& row : table.rows) {
    for (const Value& value : row) text += (value.Is<Null>() ? L"" : value.As<std::wstring>()) + L"|";
    text += L"\n";
  }
  return text;
}

TEST(ScriptClient, ReadsTheRowsOfAReport) {
  for (const auto& [name, method] : {std::pair(L"CDepositoRpt", L"RelatorioDepositos"),  //
                                     std::pair(L"CSuporteRpt", L"RelatorioSuportes")}) {
    const Table expected = ReadAll(OpenReport(name, method));
    EXPECT_LT(3U, expected.rows.size());
    EXPECT_EQ(Joined(expected), Output(L"report.vbs", {ArchiveConnection(), name, method}));
  }
}

TEST(ScriptClient, PassesAnObjectOfItsOwnAsTheParameterObject) {
  EXPECT_EQ(
      L"Todas as Mídias\n"
      L"(none)\n"
      L"-2147213397 Erro ao gerar dados para o relatório: O objeto de parâmetros não tem a propriedade \"TipoRpt\".\n",
      Output(L"own_filter.js", {ArchiveConnection()}));
}

}  // namespace
}  // namespace kodra::face
