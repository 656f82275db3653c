#include "sql/dialect.h"
#include "tests/sql/dialect_codes.h"
#include "text/dates.h"

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

// A dialect that cannot name today's date.
class Wordless final : public Dialect {
 public:
  std::wstring DateAdd(std::wstring_view, std::wstring_view, std::wstring_view) const override { return {}; }
  std::wstring_view CurrentDate() const override { return {}; }
  std::wstring ToDate(std::wstring_view, std::int32_t) const override { return {}; }
  bool HasDateLiterals() const override { return false; }
  std::wstring DateLiteral(platform::Date, std::int32_t) const override { return {}; }
  std::wstring ToInt(std::wstring_view) const override { return {}; }
  std::wstring ToChar(std::wstring_view, std::wstring_view) const override { return {}; }
  std::wstring_view ConcatSeparator() const override { return {}; }
  std::wstring Concat(std::wstring joined) const override { return joined; }
  std::wstring_view NullReplacer() const override { return {}; }
  std::wstring_view DefaultDateType() const override { return {}; }
};

TEST(SQLDataAtual, ADialectWithoutATextGetsTodayByTheLocalClockAsALiteral) {
  std::wstring before;
  std::wstring literal;
  std::wstring after;
  do {  // once more, should midnight pass in between
    before = text::FormatDate(text::Today(), L"'yyyy-mm-dd'");
    literal = CurrentDateOf(Wordless());
    after = text::FormatDate(text::Today(), L"'yyyy-mm-dd'");
  } while (before != after);
  EXPECT_EQ(literal, before);
  ASSERT_EQ(literal.size(), 12U);
  EXPECT_EQ(literal.front(), L'\'');
  EXPECT_EQ(literal.back(), L'\'');
}

}  // namespace
}  // namespace kodra::sql
