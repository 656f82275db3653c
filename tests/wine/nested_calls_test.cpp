// A client's parameter object that runs a report on another database while a report reads it.
#include "tests/rows/differences.h"
#include "tests/wine/foreign_object.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

class NestedCalls : public OnBothDatabases {
 protected:
  Engine Other() const { return GetParam() == Engine::kSqlite ? Engine::kMariaDb : Engine::kSqlite; }
  // The expired media, by parameters that do something each time they are read.
  Table ExpiredMedia(const std::function<void()>& action) const {
    const auto parameters = ForeignObject::With(L"TipoRpt", [action](VARIANT* result, EXCEPINFO*) {
      action();
      const Var kind(L"V");
      return VariantCopy(result, const_cast<VARIANT*>(&kind.raw()));
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
