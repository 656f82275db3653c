// CCaixaRpt on an open connection of the client.
#include "odbc/engine/recordset.h"
#include "reports/reports.h"
#include "tests/db/rows_driver.h"
#include "tests/rows/module_rows.h"
#include "tests/siblings/connection_object.h"

namespace kodra::tests {
namespace {

using namespace rows;
namespace CCaixaRpt = reports::CCaixaRpt;
using siblings::ConnectionObject;

class CaixaConexao : public OnBothEngines {
 protected:
  CaixaConexao() : client(std::make_shared<ConnectionObject>(machine, Sample())), report(L"CCaixaRpt", machine) {
    report.SetConexao({client->Connection(), client});
    report.OnDebugLog([this](const std::wstring& line) { lines.push_back(line); });
  }

  // The names of the methods are in errors and in the log.
  frame::ReportRows OpenOn(std::wstring_view name, frame::ReportRows (*method)(reports::ModuleCall&),
                           const Properties& properties = {}) {
    auto obj = ParametersOf(L"CCaixaRpt", properties);
    return frame::Run(report, name, method, &obj);
  }

  Machine machine;
  std::shared_ptr<ConnectionObject> client;
  reports::ModuleObject report;
  std::vector<std::wstring> lines;
};
INSTANTIATE_TEST_SUITE_P(, CaixaConexao, BothEngines(), EngineName);

TEST_P(CaixaConexao, AnOpeningLabelComesOnce) {
  ExpectRows(Read(*OpenOn(L"EtiquetaAbertura", &CCaixaRpt::EtiquetaAbertura, {{L"Modulo1", L"AA001"}})),
             OpeningLabels({L"AA001"}, kOverAConnection));
}

TEST_P(CaixaConexao, TheConnectionsOwnStringReplacesTheReports) {
  report.SetStringConexao(L"Driver={SQLite3};Database=/nao/existe/acervo.db");
  EXPECT_FALSE(OpenOn(L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}})->Eof());
  EXPECT_EQ(report.StringConexao(), client->Connection()->ConnectionString());
}

TEST_P(CaixaConexao, ListingsAreOfMainModules) {
  ExpectRows(Read(*OpenOn(L"ModulosExcluidos", &CCaixaRpt::ModulosExcluidos)), DiscardedModules({}, Listed::kMainOnly));
  ExpectRows(Read(*OpenOn(L"ModulosVencidos", &CCaixaRpt::ModulosVencidos)), DueModules({}, Listed::kMainOnly));
  ExpectRows(Read(*OpenOn(L"RelatoriosModulos", &CCaixaRpt::RelatoriosModulos)), AllModules({}, Listed::kMainOnly));
}

TEST_P(CaixaConexao, UnclassifiedDocumentsAndTheReportsOnOneModuleAreTheSameAsOverAConnectionString) {
  ExpectRows(Read(*OpenOn(L"DocsNaoIndexadosNosModulos", &CCaixaRpt::DocsNaoIndexadosNosModulos)),
             UnclassifiedDocuments({}));
  ExpectRows(Read(*OpenOn(L"EtiquetaFechamento", &CCaixaRpt::EtiquetaFechamento, {{L"Modulo1", L"AA001"}})),
             ClosingLabels({L"AA001"}));
  ExpectRows(Read(*OpenOn(L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}})),
             DocumentsOf(L"AA001"));
  ExpectRows(Read(*OpenOn(L"DocsNoModuloSubRpt", &CCaixaRpt::DocsNoModuloSubRpt, {{L"Modulo1", L"AA001"}})),
             DocumentsOf(L"AA001"));
  ExpectRows(Read(*OpenOn(L"AutorizacaoDescarteModuloSubRpt", &CCaixaRpt::AutorizacaoDescarteModuloSubRpt,
                          {{L"Modulo1", L"AA001"}})),
             DiscardOf(L"AA001"));
  ExpectRows(Read(*OpenOn(L"DocsNoModulo", &CCaixaRpt::DocsNoModulo, {{L"Modulo1", L"AA00101"}})),
             HeaderOf(*SubordinateOf(L"AA00101")));
}

TEST_P(CaixaConexao, TheBusinessComponentReadsThroughTheSameConnection) {
  const int before = client->Executed();
  EXPECT_FALSE(
      OpenOn(L"EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada, {{L"Modulo1", L"AA001"}})
          ->Eof());
  EXPECT_GT(client->Executed(), before);
}

TEST_P(CaixaConexao, TheRowsStayWithTheClientWhenItsConnectionCloses) {
  const frame::ReportRows rows = OpenOn(L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}});
  dynamic_cast<odbc::Connection&>(*client->Connection()).Close();
  ExpectRows(Read(*rows), DocumentsOf(L"AA001"));
}

TEST_P(CaixaConexao, AConnectionThatTheClientClosedIsAnErrorThatIsLogged) {
  dynamic_cast<odbc::Connection&>(*client->Connection()).Close();
  const Raised raised = RaisedBy([&] {
    OpenOn(L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AA001"}});
  });
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
  reports::ModuleObject overAString(L"CCaixaRpt", machine);
  overAString.SetStringConexao(Sample());
  auto obj = ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"AA003"}});
  EXPECT_FALSE(frame::Run(overAString, L"DocsNoModulo", &CCaixaRpt::DocsNoModulo, &obj)->Eof());
  ExpectRows(Read(*frame::Run(overAString, L"DocsNoModuloSubRpt", &CCaixaRpt::DocsNoModuloSubRpt, &obj)),
             DocumentsOf(L"AA003"), {L"COD_DOCTO"});
}

}  // namespace
}  // namespace kodra::tests
