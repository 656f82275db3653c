// CCaixaRpt on a connection that the client opened and keeps.
#include "odbc/engine/recordset.h"
#include "reports/modules/caixa_rpt.h"
#include "tests/db/rows_driver.h"
#include "tests/rows/module_rows.h"
#include "tests/siblings/connection_object.h"

namespace kodra::tests {
namespace {

using namespace rows;
using reports::CCaixaRpt;
using siblings::ConnectionObject;

class CaixaConexao : public OnBothEngines {
 protected:
  CaixaConexao() : client(std::make_shared<ConnectionObject>(machine, Sample())), report(machine) {
    report.SetConexao({client->Connection(), client});
    report.OnDebugLog([this](const std::wstring& line) { lines.push_back(line); });
  }

  using Method = frame::ReportRows (CCaixaRpt::*)(AutomationObject*);
  frame::ReportRows OpenOn(Method method, const Properties& properties = {}) {
    auto obj = ParametersOf(L"CCaixaRpt", properties);
    return (report.*method)(&obj);
  }

  Machine machine;
  std::shared_ptr<ConnectionObject> client;
  CCaixaRpt report;
  std::vector<std::wstring> lines;
};
INSTANTIATE_TEST_SUITE_P(, CaixaConexao, BothEngines(), EngineName);

TEST_P(CaixaConexao, AnOpeningLabelComesOnce) {
  ExpectRows(Read(*OpenOn(&CCaixaRpt::EtiquetaAbertura, {{L"Modulo1", L"AA001"}})),
             OpeningLabels({L"AA001"}, kOverAConnection));
}

TEST_P(CaixaConexao, TheConnectionsOwnStringWinsAndIsKept) {
  report.SetStringConexao(L"Driver={SQLite3};Database=/nao/existe/acervo.db");
  EXPECT_FALSE(OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}})->Eof());
  EXPECT_EQ(report.StringConexao(), client->Connection()->ConnectionString());
}

TEST_P(CaixaConexao, ListingsAreOfMainModules) {
  ExpectRows(Read(*OpenOn(&CCaixaRpt::ModulosExcluidos)), DiscardedModules({}, Listed::kMainOnly));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::ModulosVencidos)), DueModules({}, Listed::kMainOnly));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::RelatoriosModulos)), AllModules({}, Listed::kMainOnly));
}

TEST_P(CaixaConexao, UnclassifiedDocumentsAndTheReportsOnOneModuleAreTheSameAsOverAConnectionString) {
  ExpectRows(Read(*OpenOn(&CCaixaRpt::DocsNaoIndexadosNosModulos)), UnclassifiedDocuments({}));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::EtiquetaFechamento, {{L"Modulo1", L"AA001"}})), ClosingLabels({L"AA001"}));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}})), DocumentsOf(L"AA001"));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", L"AA001"}})), DocumentsOf(L"AA001"));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, {{L"Modulo1", L"AA001"}})), DiscardOf(L"AA001"));
  ExpectRows(Read(*OpenOn(&CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AA00101"}})), HeaderOf(*SubordinateOf(L"AA00101")));
}

TEST_P(CaixaConexao, TheBusinessComponentReadsThroughTheSameConnection) {
  const int before = client->Executed();
  EXPECT_FALSE(OpenOn(&CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AA001"}})->Eof());
  EXPECT_GT(client->Executed(), before);
}

TEST_P(CaixaConexao, TheRowsStayWithTheClientWhenItsConnectionCloses) {
  const frame::ReportRows rows = OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}});
  dynamic_cast<odbc::Connection&>(*client->Connection()).Close();
  ExpectRows(Read(*rows), DocumentsOf(L"AA001"));
}

TEST_P(CaixaConexao, AConnectionThatTheClientClosedIsAnErrorThatIsLogged) {
  dynamic_cast<odbc::Connection&>(*client->Connection()).Close();
  const Raised raised = RaisedBy([&] { OpenOn(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}}); });
  EXPECT_EQ(
      raised,
      (Raised{kReportError, L"ADODB.Recordset",
              L"Erro ao gerar dados para o relatório: The connection cannot be used to perform this operation. It "
              L"is either closed or invalid in this context."}));
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back(),
            L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro 3709 em ADODB.Recordset: The connection "
            L"cannot be used to perform this operation. It is either closed or invalid in this context.");
}

TEST_P(CaixaConexao, TheDocumentsOfAModuleAreReadAfterItsHeader) {
  CCaixaRpt overAString(machine);
  overAString.SetStringConexao(Sample());
  auto obj = ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"AA003"}});
  EXPECT_FALSE(overAString.DocsNoModulo(&obj)->Eof());
  ExpectRows(Read(*overAString.DocsNoModuloSubRpt(&obj)), DocumentsOf(L"AA003"), {L"COD_DOCTO"});
}

}  // namespace
}  // namespace kodra::tests
