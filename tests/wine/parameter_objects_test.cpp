// What a client may pass to a report as its parameter object.
#include "tests/rows/driver.h"
#include "tests/wine/foreign_object.h"
#include "tests/wine/rows.h"

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
  EXPECT_EQ(
      (Failure{0x80041FAB, L"KodraRpt.COperadorRpt::RelatorioOperadores", L"Erro : Objeto não definido."}),
      RunReport(L"COperadorRpt", L"RelatorioOperadores", Var(static_cast<IDispatch*>(nullptr)), ArchiveConnection())
          .failure);
}

}  // namespace
}  // namespace kodra::face
