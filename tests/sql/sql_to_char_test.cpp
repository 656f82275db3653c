#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

std::wstring ToChar(std::int32_t code, const std::wstring& format) {
  DefineTipoBanco(code);
  return SQLToChar(L"e.DATA", format);
}

TEST(SQLToChar, OracleAndDB2GetAnyFormatAsTyped) {
  for (const std::int32_t code : {1, 5, 6}) {
    EXPECT_EQ(ToChar(code, L"DD/MM/YYYY HH24"), L"TO_CHAR(e.DATA,'DD/MM/YYYY HH24')");
    EXPECT_EQ(ToChar(code, L"DD/MM/YYYY"), L"TO_CHAR(e.DATA,'DD/MM/YYYY')");
    EXPECT_EQ(ToChar(code, L"HH24"), L"TO_CHAR(e.DATA,'HH24')");
    EXPECT_EQ(ToChar(code, L"dd/mm/yyyy"), L"TO_CHAR(e.DATA,'dd/mm/yyyy')");
    EXPECT_EQ(ToChar(code, L"MON"), L"TO_CHAR(e.DATA,'MON')");
    EXPECT_EQ(ToChar(code, L""), L"TO_CHAR(e.DATA,'')");
  }
}

TEST(SQLToChar, SQLServerCutsTheDateWithHourToTheDate) {
  EXPECT_EQ(ToChar(2, L"DD/MM/YYYY HH24"), L"CONVERT(CHAR(10),e.DATA,103)");
  EXPECT_EQ(ToChar(2, L"DD/MM/YYYY"), L"CONVERT(CHAR(10),e.DATA,103)");
}
TEST(SQLToChar, SQLServerKeepsTheTwoDigitsOfTheHour) { EXPECT_EQ(ToChar(2, L"HH24"), L"CONVERT(CHAR(2),e.DATA,8)"); }
TEST(SQLToChar, SQLServerHasAnEmptyConversionForAnyOtherFormat) {
  EXPECT_EQ(ToChar(2, L"MON"), L"CONVERT(CHAR(0),e.DATA,)");
  EXPECT_EQ(ToChar(2, L""), L"CONVERT(CHAR(0),e.DATA,)");
}

TEST(SQLToChar, MySQLTranslatesTheThreeFormats) {
  EXPECT_EQ(ToChar(3, L"DD/MM/YYYY HH24"), L"DATE_FORMAT(e.DATA,'%d/%m/%Y %H:%i:%s')");
  EXPECT_EQ(ToChar(3, L"DD/MM/YYYY"), L"DATE_FORMAT(e.DATA,'%d/%m/%Y')");
  EXPECT_EQ(ToChar(3, L"HH24"), L"DATE_FORMAT(e.DATA,'%H:%i:%s')");
}
TEST(SQLToChar, MySQLHasAnEmptyPatternForAnyOtherFormat) {
  EXPECT_EQ(ToChar(3, L"MON"), L"DATE_FORMAT(e.DATA,'')");
  EXPECT_EQ(ToChar(3, L""), L"DATE_FORMAT(e.DATA,'')");
}

TEST(SQLToChar, SQLiteGivesNothingForEveryFormat) {
  for (const auto* format : {L"DD/MM/YYYY HH24", L"DD/MM/YYYY", L"dd/mm/yyyy", L"HH24", L"MON", L""}) {
    EXPECT_EQ(ToChar(7, format), L"");
  }
}

TEST(SQLToChar, FormatsAreComparedInUpperCase) {
  EXPECT_EQ(ToChar(2, L"dd/mm/yyyy"), L"CONVERT(CHAR(10),e.DATA,103)");
  EXPECT_EQ(ToChar(2, L"Dd/Mm/Yyyy hh24"), L"CONVERT(CHAR(10),e.DATA,103)");
  EXPECT_EQ(ToChar(2, L"hh24"), L"CONVERT(CHAR(2),e.DATA,8)");
  EXPECT_EQ(ToChar(3, L"dd/mm/yyyy"), L"DATE_FORMAT(e.DATA,'%d/%m/%Y')");
  EXPECT_EQ(ToChar(3, L"dd/mm/yyyy hh24"), L"DATE_FORMAT(e.DATA,'%d/%m/%Y %H:%i:%s')");
  EXPECT_EQ(ToChar(3, L"hh24"), L"DATE_FORMAT(e.DATA,'%H:%i:%s')");
}

TEST(SQLToChar, FormatsAreNotTrimmed) {
  EXPECT_EQ(ToChar(2, L" DD/MM/YYYY"), L"CONVERT(CHAR(0),e.DATA,)");
  EXPECT_EQ(ToChar(3, L"DD/MM/YYYY "), L"DATE_FORMAT(e.DATA,'')");
}

TEST(SQLToChar, ACodeWithoutDialectRaisesWhateverTheFormat) {
  ExpectNoEntry(L"SQLToChar", [] { SQLToChar(L"x", L"HH24"); });
  ExpectNoEntry(L"SQLToChar", [] { SQLToChar(L"x", L""); });
}

}  // namespace
}  // namespace kodra::sql
