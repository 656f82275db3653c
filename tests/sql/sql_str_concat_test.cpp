#include <vector>

#include "tests/sql/dialect_codes.h"
#include "values/automation.h"

namespace kodra::sql {
namespace {

class SomeObject final : public AutomationObject {
 public:
  Value Get(std::wstring_view) override { return L"never asked"; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }
};

std::wstring Concat(std::int32_t code, const std::vector<Value>& parts) {
  DefineTipoBanco(code);
  return SQLStrConcat(parts);
}

TEST(SQLStrConcat, OracleDB2AndSQLiteJoinByBars) {
  for (const std::int32_t code : {1, 5, 6, 7}) {
    EXPECT_EQ(Concat(code, {L"a.X", L"'-'", L"a.Y"}), L"a.X || '-' || a.Y");
  }
}
TEST(SQLStrConcat, SQLServerJoinsByPlus) { EXPECT_EQ(Concat(2, {L"a.X", L"'-'", L"a.Y"}), L"a.X + '-' + a.Y"); }
TEST(SQLStrConcat, MySQLCallsConcat) { EXPECT_EQ(Concat(3, {L"a.X", L"'-'", L"a.Y"}), L"CONCAT(a.X,'-',a.Y)"); }

TEST(SQLStrConcat, OneArgumentStandsAloneExceptOnMySQL) {
  for (const std::int32_t code : {1, 2, 5, 6, 7}) EXPECT_EQ(Concat(code, {L"A"}), L"A");
  EXPECT_EQ(Concat(3, {L"A"}), L"CONCAT(A)");
}

TEST(SQLStrConcat, NoArgumentGivesNothing) {
  for (const std::int32_t code : {1, 2, 3, 5, 6, 7}) {
    EXPECT_EQ(Concat(code, {}), L"");
  }
}

TEST(SQLStrConcat, AnEmptyArgumentKeepsItsSeparators) {
  EXPECT_EQ(Concat(1, {L"", L"b"}), L" || b");
  EXPECT_EQ(Concat(2, {L"a", L""}), L"a + ");
  EXPECT_EQ(Concat(3, {L"", L""}), L"CONCAT(,)");
}

TEST(SQLStrConcat, OneEmptyArgumentGivesNothingEvenOnMySQL) {
  for (const std::int32_t code : {1, 2, 3, 6, 7}) EXPECT_EQ(Concat(code, {L""}), L"");
}

TEST(SQLStrConcat, ValuesBecomeTextByTheBrazilianConventions) {
  EXPECT_EQ(
      Concat(1, {Value(L"a.X"), Value(std::int32_t{7}), Value(1.5), Value(true), Value(Empty{}), Value(Date{45291})}),
      L"a.X || 7 || 1,5 || Verdadeiro ||  || 31/12/2023");
  EXPECT_EQ(Concat(3, {Value(std::int64_t{8}), Value(false)}), L"CONCAT(8,Falso)");
}

TEST(SQLStrConcat, AnArgumentWithoutTextGivesNothing) {
  const ObjectRef object = std::make_shared<SomeObject>();
  for (const std::int32_t code : {1, 2, 3, 6, 7}) {
    EXPECT_EQ(Concat(code, {Value(L"a"), Value(Null{}), Value(L"b")}), L"");
    EXPECT_EQ(Concat(code, {Value(L"a"), Value(ObjectRef())}), L"");
    EXPECT_EQ(Concat(code, {Value(object)}), L"");
  }
}

TEST(SQLStrConcat, ACodeWithoutDialectGivesNothingAndRaisesNothing) {
  for (const std::int32_t code : kCodesWithoutDialect) {
    EXPECT_EQ(Concat(code, {L"a.X", L"a.Y"}), L"");
    EXPECT_EQ(Concat(code, {Value(L"a.X"), Value(Null{})}), L"");
    EXPECT_EQ(Concat(code, {}), L"");
  }
}

}  // namespace
}  // namespace kodra::sql
