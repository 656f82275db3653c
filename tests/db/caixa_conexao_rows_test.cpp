// CCaixaRpt on a connection that the client opened and keeps.
#include <algorithm>

#include "odbc/engine/recordset.h"
#include "reports/modules/caixa_rpt.h"
#include "tests/db/module_rows.h"
#include "tests/siblings/connection_object.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;
using siblings::ConnectionObject;

class CaixaConexaoRows : public OnBoth {
 protected:
  CaixaConexaoRows() : client(std::make_shared<ConnectionObject>(Machine(), ConnectionString())), report(Machine()) {
    report.SetConexao({client->Connection(), client});
    report.OnDebugLog([this](const std::wstring& line) { lines.push_back(line); });
  }

  using Method = frame::ReportRows (CCaixaRpt::*)(AutomationObject*);
  frame::ReportRows OpenOn(Method method, Properties properties = {}) {
    auto obj = Parameters(L"CCaixaRptObj", properties);
    return (report.*method)(&obj);
  }

  std::shared_ptr<ConnectionObject> client;
  CCaixaRpt report;
  std::vector<std::wstring> lines;
};
KODRA_ON_BOTH_DATABASES(CaixaConexaoRows);

TEST_P(CaixaConexaoRows, AnOpeningLabelComesOnce) {
  const Caixa& module = *ModuleOf(L"AA001");
  Table expected({L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"});
  expected.Add(module.descCaixa, module.numCaixa, module.tipoGuarda, module.anosVencimento);
  ExpectRows(Read(*OpenOn(&CCaixaRpt::EtiquetaAbertura, {{L"Modulo1", L"AA001"}})), expected);
}

TEST_P(CaixaConexaoRows, TheConnectionsOwnStringWinsAndIsKept) {
  report.SetStringConexao(L"Driver={SQLite3};Database=/nao/existe/acervo.db");
  EXPECT_FALSE(OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}})->Eof());
  EXPECT_EQ(report.StringConexao(), client->Connection()->ConnectionString());
}

TEST_P(CaixaConexaoRows, DiscardedModulesAreMainOnes) {
  Table expected({L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"DATA_FECHAMENTO",
                  L"TIPO_GUARDA"});
  for (const Caixa& c : All<Caixa>()) {
    if (c.tipoGuarda != L"E") continue;
    expected.Add(c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento, c.tipoGuarda);
  }
  ExpectRows(Read(*OpenOn(&CCaixaRpt::ModulosExcluidos)), expected);
}

TEST_P(CaixaConexaoRows, DueModulesAndAllModulesAreMainOnes) {
  std::vector<Text> due;
  std::vector<Text> all;
  for (const Caixa& c : All<Caixa>()) {
    if (c.numCaixa == L"AA000") continue;
    all.push_back(c.numCaixa);
    const bool isDue = c.tipoGuarda == L"T" ? c.dataVencimento && *c.dataVencimento <= Today()
                                            : c.tipoGuarda == L"D" && c.dataFechamento.has_value();
    if (isDue) due.push_back(c.numCaixa);
  }
  const auto numbers = [](const Table& table, std::size_t column) {
    std::vector<Text> texts;
    for (const Table::Row& row : table.rows) texts.push_back(row[column].As<std::wstring>());
    std::sort(texts.begin(), texts.end());
    return texts;
  };
  EXPECT_EQ(numbers(Read(*OpenOn(&CCaixaRpt::ModulosVencidos)), 1), due);
  EXPECT_EQ(numbers(Read(*OpenOn(&CCaixaRpt::RelatoriosModulos)), 0), all);
}

TEST_P(CaixaConexaoRows, UnclassifiedDocumentsAndClosingLabelsAreTheSameAsOverAConnectionString) {
  const auto same = [&](Method method, const wchar_t* module) {
    ExpectRows(Read(*OpenOn(method, {{L"Modulo1", module}})),
               RowsOf(method, Parameters(L"CCaixaRptObj", {{L"Modulo1", module}})));
  };
  same(&CCaixaRpt::DocsNaoIndexadosNosModulos, L"");
  same(&CCaixaRpt::EtiquetaFechamento, L"AA001");
  same(&CCaixaRpt::EtiquetaDivisoria, L"AA001");
  same(&CCaixaRpt::DocsNoModuloSubRpt, L"AA001");
  same(&CCaixaRpt::DocsNoModulo, L"AA00101");
  same(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, L"AA001");
}

TEST_P(CaixaConexaoRows, TheBusinessComponentReadsThroughTheSameConnection) {
  const int before = client->Executed();
  EXPECT_FALSE(OpenOn(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AA001"}})->Eof());
  EXPECT_GT(client->Executed(), before);
}

TEST_P(CaixaConexaoRows, TheRowsStandAtTheClientWhenItsConnectionCloses) {
  const Table expected = RowsOf(&CCaixaRpt::EtiquetaDivisoria, Parameters(L"CCaixaRptObj", {{L"Modulo1", L"AA001"}}));
  const frame::ReportRows rows = OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}});
  dynamic_cast<odbc::Connection&>(*client->Connection()).Close();
  ExpectRows(Read(*rows), expected);
}

TEST_P(CaixaConexaoRows, AConnectionThatTheClientClosedIsAnErrorThatIsLogged) {
  dynamic_cast<odbc::Connection&>(*client->Connection()).Close();
  const Raised raised = RaisedBy([&] { OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}}); });
  EXPECT_EQ(
      raised,
      (Raised{frame::kReportError, L"ADODB.Recordset",
              L"Erro ao gerar dados para o relatório: The connection cannot be used to perform this operation. It "
              L"is either closed or invalid in this context."}));
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back(),
            L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 3709 em ADODB.Recordset: The connection "
            L"cannot be used to perform this operation. It is either closed or invalid in this context.");
}

}  // namespace
}  // namespace kodra::tests
