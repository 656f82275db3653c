// SQLDataAtual, SQLDateAdd, SQLToDate and SQLToChar.
#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

TEST(SQLDataAtual, EachDatabaseHasItsOwnText) {
  ExpectOnEach({{tbOracle, L"TRUNC(SYSDATE)"},
                {tbSQLServer, L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))"},
                {tbMySQL, L"CURDATE()"},
                {tbOracleAlt, L"TRUNC(SYSDATE)"},
                {tbDB2, L"CURRENT DATE"},
                {tbSQLite, L"date('now')"}},
               SQLDataAtual);
}

TEST(SQLDataAtual, ACodeWithoutDialectRaises) { ExpectNoEntry(L"SQLDataAtual", SQLDataAtual); }

constexpr const wchar_t* kMinutes[] = {L"MINUTE", L"MIN", L"NN", L"minute", L"Min", L"min", L"nn"};
constexpr const wchar_t* kDays[] = {L"DAY", L"DD", L"D", L"day", L"Dd", L"dd", L"d"};
constexpr const wchar_t* kMonths[] = {L"MONTH", L"MM", L"M", L"month", L"mM", L"mm", L"m"};
constexpr const wchar_t* kYears[] = {L"YEAR", L"YYYY", L"Y", L"A", L"AA", L"AAAA", L"year", L"yyyy", L"a", L"aaaa"};

// Expects those texts for adding 30 of an interval to x.
void ExpectSums(const wchar_t* interval, std::initializer_list<Returned> expected) {
  SCOPED_TRACE(testing::PrintToString(interval));
  ExpectOnEach(expected, [interval] { return SQLDateAdd(interval, L"30", L"x"); });
}

TEST(SQLDateAdd, MinutesAreAddedByEachDatabaseInItsOwnWay) {
  for (const auto name : kMinutes)
    ExpectSums(name, {{tbOracle, L"x + 30 / 1440"},
                      {tbOracleAlt, L"x + 30 / 1440"},
                      {tbDB2, L"x + 30 / 1440"},
                      {tbSQLite, L"datetime('x', '+30 minutes')"}});
}
TEST(SQLDateAdd, DaysAreAddedByEachDatabaseInItsOwnWay) {
  for (const auto name : kDays)
    ExpectSums(name, {{tbOracle, L"x + 30"},
                      {tbSQLServer, L"DATEADD(dd, 30, x)"},
                      {tbMySQL, L"DATE_ADD(x, INTERVAL 30 DAY)"},
                      {tbOracleAlt, L"x + 30"},
                      {tbDB2, L"x + 30"},
                      {tbSQLite, L"date('x', '+30 days')"}});
}
TEST(SQLDateAdd, MonthsAreAddedByEachDatabaseInItsOwnWay) {
  for (const auto name : kMonths)
    ExpectSums(name, {{tbOracle, L"ADD_MONTHS(x, 30)"},
                      {tbSQLServer, L"DATEADD(mm, 30, x)"},
                      {tbMySQL, L"DATE_ADD(x, INTERVAL 30 MONTH)"},
                      {tbOracleAlt, L"ADD_MONTHS(x, 30)"},
                      {tbDB2, L"ADD_MONTHS(x, 30)"},
                      {tbSQLite, L"date('x', '+30 months')"}});
}
TEST(SQLDateAdd, YearsAreAddedByEachDatabaseInItsOwnWay) {
  for (const auto name : kYears)
    ExpectSums(name, {{tbOracle, L"ADD_MONTHS(x, 30 * 12)"},
                      {tbSQLServer, L"DATEADD(yyyy, 30, x)"},
                      {tbMySQL, L"DATE_ADD(x, INTERVAL 30 YEAR)"},
                      {tbOracleAlt, L"ADD_MONTHS(x, 30 * 12)"},
                      {tbDB2, L"ADD_MONTHS(x, 30 * 12)"},
                      {tbSQLite, L"date('x', '+30 years')"}});
}

TEST(SQLDateAdd, SQLServerGetsMinutesAsTheCallerSpelledThem) {
  ExpectSums(L"min", {{tbSQLServer, L"DATEADD(min, 30, x)"}});
  ExpectSums(L"MINUTE", {{tbSQLServer, L"DATEADD(MINUTE, 30, x)"}});
  ExpectSums(L"Nn", {{tbSQLServer, L"DATEADD(Nn, 30, x)"}});
}
TEST(SQLDateAdd, MySQLGetsMinutesAsTheCallerSpelledThem) {
  ExpectSums(L"min", {{tbMySQL, L"DATE_ADD(x, INTERVAL 30 min)"}});
  ExpectSums(L"MINUTE", {{tbMySQL, L"DATE_ADD(x, INTERVAL 30 MINUTE)"}});
  ExpectSums(L"Nn", {{tbMySQL, L"DATE_ADD(x, INTERVAL 30 Nn)"}});
}

TEST(SQLDateAdd, AnUnknownIntervalIsTheEmptyTextOnOracleDB2AndSQLite) {
  for (const auto name : {L"WEEK", L"", L" DAY"})
    ExpectSums(name, {{tbOracle, L""}, {tbOracleAlt, L""}, {tbDB2, L""}, {tbSQLite, L""}});
}
TEST(SQLDateAdd, AnUnknownIntervalPassesThroughOnSQLServerAndMySQL) {
  ExpectSums(L"WEEK", {{tbSQLServer, L"DATEADD(WEEK, 30, x)"}, {tbMySQL, L"DATE_ADD(x, INTERVAL 30 WEEK)"}});
  ExpectSums(L"week", {{tbSQLServer, L"DATEADD(week, 30, x)"}, {tbMySQL, L"DATE_ADD(x, INTERVAL 30 week)"}});
  ExpectSums(L"", {{tbSQLServer, L"DATEADD(, 30, x)"}, {tbMySQL, L"DATE_ADD(x, INTERVAL 30 )"}});
}

