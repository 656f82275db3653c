// The statements that a report sends, without a database: all reports, all databases.
#include "console/statements/capture.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "console/statements/layout.h"
#include "values/erro.h"
#include "values/utf8.h"

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

// The text that was laid out: each line break outside of quotes, with two blanks of indentation where there are any, is
// one blank.
std::string WithoutLayout(const std::string& lines) {
  std::string text;
  bool quoted = false;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    if (lines[at] == '\'') quoted = !quoted;
    const bool isBreak = lines[at] == '\n' && !quoted;
    text += isBreak ? ' ' : lines[at];
    if (isBreak && lines.compare(at + 1, 2, "  ") == 0) at += 2;
  }
  return text;
}

TEST(CaptureTest, GivesAStatementOfEveryReportInEveryDialectButOfTheLog) {
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

TEST(LayoutTest, ChangesNothingButBlanksIntoLineBreaks) {
  int broken = 0;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    for (const Database& database : Databases()) {
      for (const std::wstring& wide : TextsOf(method, database.code)) {
        const std::string text = values::ToUtf8(wide);
        const std::string lines = LaidOut(text);
        EXPECT_EQ(WithoutLayout(lines), text);
        broken += static_cast<int>(std::count(lines.begin(), lines.end(), '\n'));
      }
    }
  }
  EXPECT_GT(broken, 1000);
}

TEST(LayoutTest, LeavesQuotesParenthesesAndCasesWhole) {
  EXPECT_EQ(LaidOut("SELECT 'a FROM b', (SELECT c FROM d), CASE WHEN e OR f THEN g END AS h FROM i"),
            "SELECT 'a FROM b', (SELECT c FROM d), CASE WHEN e OR f THEN g END AS h\nFROM i");
  EXPECT_EQ(LaidOut("SELECT a FROM b WHERE c = 'x AND ''y OR z' AND d"),
            "SELECT a\nFROM b\nWHERE c = 'x AND ''y OR z'\n  AND d");
}

TEST(LayoutTest, KeepsTheAndOfABetween) {
  EXPECT_EQ(LaidOut("SELECT a FROM b WHERE c BETWEEN d AND e AND f  OR g"),
            "SELECT a\nFROM b\nWHERE c BETWEEN d AND e\n  AND f \n  OR g");
}

TEST(LayoutTest, BreaksEachHalfOfAUnion) {
  EXPECT_EQ(LaidOut("SELECT a FROM b UNION ALL SELECT c FROM d ORDER BY a"),
            "SELECT a\nFROM b\nUNION ALL\nSELECT c\nFROM d\nORDER BY a");
}

TEST(LayoutTest, TakesALongColumnListApart) {
  const std::string column(60, 'x');
  EXPECT_EQ(LaidOut("SELECT " + column + ", f(y, z),w FROM b"), "SELECT " + column + ", f(y, z),w\nFROM b");
  EXPECT_EQ(LaidOut("SELECT " + column + ", f(" + column + ", z),w FROM b"),
            "SELECT\n  " + column + ",\n  f(" + column + ", z),w\nFROM b");
}

TEST(LayoutTest, GivesNothingForNothing) { EXPECT_EQ(LaidOut(""), ""); }

}  // namespace
}  // namespace kodra::console
