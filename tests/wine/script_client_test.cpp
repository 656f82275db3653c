// Scripts as clients: they create the classes, read the rows, and read Err after each failure.
#include "tests/wine/commands.h"
#include "tests/wine/rows.h"

namespace kodra::face {
namespace {

TEST(ScriptClient, ReadsNumberSourceAndDescriptionOfEveryFailure) {
  const TemporaryFile missing(L"ausente.db");
  const TemporaryFile empty(L"vazio.db");
  empty.CreateEmpty();
  const TemporaryFile tableless(L"sem-tabelas.db");
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
            OutputOfScript(L"errors.vbs", {ArchiveConnection(), ConnectionTo(missing.path()),
                                           ConnectionTo(empty.path()), ConnectionTo(tableless.path())}));
}

// A table as report.vbs writes it, where a null is an empty text.
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
    EXPECT_EQ(Joined(expected), OutputOfScript(L"report.vbs", {ArchiveConnection(), name, method}));
  }
}

TEST(ScriptClient, PassesAnObjectOfItsOwnAsTheParameterObject) {
  EXPECT_EQ(
      L"Todas as Mídias\n"
      L"(none)\n"
      L"-2147213397 Erro ao gerar dados para o relatório: O objeto de parâmetros não tem a propriedade \"TipoRpt\".\n",
      OutputOfScript(L"own_filter.js", {ArchiveConnection()}));
}

}  // namespace
}  // namespace kodra::face
