#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

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
