#include "sql/dialect.h"
#include "tests/sql/dialect_codes.h"
#include "values/format_date.h"

namespace kodra::sql {
namespace {

std::wstring Today(std::int32_t code) {
  DefineTipoBanco(code);
  return ToString(SQLDataAtual());
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

// A dialect that cannot name today's date.
class Wordless final : public Dialect {
 public:
  void DateAdd(values::Writer&, values::Piece, values::Piece, values::Piece) const override {}
  values::Piece CurrentDate() const override { return {}; }
  void ToDate(values::Writer&, values::Piece, std::int32_t) const override {}
  bool HasDateLiterals() const override { return false; }
  void DateLiteral(values::Writer&, const values::Calendar&, std::int32_t) const override {}
  void ToInt(values::Writer&, values::Piece) const override {}
  void ToChar(values::Writer&, values::Piece, values::Piece) const override {}
  values::Piece ConcatSeparator() const override { return {}; }
  values::Piece NullReplacer() const override { return {}; }
  values::Piece DefaultDateType() const override { return {}; }
};

TEST(SQLDataAtual, ADialectWithoutATextGetsTodayByTheLocalClockAsALiteral) {
  std::wstring before;
  std::wstring literal;
  std::wstring after;
  do {  // once more, should midnight pass in between
    before = values::FormatDate<L"'yyyy-mm-dd'">(values::Today());
    values::LocalText<20> written;
    WriteCurrentDate(written, Wordless());
    literal = written.View();
    after = values::FormatDate<L"'yyyy-mm-dd'">(values::Today());
  } while (before != after);
  EXPECT_EQ(literal, before);
  ASSERT_EQ(literal.size(), 12U);
  EXPECT_EQ(literal.front(), L'\'');
  EXPECT_EQ(literal.back(), L'\'');
}

}  // namespace
}  // namespace kodra::sql
