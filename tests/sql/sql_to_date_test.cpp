#include "tests/sql/dialect_codes.h"
#include "values/erro.h"
#include "values/format_date.h"

namespace kodra::sql {
namespace {

std::wstring ToDate(std::int32_t code, std::wstring_view text, std::int32_t layout) {
  DefineTipoBanco(code);
  return ToString(SQLToDate(text, layout));
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

constexpr values::Calendar kLastDay = {.year = 2023, .month = 12, .day = 31};

// A date goes into the statement as its text would.
TEST(SQLToDate, TakesADateAsItsText) {
  const Date dates[] = {{0}, {0.5}, {-1.25}, {45291}, {45291.999999}, {45352.75}, {-657434}, {2958465.9}};
  for (const std::int32_t code : {1, 2, 3, 5, 6, 7}) {
    DefineTipoBanco(code);
    for (const std::int32_t layout : {fdDDMMYYYY, fdYYYYMMDD}) {
      for (const Date date : dates) {
        const values::Calendar day = values::ToCalendar(date);
        EXPECT_EQ(ToString(SQLToDate(day, values::DateAsText(day), layout)),
                  ToString(SQLToDate(values::DateToText(date), layout)))
            << code << ' ' << date.days;
        EXPECT_EQ(ToString(SQLToDate(day, values::DateBy<L"yyyy-mm-dd 23:59:59">(day), layout)),
                  ToString(SQLToDate(values::FormatDate<L"yyyy-mm-dd 23:59:59">(date), layout)))
            << code << ' ' << date.days;
      }
    }
  }
  DefineTipoBanco(1);
  EXPECT_EQ(ToString(SQLToDate(kLastDay, values::DateAsText(kLastDay), fdDDMMYYYY)),
            L"TO_DATE('31/12/2023','DD/MM/YYYY')");
  DefineTipoBanco(7);
  EXPECT_EQ(ToString(SQLToDate(kLastDay, values::DateBy<L"yyyy-mm-dd 00:00:00">(kLastDay), fdYYYYMMDD)),
            L"strftime('%Y-%m-%d',2023-12-31 00:00:00)");
}
TEST(SQLToDate, TakesNoDateForACodeWithoutDialect) {
  DefineTipoBanco(4);
  EXPECT_THROW(SQLToDate(kLastDay, values::DateAsText(kLastDay), fdDDMMYYYY), Erro);
  EXPECT_THROW(SQLToDate(kLastDay, values::DateBy<L"yyyy-mm-dd">(kLastDay), fdDDMMYYYY), Erro);
}

}  // namespace
}  // namespace kodra::sql