TEST(SQLDateAdd, OracleAddsTheValidityOfAMediumInYears) {
  ExpectOnEach({{tbOracle, L"ADD_MONTHS(t.VALIDADE, 2 * 12)"}}, [] { return SQLDateAdd(L"a", L"2", L"t.VALIDADE"); });
}

TEST(SQLDateAdd, ArgumentsAreNeitherTrimmedNorQuoted) {
  ExpectOnEach({{tbOracle, L" a.B  +  -1 "},
                {tbSQLServer, L"DATEADD(dd,  -1 ,  a.B )"},
                {tbMySQL, L"DATE_ADD( a.B , INTERVAL  -1  DAY)"},
                {tbSQLite, L"date(' a.B ', '+ -1  days')"}},
               [] { return SQLDateAdd(L"D", L" -1 ", L" a.B "); });
}

TEST(SQLDateAdd, ACodeWithoutDialectRaisesWhateverTheInterval) {
  for (const auto interval : {L"D", L"WEEK"})
    ExpectNoEntry(L"SQLDateAdd", [interval] { SQLDateAdd(interval, L"1", L"x"); });
}

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

// Expects those texts for e.DATA in that format.
void ExpectFormat(const wchar_t* format, std::initializer_list<Returned> expected) {
  SCOPED_TRACE(testing::PrintToString(format));
  ExpectOnEach(expected, [format] { return SQLToChar(L"e.DATA", format); });
}

TEST(SQLToChar, OracleAndDB2GetAnyFormatAsTyped) {
  for (const std::int32_t code : {tbOracle, tbOracleAlt, tbDB2}) {
    ExpectFormat(L"DD/MM/YYYY HH24", {{code, L"TO_CHAR(e.DATA,'DD/MM/YYYY HH24')"}});
    ExpectFormat(L"DD/MM/YYYY", {{code, L"TO_CHAR(e.DATA,'DD/MM/YYYY')"}});
    ExpectFormat(L"HH24", {{code, L"TO_CHAR(e.DATA,'HH24')"}});
    ExpectFormat(L"dd/mm/yyyy", {{code, L"TO_CHAR(e.DATA,'dd/mm/yyyy')"}});
    ExpectFormat(L"MON", {{code, L"TO_CHAR(e.DATA,'MON')"}});
    ExpectFormat(L"", {{code, L"TO_CHAR(e.DATA,'')"}});
  }
}

TEST(SQLToChar, SQLServerCutsTheDateWithHourToTheDate) {
  for (const auto format : {L"DD/MM/YYYY HH24", L"DD/MM/YYYY", L"dd/mm/yyyy", L"Dd/Mm/Yyyy hh24"})
    ExpectFormat(format, {{tbSQLServer, L"CONVERT(CHAR(10),e.DATA,103)"}});
}
TEST(SQLToChar, SQLServerKeepsTheTwoDigitsOfTheHour) {
  for (const auto format : {L"HH24", L"hh24"}) ExpectFormat(format, {{tbSQLServer, L"CONVERT(CHAR(2),e.DATA,8)"}});
}
TEST(SQLToChar, SQLServerHasAnEmptyConversionForAnyOtherFormat) {
  for (const auto format : {L"MON", L"", L" DD/MM/YYYY"})
    ExpectFormat(format, {{tbSQLServer, L"CONVERT(CHAR(0),e.DATA,)"}});
}

TEST(SQLToChar, MySQLTranslatesTheThreeFormatsInAnyLetterCase) {
  for (const auto format : {L"DD/MM/YYYY HH24", L"dd/mm/yyyy hh24"})
    ExpectFormat(format, {{tbMySQL, L"DATE_FORMAT(e.DATA,'%d/%m/%Y %H:%i:%s')"}});
  for (const auto format : {L"DD/MM/YYYY", L"dd/mm/yyyy"})
    ExpectFormat(format, {{tbMySQL, L"DATE_FORMAT(e.DATA,'%d/%m/%Y')"}});
  for (const auto format : {L"HH24", L"hh24"}) ExpectFormat(format, {{tbMySQL, L"DATE_FORMAT(e.DATA,'%H:%i:%s')"}});
}
TEST(SQLToChar, MySQLHasAnEmptyPatternForAnyOtherFormat) {
  for (const auto format : {L"MON", L"", L"DD/MM/YYYY "}) ExpectFormat(format, {{tbMySQL, L"DATE_FORMAT(e.DATA,'')"}});
}

TEST(SQLToChar, SQLiteReturnsTheEmptyTextForEveryFormat) {
  for (const auto format : {L"DD/MM/YYYY HH24", L"DD/MM/YYYY", L"dd/mm/yyyy", L"HH24", L"MON", L""})
    ExpectFormat(format, {{tbSQLite, L""}});
}

TEST(SQLToChar, ACodeWithoutDialectRaisesWhateverTheFormat) {
  for (const auto format : {L"HH24", L""}) ExpectNoEntry(L"SQLToChar", [format] { SQLToChar(L"x", format); });
}

}  // namespace
}  // namespace kodra::sql
