#include "tests/sql/dialect_codes.h"
#include "values/erro.h"
#include "values/format_date.h"

namespace kodra::sql {
namespace {

std::wstring ToDate(std::int32_t code, const std::wstring& text, std::int32_t layout) {
  DefineTipoBanco(code);
  return SQLToDate(text, layout);
}

TEST(SQLToDate, OracleAndDB2MakeADateALiteralOfTheLayout) {
  for (const std::int32_t code : {1, 5, 6}) {
    EXPECT_EQ(ToDate(code, L"31/12/2023", 0), L"TO_DATE('31/12/2023','DD/MM/YYYY')");
    EXPECT_EQ(ToDate(code, L"31/12/2023", 1), L"TO_DATE('2023/12/31','YYYY/MM/DD')");
    EXPECT_EQ(ToDate(code, L"31/12/2023 10:20:30", 2), L"TO_DATE('2023/12/31 10:20:30','YYYY/MM/DD HH24:MI:SS')");
  }
}
TEST(SQLToDate, OracleAndDB2TakeAnExpressionVerbatim) {
  for (const std::int32_t code : {1, 5, 6}) {
    EXPECT_EQ(ToDate(code, L"c.DATA", 0), L"TO_DATE(c.DATA,'DD/MM/YYYY')");
    EXPECT_EQ(ToDate(code, L"c.DATA", 1), L"TO_DATE(c.DATA,'YYYY/MM/DD')");
    EXPECT_EQ(ToDate(code, L"c.DATA", 2), L"TO_DATE(c.DATA,'YYYY/MM/DD HH24:MI:SS')");
    EXPECT_EQ(ToDate(code, L"'31/12/2023'", 0), L"TO_DATE('31/12/2023','DD/MM/YYYY')");
    EXPECT_EQ(ToDate(code, L"", 0), L"TO_DATE(,'DD/MM/YYYY')");
  }
}
TEST(SQLToDate, OracleAndDB2HaveNoPatternForAnotherLayoutAndLeaveADateAsItIs) {
  for (const std::int32_t code : {1, 5, 6}) {
    EXPECT_EQ(ToDate(code, L"c.DATA", 3), L"TO_DATE(c.DATA,'')");
    EXPECT_EQ(ToDate(code, L"31/12/2023", 3), L"TO_DATE(31/12/2023,'')");
    EXPECT_EQ(ToDate(code, L"31/12/2023", -1), L"TO_DATE(31/12/2023,'')");
  }
}

TEST(SQLToDate, MySQLReadsAnExpressionByTheCompactPattern) {
  EXPECT_EQ(ToDate(3, L"c.DATA", 0), L"STR_TO_DATE(c.DATA,'%d%m%Y')");
  EXPECT_EQ(ToDate(3, L"c.DATA", 1), L"STR_TO_DATE(c.DATA,'%Y%m%d')");
  EXPECT_EQ(ToDate(3, L"c.DATA", 2), L"STR_TO_DATE(c.DATA,'%Y%m%d %T')");
  EXPECT_EQ(ToDate(3, L"c.DATA", 3), L"STR_TO_DATE(c.DATA,'%d%m%Y')");
}
TEST(SQLToDate, MySQLReadsADateByTheSeparatedPattern) {
  EXPECT_EQ(ToDate(3, L"31/12/2023", 0), L"STR_TO_DATE('31/12/2023','%d/%m/%Y')");
  EXPECT_EQ(ToDate(3, L"31/12/2023", 1), L"STR_TO_DATE('2023/12/31','%Y/%m/%d')");
  EXPECT_EQ(ToDate(3, L"31/12/2023 10:20:30", 2), L"STR_TO_DATE('2023/12/31 10:20:30','%Y/%m/%d %T')");
}
TEST(SQLToDate, MySQLQuotesADateOfAnotherLayoutAndKeepsTheCompactPattern) {
  EXPECT_EQ(ToDate(3, L"31/12/2023", 3), L"STR_TO_DATE('31/12/2023','%d%m%Y')");
  EXPECT_EQ(ToDate(3, L"2023-12-31", -1), L"STR_TO_DATE('2023-12-31','%d%m%Y')");
}

TEST(SQLToDate, SQLServerGetsTheDateItselfAsAnIsoLiteral) {
  EXPECT_EQ(ToDate(2, L"31/12/2023", 0), L"'20231231'");
  EXPECT_EQ(ToDate(2, L"31/12/2023", 1), L"'20231231'");
  EXPECT_EQ(ToDate(2, L"31/12/2023 10:20:30", 2), L"'2023-12-31T10:20:30'");
  EXPECT_EQ(ToDate(2, L"31/12/2023", 2), L"'2023-12-31T00:00:00'");
  EXPECT_EQ(ToDate(2, L"31/12/2023 10:20:30", 0), L"'20231231'");
  EXPECT_EQ(ToDate(2, L"31/12/2023", 3), L"'20231231'");
}
TEST(SQLToDate, SQLServerHasNoFormForAnExpressionAndGivesItBack) {
  EXPECT_EQ(ToDate(2, L"c.DATA", 0), L"c.DATA");
  EXPECT_EQ(ToDate(2, L"c.DATA", 2), L"c.DATA");
}

TEST(SQLToDate, SQLiteTakesEveryTextVerbatim) {
  EXPECT_EQ(ToDate(7, L"c.DATA", 0), L"strftime('%d-%m-%Y',c.DATA)");
  EXPECT_EQ(ToDate(7, L"c.DATA", 1), L"strftime('%Y-%m-%d',c.DATA)");
  EXPECT_EQ(ToDate(7, L"c.DATA", 2), L"strftime('%Y-%m-%d %H:%M:%S',c.DATA)");
  EXPECT_EQ(ToDate(7, L"31/12/2023", 0), L"strftime('%d-%m-%Y',31/12/2023)");
}
TEST(SQLToDate, SQLiteHasNothingForAnotherLayout) {
  EXPECT_EQ(ToDate(7, L"c.DATA", 3), L"");
  EXPECT_EQ(ToDate(7, L"31/12/2023", -1), L"");
}

TEST(SQLToDate, DatesAreReadDayFirstWhateverTheirSpelling) {
  EXPECT_EQ(ToDate(1, L"1/2/2023", 0), L"TO_DATE('01/02/2023','DD/MM/YYYY')");
  EXPECT_EQ(ToDate(1, L"2023-02-01", 0), L"TO_DATE('01/02/2023','DD/MM/YYYY')");
  EXPECT_EQ(ToDate(1, L"12/31/2023", 0), L"TO_DATE('31/12/2023','DD/MM/YYYY')");
  EXPECT_EQ(ToDate(3, L" 01-02-23 ", 1), L"STR_TO_DATE('2023/02/01','%Y/%m/%d')");
}

TEST(SQLToDate, ADateWithoutTimeIsMidnightInTheDateTimeLayout) {
  EXPECT_EQ(ToDate(1, L"31/12/2023", 2), L"TO_DATE('2023/12/31 00:00:00','YYYY/MM/DD HH24:MI:SS')");
  EXPECT_EQ(ToDate(3, L"31/12/2023", 2), L"STR_TO_DATE('2023/12/31 00:00:00','%Y/%m/%d %T')");
}

TEST(SQLToDate, ACodeWithoutDialectRaisesForDatesAndExpressions) {
  ExpectNoEntry(L"SQLToDate", [] { SQLToDate(L"31/12/2023", 0); });
  ExpectNoEntry(L"SQLToDate", [] { SQLToDate(L"c.DATA", 3); });
}

}  // namespace
}  // namespace kodra::sql
