// The SELECT builder.
#include "data/select_builder.h"

#include <gtest/gtest.h>

namespace kodra::data {
namespace {

SelectBuilder Media() {
  SelectBuilder select;
  select.SetColumns(L"NUM_CD, DOC_INICIAL");
  select.SetFrom(L"CD");
  return select;
}

TEST(SelectBuilderTest, HasColumnsAndTableAlone) { EXPECT_EQ(Media().SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD"); }

TEST(SelectBuilderTest, PutsTheClausesInTheOrderOfSqlInWhateverOrderTheyWereSet) {
  SelectBuilder select;
  select.SetOrderBy(L"3, 2");
  select.SetGroupBy(L"a.X, b.Y");
  select.AddJoin(1, JoinKind::kLeftOuter, L"C c", L"c.X = b.X");
  select.SetWhere(L"(1=1) AND a.Z<>'0'");
  select.AddJoin(0, JoinKind::kInner, L"B b", L"b.X = a.X");
  select.SetFrom(L"A a");
  select.SetColumns(L"a.X, b.Y, COUNT(*)");
  EXPECT_EQ(select.SQL(),
            L"SELECT a.X, b.Y, COUNT(*) FROM A a INNER JOIN B b ON b.X = a.X LEFT JOIN C c ON c.X = b.X "
            L"WHERE (1=1) AND a.Z<>'0' GROUP BY a.X, b.Y ORDER BY 3, 2");
}

TEST(SelectBuilderTest, LeavesOutEachClauseThatIsNotSet) {
  SelectBuilder where = Media();
  where.SetWhere(L"NUM_CD=1");
  EXPECT_EQ(where.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD WHERE NUM_CD=1");
  SelectBuilder group = Media();
  group.SetGroupBy(L"NUM_CD");
  EXPECT_EQ(group.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD GROUP BY NUM_CD");
  SelectBuilder order = Media();
  order.SetOrderBy(L"NUM_CD");
  EXPECT_EQ(order.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD ORDER BY NUM_CD");
}

TEST(SelectBuilderTest, DropsAWhereThatIsSetEmptyAgain) {
  SelectBuilder select = Media();
  select.SetWhere(L"NUM_CD=1");
  select.SetWhere(L"");
  EXPECT_EQ(select.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD");
}

TEST(SelectBuilderTest, ReturnsColumnsAndConditionSoThatTheyCanBeExtended) {
  SelectBuilder select = Media();
  EXPECT_EQ(select.Columns(), L"NUM_CD, DOC_INICIAL");
  EXPECT_EQ(select.Where(), L"");
  select.SetColumns(select.Columns() + L", DOC_FINAL");
  select.SetWhere(L"(1=1)");
  EXPECT_EQ(select.Where(), L"(1=1)");
  select.SetWhere(select.Where() + L" AND NUM_CD=1");
  EXPECT_EQ(select.SQL(), L"SELECT NUM_CD, DOC_INICIAL, DOC_FINAL FROM CD WHERE (1=1) AND NUM_CD=1");
}

TEST(SelectBuilderTest, ReplacesClausesBeforeAndAfterOthers) {
  SelectBuilder select = Media();
  select.SetWhere(L"NUM_CD=1");
  select.SetOrderBy(L"NUM_CD");
  select.SetFrom(L"CD c");
  select.SetColumns(L"*");
  select.SetOrderBy(L"1");
  EXPECT_EQ(select.SQL(), L"SELECT * FROM CD c WHERE NUM_CD=1 ORDER BY 1");
  EXPECT_EQ(select.Columns(), L"*");
  EXPECT_EQ(select.Where(), L"NUM_CD=1");
}

TEST(SelectBuilderTest, InsertsEveryFragmentUnchanged) {
  SelectBuilder select;
  select.SetColumns(L"'Mídias; \"x\"' AS RELATORIO ");
  select.SetFrom(L"CD");
  EXPECT_EQ(select.SQL(), L"SELECT 'Mídias; \"x\"' AS RELATORIO  FROM CD");
}

TEST(SelectBuilderTest, SortsJoinsByTheirPosition) {
  SelectBuilder select = Media();
  for (const std::int32_t index : {10, 2, 0, 1})
    select.AddJoin(index, JoinKind::kInner, L"T" + std::to_wstring(index), L"1=" + std::to_wstring(index));
  EXPECT_EQ(select.SQL(),
            L"SELECT NUM_CD, DOC_INICIAL FROM CD INNER JOIN T0 ON 1=0 INNER JOIN T1 ON 1=1 INNER JOIN T2 ON 1=2 "
            L"INNER JOIN T10 ON 1=10");
}

TEST(SelectBuilderTest, ReplacesAJoinAtTheSamePosition) {
  SelectBuilder select = Media();
  select.AddJoin(0, JoinKind::kInner, L"A", L"1=1");
  select.AddJoin(0, JoinKind::kLeftOuter, L"B", L"2=2");
  EXPECT_EQ(select.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD LEFT JOIN B ON 2=2");
}

TEST(SelectBuilderTest, ReplacesAJoinBetweenOthersByALongerOne) {
  SelectBuilder select = Media();
  select.SetWhere(L"3=3");
  for (const std::int32_t index : {0, 1, 2})
    select.AddJoin(index, JoinKind::kInner, L"T" + std::to_wstring(index), L"1=" + std::to_wstring(index));
  select.AddJoin(1, JoinKind::kLeftOuter, L"LONGER t", L"t.X = 1");
  select.AddJoin(3, JoinKind::kInner, L"T3", L"1=3");
  EXPECT_EQ(select.SQL(),
            L"SELECT NUM_CD, DOC_INICIAL FROM CD INNER JOIN T0 ON 1=0 LEFT JOIN LONGER t ON t.X = 1 "
            L"INNER JOIN T2 ON 1=2 INNER JOIN T3 ON 1=3 WHERE 3=3");
}

TEST(SelectBuilderTest, AcceptsTextsOfAnyLength) {
  const std::wstring longPart(3000, L'x');
  SelectBuilder select = Media();
  select.SetWhere(longPart);
  select.SetColumns(select.Columns() + L", " + longPart);
  select.AddJoin(1, JoinKind::kInner, L"B", longPart);
  select.AddJoin(0, JoinKind::kInner, L"A", longPart);
  EXPECT_EQ(select.SQL(), L"SELECT NUM_CD, DOC_INICIAL, " + longPart + L" FROM CD INNER JOIN A ON " + longPart +
                              L" INNER JOIN B ON " + longPart + L" WHERE " + longPart);
}

TEST(SelectBuilderTest, CopiesAreIndependent) {
  const SelectBuilder media = Media();
  SelectBuilder copy = media;
  copy.SetWhere(L"NUM_CD=1");
  EXPECT_EQ(media.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD");
  EXPECT_EQ(copy.SQL(), L"SELECT NUM_CD, DOC_INICIAL FROM CD WHERE NUM_CD=1");
}

}  // namespace
}  // namespace kodra::data
