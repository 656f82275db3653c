#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

std::wstring ToInt(std::int32_t code, const std::wstring& expr) {
  DefineTipoBanco(code);
  return SQLToInt(expr);
}

TEST(SQLToInt, OracleConvertsByToNumber) {
  EXPECT_EQ(ToInt(1, L"c.NUM"), L"TO_NUMBER(c.NUM)");
  EXPECT_EQ(ToInt(5, L"c.NUM"), L"TO_NUMBER(c.NUM)");
}
TEST(SQLToInt, SQLServerDB2AndSQLiteCastToInt) {
  for (const std::int32_t code : {2, 6, 7}) EXPECT_EQ(ToInt(code, L"c.NUM"), L"CAST(c.NUM AS INT)");
}
TEST(SQLToInt, MySQLCastsToUnsigned) { EXPECT_EQ(ToInt(3, L"c.NUM"), L"CAST(c.NUM AS UNSIGNED)"); }
TEST(SQLToInt, TheExpressionIsTakenVerbatim) { EXPECT_EQ(ToInt(2, L" a + 'b' "), L"CAST( a + 'b'  AS INT)"); }
TEST(SQLToInt, ACodeWithoutDialectRaises) {
  ExpectNoEntry(L"SQLToInt", [] { SQLToInt(L"x"); });
}

}  // namespace
}  // namespace kodra::sql
