// What a report method requires of its native client, and what its recordset keeps alive after the call. The tests of
// the rows are in tests/rows.
#include "console/reports/report_methods.h"
#include "tests/db/rows_driver.h"

namespace kodra::tests {
namespace {

using namespace rows;

class ReportCalls : public OnBothEngines {
 protected:
  static frame::ReportRows Call(Machine& machine, const Report& report, const std::wstring& connectionString,
                                AutomationObject* obj) {
    return reports::FindReportMethod(report.className, report.method)->call(machine, connectionString, obj);
  }
  // The recordset of a client that is destroyed before it is read.
  static frame::ReportRows OpenAndLeave(const Report& report) {
    Machine machine;
    auto obj = ParametersOf(report.className);
    return Call(machine, report, Sample(), &obj);
  }
};
INSTANTIATE_TEST_SUITE_P(, ReportCalls, BothEngines(), EngineName);

TEST_P(ReportCalls, WithoutAParameterObjectOrAConnectionStringAreRefusedBeforeAnythingIsOpened) {
  const Report departments{L"CDeptoRpt", L"RelatorioDeptos"};
  Machine machine;
  auto obj = ParametersOf(L"CDeptoRpt");
  EXPECT_EQ(RaisedBy([&] { Call(machine, departments, L"", &obj); }),
            Framed(L"CDeptoRpt::RelatorioDeptos", L"É preciso definir a propriedade \"StringConexao\"."));
  EXPECT_EQ(RaisedBy([&] { Call(machine, departments, Sample(), nullptr); }),
            Framed(L"CDeptoRpt::RelatorioDeptos", L"Objeto não definido."));
  EXPECT_FALSE(Read(*Call(machine, departments, Sample(), &obj)).rows.empty());
}

TEST_P(ReportCalls, ReturnAStreamThatKeepsItsConnectionWhenEverythingElseIsDestroyed) {
  const Report summary{L"CDocumentoRpt", L"RelatorioSintetico"};
  const frame::ReportRows rows = OpenAndLeave(summary);
  rows->MoveNext();
  Table expected = RowsOf(summary);
  expected.rows.erase(expected.rows.begin());
  ASSERT_GT(expected.rows.size(), 300U);  // several blocks of a hundred rows
  ExpectExactly(Read(*rows), expected);
}

TEST_P(ReportCalls, ReturnModelsThatStayReadableWhenTheirConnectionIsDestroyed) {
  const Report models{L"CModeloRpt", L"RelatorioModelos"};
  const frame::ReportRows rows = OpenAndLeave(models);
  ExpectRows(Read(*rows), RowsOf(models));
  rows->MoveFirst();
  EXPECT_FALSE(rows->Eof());
}

}  // namespace
}  // namespace kodra::tests
