#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

// A text, its layout, and its translation for a database.
struct Reading {
  const wchar_t* text;
  std::int32_t layout;
  const wchar_t* expected;
};

void ExpectReadings(std::initializer_list<std::int32_t> codes, std::initializer_list<Reading> readings) {
  for (const std::int32_t code : codes)
    for (const Reading& reading : readings) {
      SCOPED_TRACE(testing::PrintToString(reading.text) + " in layout " + std::to_string(reading.layout));
      ExpectOnEach({{code, reading.expected}}, [&] { return SQLToDate(reading.text, reading.layout); });
    }
}

const auto kOracleAndDB2 = {tbOracle, tbOracleAlt, tbDB2};

TEST(SQLToDate, OracleAndDB2MakeADateALiteralOfTheLayout) {
  ExpectReadings(kOracleAndDB2,
                 {{L"31/12/2023", fdDDMMYYYY, L"TO_DATE('31/12/2023','DD/MM/YYYY')"},
                  {L"31/12/2023", fdYYYYMMDD, L"TO_DATE('2023/12/31','YYYY/MM/DD')"},
                  {L"31/12/2023 10:20:30", fdDateTime, L"TO_DATE('2023/12/31 10:20:30','YYYY/MM/DD HH24:MI:SS')"}});
}
TEST(SQLToDate, OracleAndDB2TakeAnExpressionVerbatim) {
  ExpectReadings(kOracleAndDB2, {{L"c.DATA", fdDDMMYYYY, L"TO_DATE(c.DATA,'DD/MM/YYYY')"},
                                 {L"c.DATA", fdYYYYMMDD, L"TO_DATE(c.DATA,'YYYY/MM/DD')"},
                                 {L"c.DATA", fdDateTime, L"TO_DATE(c.DATA,'YYYY/MM/DD HH24:MI:SS')"},
                                 {L"'31/12/2023'", fdDDMMYYYY, L"TO_DATE('31/12/2023','DD/MM/YYYY')"},
                                 {L"", fdDDMMYYYY, L"TO_DATE(,'DD/MM/YYYY')"}});
}
TEST(SQLToDate, OracleAndDB2HaveNoPatternForAnotherLayoutAndLeaveADateAsItIs) {
  ExpectReadings(kOracleAndDB2, {{L"c.DATA", 3, L"TO_DATE(c.DATA,'')"},
                                 {L"31/12/2023", 3, L"TO_DATE(31/12/2023,'')"},
                                 {L"31/12/2023", -1, L"TO_DATE(31/12/2023,'')"}});
}

TEST(SQLToDate, MySQLReadsAnExpressionByTheCompactPattern) {
  ExpectReadings({tbMySQL}, {{L"c.DATA", fdDDMMYYYY, L"STR_TO_DATE(c.DATA,'%d%m%Y')"},
                             {L"c.DATA", fdYYYYMMDD, L"STR_TO_DATE(c.DATA,'%Y%m%d')"},
                             {L"c.DATA", fdDateTime, L"STR_TO_DATE(c.DATA,'%Y%m%d %T')"},
                             {L"c.DATA", 3, L"STR_TO_DATE(c.DATA,'%d%m%Y')"}});
}
TEST(SQLToDate, MySQLReadsADateByTheSeparatedPattern) {
  ExpectReadings({tbMySQL},
                 {{L"31/12/2023", fdDDMMYYYY, L"STR_TO_DATE('31/12/2023','%d/%m/%Y')"},
                  {L"31/12/2023", fdYYYYMMDD, L"STR_TO_DATE('2023/12/31','%Y/%m/%d')"},
                  {L"31/12/2023 10:20:30", fdDateTime, L"STR_TO_DATE('2023/12/31 10:20:30','%Y/%m/%d %T')"}});
}
TEST(SQLToDate, MySQLQuotesADateOfAnotherLayoutAndKeepsTheCompactPattern) {
  ExpectReadings({tbMySQL}, {{L"31/12/2023", 3, L"STR_TO_DATE('31/12/2023','%d%m%Y')"},
                             {L"2023-12-31", -1, L"STR_TO_DATE('2023-12-31','%d%m%Y')"}});
}

TEST(SQLToDate, SQLServerGetsTheDateItselfAsAnIsoLiteral) {
  ExpectReadings({tbSQLServer}, {{L"31/12/2023", fdDDMMYYYY, L"'20231231'"},
                                 {L"31/12/2023", fdYYYYMMDD, L"'20231231'"},
                                 {L"31/12/2023 10:20:30", fdDateTime, L"'2023-12-31T10:20:30'"},
                                 {L"31/12/2023", fdDateTime, L"'2023-12-31T00:00:00'"},
                                 {L"31/12/2023 10:20:30", fdDDMMYYYY, L"'20231231'"},
                                 {L"31/12/2023", 3, L"'20231231'"}});
}
TEST(SQLToDate, SQLServerHasNoFormForAnExpressionAndReturnsItAsItIs) {
  ExpectReadings({tbSQLServer}, {{L"c.DATA", fdDDMMYYYY, L"c.DATA"}, {L"c.DATA", fdDateTime, L"c.DATA"}});
}

TEST(SQLToDate, SQLiteTakesEveryTextVerbatim) {
  ExpectReadings({tbSQLite}, {{L"c.DATA", fdDDMMYYYY, L"strftime('%d-%m-%Y',c.DATA)"},
                              {L"c.DATA", fdYYYYMMDD, L"strftime('%Y-%m-%d',c.DATA)"},
                              {L"c.DATA", fdDateTime, L"strftime('%Y-%m-%d %H:%M:%S',c.DATA)"},
                              {L"31/12/2023", fdDDMMYYYY, L"strftime('%d-%m-%Y',31/12/2023)"}});
}
TEST(SQLToDate, SQLiteHasNothingForAnotherLayout) {
  ExpectReadings({tbSQLite}, {{L"c.DATA", 3, L""}, {L"31/12/2023", -1, L""}});
}

TEST(SQLToDate, DatesAreReadDayFirstWhateverTheirSpelling) {
  ExpectReadings({tbOracle}, {{L"1/2/2023", fdDDMMYYYY, L"TO_DATE('01/02/2023','DD/MM/YYYY')"},
                              {L"2023-02-01", fdDDMMYYYY, L"TO_DATE('01/02/2023','DD/MM/YYYY')"},
                              {L"12/31/2023", fdDDMMYYYY, L"TO_DATE('31/12/2023','DD/MM/YYYY')"}});
  ExpectReadings({tbMySQL}, {{L" 01-02-23 ", fdYYYYMMDD, L"STR_TO_DATE('2023/02/01','%Y/%m/%d')"}});
}

TEST(SQLToDate, ADateWithoutTimeIsMidnightInTheDateTimeLayout) {
  ExpectReadings({tbOracle}, {{L"31/12/2023", fdDateTime, L"TO_DATE('2023/12/31 00:00:00','YYYY/MM/DD HH24:MI:SS')"}});
  ExpectReadings({tbMySQL}, {{L"31/12/2023", fdDateTime, L"STR_TO_DATE('2023/12/31 00:00:00','%Y/%m/%d %T')"}});
}

TEST(SQLToDate, ACodeWithoutDialectRaisesForDatesAndExpressions) {
  ExpectNoEntry(L"SQLToDate", [] { SQLToDate(L"31/12/2023", fdDDMMYYYY); });
  ExpectNoEntry(L"SQLToDate", [] { SQLToDate(L"c.DATA", 3); });
}

}  // namespace
}  // namespace kodra::sql
