// The statements that a report sends, without a database: all reports, all databases.
#include "console/statements/capture.h"

#include <gtest/gtest.h>

#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "values/erro.h"

namespace kodra::console {
namespace {

frame::ParameterObject NewObject(const reports::ReportMethod& method) {
  return frame::ParameterObject(frame::ParameterClassNamed(method.parameterClass));
}

std::vector<std::wstring> TextsOf(const reports::ReportMethod& method, std::int32_t code) {
  frame::ParameterObject parameters = NewObject(method);
  std::vector<std::wstring> texts;
  for (const Statement& statement : Capture(method, code, parameters).statements) texts.push_back(statement.text);
  return texts;
}

TEST(CaptureTest, ReturnsStatementsOfEveryReportButTheLogInEveryDialect) {
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    for (const Database& database : Databases()) {
      const bool isLog = method.className == L"CLogRpt";
      EXPECT_EQ(TextsOf(method, database.code).empty(), isLog) << NameOf(method) << " " << database.name;
    }
  }
}

TEST(CaptureTest, RaisesWhatTheReportRaises) { EXPECT_THROW(TextsOf(FindReport("ModulosVencidos"), 4), Erro); }

TEST(CaptureTest, StartsWithoutRowsEachTime) {
  const reports::ReportMethod& method = FindReport("AutorizacaoDescarteModuloSubRpt");
  const std::vector<std::wstring> first = TextsOf(method, 1);
  EXPECT_EQ(first.size(), 2U);
  EXPECT_EQ(TextsOf(method, 1), first);
}

}  // namespace
}  // namespace kodra::console
