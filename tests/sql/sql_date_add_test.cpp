#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

std::wstring Add(std::int32_t code, const std::wstring& interval, const std::wstring& number = L"30",
                 const std::wstring& date = L"x") {
  DefineTipoBanco(code);
  return SQLDateAdd(interval, number, date);
}

constexpr const wchar_t* kMinutes[] = {L"MINUTE", L"MIN", L"NN", L"minute", L"Min", L"nn"};
constexpr const wchar_t* kDays[] = {L"DAY", L"DD", L"D", L"day", L"Dd", L"d"};
constexpr const wchar_t* kMonths[] = {L"MONTH", L"MM", L"M", L"month", L"mM", L"m"};
constexpr const wchar_t* kYears[] = {L"YEAR", L"YYYY", L"Y", L"A", L"AA", L"AAAA", L"year", L"yyyy", L"a", L"aaaa"};

TEST(SQLDateAdd, OracleAddsMinutesAsAFractionOfADay) {
  for (const auto name : kMinutes) EXPECT_EQ(Add(1, name), L"x + 30 / 1440");
}
TEST(SQLDateAdd, OracleAddsDaysByPlus) {
  for (const auto name : kDays) EXPECT_EQ(Add(1, name), L"x + 30");
}
TEST(SQLDateAdd, OracleAddsMonthsByAddMonths) {
  for (const auto name : kMonths) EXPECT_EQ(Add(1, name), L"ADD_MONTHS(x, 30)");
}
TEST(SQLDateAdd, OracleAddsYearsAsTwelveMonths) {
  for (const auto name : kYears) EXPECT_EQ(Add(1, name), L"ADD_MONTHS(x, 30 * 12)");
}
TEST(SQLDateAdd, OracleAddsTheValidityOfAMediumInYears) {
  EXPECT_EQ(Add(1, L"a", L"2", L"t.VALIDADE"), L"ADD_MONTHS(t.VALIDADE, 2 * 12)");
}

TEST(SQLDateAdd, TheSecondOracleIsOracle) {
  EXPECT_EQ(Add(5, L"min"), L"x + 30 / 1440");
  EXPECT_EQ(Add(5, L"dd"), L"x + 30");
  EXPECT_EQ(Add(5, L"mm"), L"ADD_MONTHS(x, 30)");
  EXPECT_EQ(Add(5, L"yyyy"), L"ADD_MONTHS(x, 30 * 12)");
  EXPECT_EQ(Add(5, L"WEEK"), L"");
}

TEST(SQLDateAdd, DB2UsesOraclesArithmetic) {
  for (const auto name : kMinutes) EXPECT_EQ(Add(6, name), L"x + 30 / 1440");
  for (const auto name : kDays) EXPECT_EQ(Add(6, name), L"x + 30");
  for (const auto name : kMonths) EXPECT_EQ(Add(6, name), L"ADD_MONTHS(x, 30)");
  for (const auto name : kYears) EXPECT_EQ(Add(6, name), L"ADD_MONTHS(x, 30 * 12)");
}

TEST(SQLDateAdd, SQLServerGetsMinutesAsTheCallerSpelledThem) {
  EXPECT_EQ(Add(2, L"min"), L"DATEADD(min, 30, x)");
  EXPECT_EQ(Add(2, L"MINUTE"), L"DATEADD(MINUTE, 30, x)");
  EXPECT_EQ(Add(2, L"Nn"), L"DATEADD(Nn, 30, x)");
}
TEST(SQLDateAdd, SQLServerHasItsOwnNamesForDaysMonthsAndYears) {
  for (const auto name : kDays) EXPECT_EQ(Add(2, name), L"DATEADD(dd, 30, x)");
  for (const auto name : kMonths) EXPECT_EQ(Add(2, name), L"DATEADD(mm, 30, x)");
  for (const auto name : kYears) EXPECT_EQ(Add(2, name), L"DATEADD(yyyy, 30, x)");
}

