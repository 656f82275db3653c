// The tables and columns that a statement reads, found in its text.
#include "console/statements/tables_read.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "values/utf8.h"

namespace kodra::console {
namespace {

// "T: A B; U: C".
std::string Shown(const std::vector<TableNeed>& needs) {
  std::wstring text;
  for (const TableNeed& need : needs) {
    text += (text.empty() ? L"" : L"; ") + need.table + L":";
    for (const std::wstring& column : need.columns) text += L" " + column;
  }
  return values::ToUtf8(text);
}

TEST(TablesRead, FollowsTheAliases) {
  EXPECT_EQ(
      Shown(TablesRead(L"SELECT g.A, UPPER(sb.B) AS C FROM T sb INNER JOIN U g ON g.D = sb.D  LEFT JOIN V v ON v.E=1 "
                       L"WHERE (1=1) AND sb.F BETWEEN 'g.X' AND 'it''s' ORDER BY g.A, sb.G")),
      "T: B D F G; U: A D; V: E");
}

TEST(TablesRead, AssignsUnqualifiedNamesToTheTableWithoutAnAlias) {
  EXPECT_EQ(Shown(TablesRead(L"SELECT A, 'x' AS B FROM T INNER JOIN U t ON T.C=t.C WHERE D<>'0' ORDER BY A, B")),
            "T: A C D; U: C");
}

TEST(TablesRead, ReadsBothHalvesOfAUnionAndInnerSelects) {
  EXPECT_EQ(
      Shown(TablesRead(L"SELECT c.A, (SELECT COUNT(*) FROM T d WHERE d.B=c.B) AS N FROM U c UNION ALL SELECT s.A, 0 "
                       L"FROM V s WHERE s.B IN (SELECT B FROM W WHERE C = 1) ORDER BY A")),
      "T: B; U: A B; V: A B; W: B C");
}

TEST(TablesRead, LeavesOutTablesOfTheDatabaseSystem) {
  EXPECT_EQ(Shown(TablesRead(L"SELECT ' ' AS A, 0 AS B FROM SYS.DUAL ")), "");
  EXPECT_EQ(Shown(TablesRead(L"SELECT ' ' AS A, 0 AS B")), "");
}

TEST(TablesRead, RefusesStatementsOfAnotherForm) {
  for (const wchar_t* statement : {
           L"SELECT x.A FROM T t",                              // an unknown alias
           L"SELECT A FROM T t",                                // an unqualified name without a table for it
           L"SELECT A FROM T INNER JOIN U ON T.B = U.B",        // an unqualified name with two tables for it
           L"SELECT t.A FROM T t, U u",                         // a list of tables
           L"SELECT A FROM (SELECT B AS A FROM T) x",           // a select instead of a table
           L"SELECT t.A, (SELECT t.B FROM U t) AS C FROM T t",  // one alias for two tables
           L"SELECT COUNT(*) FROM T",                           // a table without a column
           L"SELECT 'A FROM T",                                 // an unterminated quote
           L"SELECT [A] FROM T",                                // an unknown character
       })
    EXPECT_THROW(TablesRead(statement), std::logic_error);
}

TEST(AddNeeds, AddsOnlyNewTablesAndColumns) {
  std::vector<TableNeed> needs = {{L"T", {L"A"}}};
  AddNeeds(needs, {{L"U", {L"B"}}, {L"T", {L"C", L"A"}}});
  EXPECT_EQ(Shown(needs), "T: A C; U: B");
}

}  // namespace
}  // namespace kodra::console
