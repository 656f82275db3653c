// Statements laid out for reading.
#include "console/statements/layout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "console/command_line/databases.h"
#include "console/statements/capture.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// Undoes the layout: each line break outside quotes, with the indentation after it, becomes one blank.
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

TEST(LayoutTest, ChangesNothingButBlanksIntoLineBreaks) {
  int broken = 0;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    for (const Database& database : Databases()) {
      frame::ParameterObject parameters(frame::ParameterClassNamed(method.parameterClass));
      for (const Statement& statement : Capture(method, database.code, parameters).statements) {
        const std::string text = values::ToUtf8(statement.text);
        const std::string lines = LaidOut(text);
        EXPECT_EQ(WithoutLayout(lines), text);
        broken += static_cast<int>(std::count(lines.begin(), lines.end(), '\n'));
      }
    }
  }
  EXPECT_GT(broken, 1000);
}

TEST(LayoutTest, BreaksNothingInsideQuotesParenthesesAndCases) {
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

TEST(LayoutTest, BreaksALongColumnList) {
  const std::string column(60, 'x');
  EXPECT_EQ(LaidOut("SELECT " + column + ", f(y, z),w FROM b"), "SELECT " + column + ", f(y, z),w\nFROM b");
  EXPECT_EQ(LaidOut("SELECT " + column + ", f(" + column + ", z),w FROM b"),
            "SELECT\n  " + column + ",\n  f(" + column + ", z),w\nFROM b");
}

TEST(LayoutTest, KeepsAnEmptyTextEmpty) { EXPECT_EQ(LaidOut(""), ""); }

}  // namespace
}  // namespace kodra::console
