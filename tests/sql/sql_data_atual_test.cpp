#include "sql/dialect.h"
#include "tests/sql/dialect_codes.h"
#include "text/format_date.h"

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
  void DateAdd(text::Writer&, text::Piece, text::Piece, text::Piece) const override {}
  text::Piece CurrentDate() const override { return {}; }
  void ToDate(text::Writer&, text::Piece, std::int32_t) const override {}
  bool HasDateLiterals() const override { return false; }
  void DateLiteral(text::Writer&, const text::Calendar&, std::int32_t) const override {}
  void ToInt(text::Writer&, text::Piece) const override {}
  void ToChar(text::Writer&, text::Piece, text::Piece) const override {}
  text::Piece ConcatSeparator() const override { return {}; }
  text::Piece NullReplacer() const override { return {}; }
  text::Piece DefaultDateType() const override { return {}; }
};

TEST(SQLDataAtual, ADialectWithoutATextGetsTodayByTheLocalClockAsALiteral) {
  std::wstring before;
  std::wstring literal;
  std::wstring after;
  do {  // once more, should midnight pass in between
    before = text::FormatDate<L"'yyyy-mm-dd'">(text::Today());
    text::LocalText<20> written;
    WriteCurrentDate(written, Wordless());
    literal = written.View();
    after = text::FormatDate<L"'yyyy-mm-dd'">(text::Today());
  } while (before != after);
  EXPECT_EQ(literal, before);
  ASSERT_EQ(literal.size(), 12U);
  EXPECT_EQ(literal.front(), L'\'');
  EXPECT_EQ(literal.back(), L'\'');
}

}  // namespace
}  // namespace kodra::sql