TEST(SQLDateAdd, MySQLGetsMinutesAsTheCallerSpelledThem) {
  EXPECT_EQ(Add(3, L"min"), L"DATE_ADD(x, INTERVAL 30 min)");
  EXPECT_EQ(Add(3, L"MINUTE"), L"DATE_ADD(x, INTERVAL 30 MINUTE)");
  EXPECT_EQ(Add(3, L"Nn"), L"DATE_ADD(x, INTERVAL 30 Nn)");
}
TEST(SQLDateAdd, MySQLHasItsOwnNamesForDaysMonthsAndYears) {
  for (const auto name : kDays) EXPECT_EQ(Add(3, name), L"DATE_ADD(x, INTERVAL 30 DAY)");
  for (const auto name : kMonths) EXPECT_EQ(Add(3, name), L"DATE_ADD(x, INTERVAL 30 MONTH)");
  for (const auto name : kYears) EXPECT_EQ(Add(3, name), L"DATE_ADD(x, INTERVAL 30 YEAR)");
}

TEST(SQLDateAdd, SQLiteQuotesTheDateAndAddsAModifier) {
  for (const auto name : kMinutes) EXPECT_EQ(Add(7, name), L"datetime('x', '+30 minutes')");
  for (const auto name : kDays) EXPECT_EQ(Add(7, name), L"date('x', '+30 days')");
  for (const auto name : kMonths) EXPECT_EQ(Add(7, name), L"date('x', '+30 months')");
  for (const auto name : kYears) EXPECT_EQ(Add(7, name), L"date('x', '+30 years')");
}

TEST(SQLDateAdd, AnUnknownIntervalGivesNothingOnOracleDB2AndSQLite) {
  for (const std::int32_t code : {1, 5, 6, 7}) {
    EXPECT_EQ(Add(code, L"WEEK"), L"");
    EXPECT_EQ(Add(code, L""), L"");
    EXPECT_EQ(Add(code, L" DAY"), L"");
  }
}
TEST(SQLDateAdd, AnUnknownIntervalPassesThroughOnSQLServerAndMySQL) {
  EXPECT_EQ(Add(2, L"WEEK"), L"DATEADD(WEEK, 30, x)");
  EXPECT_EQ(Add(2, L"week"), L"DATEADD(week, 30, x)");
  EXPECT_EQ(Add(2, L""), L"DATEADD(, 30, x)");
  EXPECT_EQ(Add(3, L"WEEK"), L"DATE_ADD(x, INTERVAL 30 WEEK)");
  EXPECT_EQ(Add(3, L"week"), L"DATE_ADD(x, INTERVAL 30 week)");
  EXPECT_EQ(Add(3, L""), L"DATE_ADD(x, INTERVAL 30 )");
}

TEST(SQLDateAdd, ArgumentsAreNeitherTrimmedNorQuoted) {
  EXPECT_EQ(Add(1, L"D", L" -1 ", L" a.B "), L" a.B  +  -1 ");
  EXPECT_EQ(Add(2, L"D", L" -1 ", L" a.B "), L"DATEADD(dd,  -1 ,  a.B )");
  EXPECT_EQ(Add(3, L"D", L" -1 ", L" a.B "), L"DATE_ADD( a.B , INTERVAL  -1  DAY)");
  EXPECT_EQ(Add(7, L"D", L" -1 ", L" a.B "), L"date(' a.B ', '+ -1  days')");
}

TEST(SQLDateAdd, ACodeWithoutDialectRaisesWhateverTheInterval) {
  ExpectNoEntry(L"SQLDateAdd", [] { SQLDateAdd(L"D", L"1", L"x"); });
  ExpectNoEntry(L"SQLDateAdd", [] { SQLDateAdd(L"WEEK", L"1", L"x"); });
}

}  // namespace
}  // namespace kodra::sql
