#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

std::wstring Today(std::int32_t code) {
  DefineTipoBanco(code);
  return SQLDataAtual();
}

TEST(SQLDataAtual, EachDatabaseHasItsOwnText) {
  EXPECT_EQ(Today(1), L"TRUNC(SYSDATE)");
  EXPECT_EQ(Today(2), L"DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))");
  EXPECT_EQ(Today(3), L"CURDATE()");
  EXPECT_EQ(Today(5), L"TRUNC(SYSDATE)");
  EXPECT_EQ(Today(6), L"CURRENT DATE");
  EXPECT_EQ(Today(7), L"date('now')");
}

TEST(SQLDataAtual, ACodeWithoutDialectRaises) {
  ExpectNoEntry(L"SQLDataAtual", [] { SQLDataAtual(); });
}

}  // namespace
}  // namespace kodra::sql
