#include <vector>

#include "tests/recorder/fake_surroundings.h"
#include "tests/sql/dialect_codes.h"

namespace kodra::sql {
namespace {

using Parts = std::vector<Value>;

// Expects those texts for the concatenation of the parts.
void ExpectJoined(const Parts& parts, std::initializer_list<Returned> expected) {
  ExpectOnEach(expected, [&] { return SQLStrConcat(parts); });
}

TEST(SQLStrConcat, EachDatabaseJoinsInItsOwnWay) {
  ExpectJoined({L"a.X", L"'-'", L"a.Y"}, {{tbOracle, L"a.X || '-' || a.Y"},
                                          {tbSQLServer, L"a.X + '-' + a.Y"},
                                          {tbMySQL, L"CONCAT(a.X,'-',a.Y)"},
                                          {tbOracleAlt, L"a.X || '-' || a.Y"},
                                          {tbDB2, L"a.X || '-' || a.Y"},
                                          {tbSQLite, L"a.X || '-' || a.Y"}});
}

TEST(SQLStrConcat, OneArgumentIsReturnedAloneExceptOnMySQL) {
  ExpectJoined({L"A"}, {{tbOracle, L"A"},
                        {tbSQLServer, L"A"},
                        {tbMySQL, L"CONCAT(A)"},
                        {tbOracleAlt, L"A"},
                        {tbDB2, L"A"},
                        {tbSQLite, L"A"}});
}

TEST(SQLStrConcat, NoArgumentIsTheEmptyText) {
  ExpectOnAll(L"", [] { return SQLStrConcat({}); });
}

TEST(SQLStrConcat, AnEmptyArgumentKeepsItsSeparators) {
  ExpectJoined({L"", L"b"}, {{tbOracle, L" || b"}});
  ExpectJoined({L"a", L""}, {{tbSQLServer, L"a + "}});
  ExpectJoined({L"", L""}, {{tbMySQL, L"CONCAT(,)"}});
}

TEST(SQLStrConcat, OneEmptyArgumentIsTheEmptyTextEvenOnMySQL) {
  ExpectOnAll(L"", [] { return SQLStrConcat({L""}); });
}

TEST(SQLStrConcat, ValuesBecomeTextByTheBrazilianConventions) {
  ExpectJoined({L"a.X", std::int32_t{7}, 1.5, true, Empty{}, Date{45291}},
               {{tbOracle, L"a.X || 7 || 1,5 || Verdadeiro ||  || 31/12/2023"}});
  ExpectJoined({std::int64_t{8}, false}, {{tbMySQL, L"CONCAT(8,Falso)"}});
}

TEST(SQLStrConcat, AnArgumentWithoutTextMakesItEmpty) {
  recorder::FakeSurroundings around;
  const ObjectRef object = around.NewObject(L"Objeto", {});
  for (const Parts& parts : {Parts{L"a", Null{}, L"b"}, Parts{L"a", ObjectRef()}, Parts{object}})
    ExpectOnAll(L"", [&] { return SQLStrConcat(parts); });
}

TEST(SQLStrConcat, ACodeWithoutDialectMakesItEmptyAndRaisesNothing) {
  for (const std::int32_t code : kCodesWithoutDialect)
    for (const Parts& parts : {Parts{L"a.X", L"a.Y"}, Parts{L"a.X", Null{}}, Parts{}})
      ExpectJoined(parts, {{code, L""}});
}

}  // namespace
}  // namespace kodra::sql
