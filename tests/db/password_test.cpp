// No error about a refused connection contains the password.
#include <gtest/gtest.h>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"
#include "tests/db/mariadb.h"
#include "tests/odbc/raised.h"
#include "tests/secret.h"

namespace kodra::tests {
namespace {

// The errors that the report methods raise on a connection string.
std::vector<Raised> RaisedByAll(const std::wstring& connectionString) {
  odbc::Surroundings machine;
  siblings::RegisterSiblings(machine);
  std::vector<Raised> raised;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
    if (method.className == L"CCaixaRpt") parameters.Let(L"Modulo1", L"AA001");
    raised.push_back(RaisedBy([&] { method.call(machine, connectionString, &parameters); }));
  }
  return raised;
}

void ExpectRefusedInSecret(const std::wstring& connectionString) {
  for (const Raised& raised : RaisedByAll(connectionString)) {
    EXPECT_NE(raised.number, 0);
    EXPECT_EQ(raised.source.find(kSecret), std::wstring::npos);
    EXPECT_EQ(raised.description.find(kSecret), std::wstring::npos);
  }
}

TEST(RefusedPassword, IsRepeatedByNoReportOnMariaDb) {
  ExpectRefusedInSecret(MariaDb().ConnectionString(L"arquivo", kSecret + L"Errada"));
  ExpectRefusedInSecret(MariaDb().ConnectionString(L"arquivo", L"{antes;" + kSecret + L"}"));
}

TEST(RefusedPassword, IsRepeatedByNoReportOnSqlite) {
  ExpectRefusedInSecret(L"Driver={SQLite3};Database=/nao/existe/a.db;Password=\"antes;" + kSecret + L"\"");
}

TEST(RefusedPassword, IsRepeatedByNoReportOnAStringThatNoDriverAccepts) {
  ExpectRefusedInSecret(L"DSN=NaoExiste;pwd = " + kSecret);
  ExpectRefusedInSecret(L"Driver={Nao Existe};Extended Properties=\"PWD=\"\"antes;" + kSecret + L"\"\"\"");
  ExpectRefusedInSecret(L"PWD=" + kSecret);
  ExpectRefusedInSecret(L"PWD={" + kSecret);
}

}  // namespace
}  // namespace kodra::tests
