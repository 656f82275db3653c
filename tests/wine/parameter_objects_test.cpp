// What a client may pass to a report as its parameter object, and what such an object may do while a report reads it.
#include "tests/rows/differences.h"
#include "tests/rows/driver.h"
#include "tests/wine/foreign_object.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

TEST(CatalogRows, AClientsOwnParameterObjectIsReadByMemberName) {
  const auto rowsWith = [](const wchar_t* report, const wchar_t* method, const wchar_t* property, const Var& value) {
    return ReadAll(OpenReport(report, method, ForeignObject::With(property, value)));
  };
  EXPECT_TRUE(rowsWith(L"CCDRpt", L"RelatorioMidias", L"TIPORPT", L"V").rows.empty());
  EXPECT_FALSE(rowsWith(L"CCDRpt", L"RelatorioMidias", L"TipoRpt", L"v").rows.empty());
  rows::ExpectRows(
      rowsWith(L"CModeloRpt", L"RelatorioModelos", L"CodModelo", L"  padrao-0001 "),
      rows::RowsAt(ArchiveConnection(), {L"CModeloRpt", L"RelatorioModelos"}, {{L"CodModelo", L"Padrao-0001"}}));
}

TEST(CatalogRows, AParameterObjectOfAnotherReportServesAReportThatReadsNone) {
  EXPECT_FALSE(ReadAll(OpenReport(L"CDeptoRpt", L"RelatorioDeptos", Create(L"KodraRpt.CLogRptObj"))).rows.empty());
}

TEST(OperatorsParameterObject, ThatIsNothingIsAnErrorBeforeTheFirstStep) {
  EXPECT_EQ((Failure{kReportError, L"KodraRpt.COperadorRpt::RelatorioOperadores", L"Erro : Objeto não definido."}),
            RunReport(L"COperadorRpt", L"RelatorioOperadores", Var::Nothing(), ArchiveConnection()).failure);
}

// A parameter object of the client that runs a report on another database while a report reads it.
class NestedCalls : public OnBothDatabases {
 protected:
  Engine Other() const { return GetParam() == Engine::kSqlite ? Engine::kMariaDb : Engine::kSqlite; }
  // The expired media for a parameter object that runs `action` each time the report reads it.
  Table ExpiredMedia(const std::function<void()>& action) const {
    const auto parameters = ForeignObject::With(L"TipoRpt", [action](VARIANT* result, EXCEPINFO*) {
      action();
      return Var(L"V").CopyTo(result);
    });
    return ReadAll(Got(RunReport(L"CCDRpt", L"RelatorioMidias", Var(parameters.get()), Connection())).object());
  }
};
INSTANTIATE_TEST_SUITE_P(, NestedCalls, rows::BothEngines(), rows::EngineName);

TEST_P(NestedCalls, OfAClientsParameterObjectLeaveTheReportOnItsDatabase) {
  const Table undisturbed = ExpiredMedia([] {});
  EXPECT_EQ(rows::AddsNoYearsToADate(GetParam()), undisturbed.rows.empty());
  const ArchiveClient other(Other());
  const Table disturbed = ExpiredMedia([&] { other.RowsOf(L"CCDRpt", L"RelatorioMidias", {{L"TipoRpt", L"V"}}); });
  EXPECT_EQ(undisturbed.columns, disturbed.columns);
  EXPECT_EQ(undisturbed.rows, disturbed.rows);
}

TEST_P(NestedCalls, OfAClientsParameterObjectThatFailLeaveTheReportOnItsDatabase) {
  const Table undisturbed = ExpiredMedia([] {});
  const ArchiveClient other(Other());
  const Table disturbed = ExpiredMedia([&] {
    EXPECT_EQ(
        Framed(L"CModeloRpt::RelatorioModelos", L"O objeto de parâmetros não tem a propriedade \"CodModelo\"."),
        RunReport(L"CModeloRpt", L"RelatorioModelos", Var(Create(L"KodraRpt.CCDRptObj").get()), other.Connection())
            .failure);
  });
  EXPECT_EQ(undisturbed.columns, disturbed.columns);
  EXPECT_EQ(undisturbed.rows, disturbed.rows);
}

}  // namespace
}  // namespace kodra::face
