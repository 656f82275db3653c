// A client's parameter object that runs a report on another database while a report reads it.
#include "tests/wine/foreign_object.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

class NestedCalls : public OnBothDatabases {
 protected:
  Engine Other() const { return GetParam() == Engine::kSqlite ? Engine::kMariaDb : Engine::kSqlite; }
  // The expired media, by parameters that do something each time they are read.
  Rows ExpiredMedia(const std::function<void()>& action) const {
    const auto parameters = ForeignObject::With(L"TipoRpt", [action](VARIANT* result, EXCEPINFO*) {
      action();
      const Var kind(L"V");
      return VariantCopy(result, const_cast<VARIANT*>(&kind.raw()));
    });
    return ReadAll(Got(RunReport(L"CCDRpt", L"RelatorioMidias", Var(parameters.get()), Connection())).object());
  }
};
INSTANTIATE_TEST_SUITE_P(, NestedCalls, rows::BothEngines(), rows::EngineName);

TEST_P(NestedCalls, OfAClientsParameterObjectLeaveTheReportItsDatabase) {
  const Rows undisturbed = ExpiredMedia([] {});
  EXPECT_EQ(GetParam() == Engine::kSqlite, undisturbed.rows.empty());  // SQLite's condition reads no column
  const ArchiveClient other(Other());
  ExpectRows(undisturbed, ExpiredMedia([&] {
               other.RowsOf(L"CCDRpt", L"RelatorioMidias", {{L"TipoRpt", L"V"}});
             }),
             {L"NUM_CD"});
}

TEST_P(NestedCalls, OfAClientsParameterObjectThatFailLeaveTheReportItsDatabase) {
  const Rows undisturbed = ExpiredMedia([] {});
  const ArchiveClient other(Other());
  ExpectRows(
      undisturbed, ExpiredMedia([&] {
        EXPECT_EQ(
            Framed(L"CModeloRpt::RelatorioModelos", L"O objeto de parâmetros não tem a propriedade \"CodModelo\"."),
            RunReport(L"CModeloRpt", L"RelatorioModelos", Var(Create(L"KodraRpt.CCDRptObj").get()), other.Connection())
                .failure);
      }),
      {L"NUM_CD"});
}

}  // namespace
}  // namespace kodra::face
