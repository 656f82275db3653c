#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

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

}  // namespace
}  // namespace kodra::sql
