// The operator and department of a production statistic, without any database.
#include "reports/statistics/production_filter.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"

namespace kodra::reports {
namespace {

using recorder::Lines;
using recorder::Utf8;

// A statement with that filter behind one join.
std::string Filtered(const ProductionFilter& filter, std::int32_t expectedNext) {
  data::SelectBuilder builder;
  builder.SetColumns(L"d.X");
  builder.SetFrom(L"DOCUMENTO d");
  builder.AddJoin(0, data::JoinKind::kInner, L"SUPORTE s", L"1=1");
  EXPECT_EQ(filter.AddJoins(builder, 1, L"d.COD_INDEXADOR"), expectedNext);
  builder.SetWhere(L"(1=1)" + filter.Conditions(L"d.COD_INDEXADOR"));
  return Utf8(builder.SQL());
}

std::string Columns(const ProductionFilter& filter) { return Utf8(filter.Columns()); }

TEST(ProductionFilterTest, NamesAllWhereNoneIsChosen) {
  EXPECT_EQ(Columns({}), "'Todos os Operadores' AS OPERADOR, 'Todos os Departamentos' AS DEPTO, ");
  EXPECT_EQ(Columns(ProductionFilter{L"7", L""}), "o.DESCR_OPERADOR AS OPERADOR, 'Todos os Departamentos' AS DEPTO, ");
  EXPECT_EQ(Columns(ProductionFilter{L"", L"D01"}), "'Todos os Operadores' AS OPERADOR, dp.DESCR_DEPTO AS DEPTO, ");
  EXPECT_EQ(Columns(ProductionFilter{L"7", L"D01"}), "o.DESCR_OPERADOR AS OPERADOR, dp.DESCR_DEPTO AS DEPTO, ");
}

TEST(ProductionFilterTest, JoinsOnlyTheTablesOfWhatIsChosen) {
  EXPECT_EQ(Filtered({}, 1), "SELECT d.X FROM DOCUMENTO d INNER JOIN SUPORTE s ON 1=1 WHERE (1=1)");
  EXPECT_EQ(Filtered({L"7", L""}, 2),
            "SELECT d.X FROM DOCUMENTO d INNER JOIN SUPORTE s ON 1=1 "
            "INNER JOIN OPERADOR o ON d.COD_INDEXADOR = o.COD_OPERADOR WHERE (1=1) AND d.COD_INDEXADOR = '7'");
  EXPECT_EQ(Filtered({L"", L"D01"}, 2),
            "SELECT d.X FROM DOCUMENTO d INNER JOIN SUPORTE s ON 1=1 "
            "INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO WHERE (1=1) AND d.COD_DEPTO = 'D01'");
  EXPECT_EQ(Filtered({L"7", L"D01"}, 3),
            "SELECT d.X FROM DOCUMENTO d INNER JOIN SUPORTE s ON 1=1 "
            "INNER JOIN OPERADOR o ON d.COD_INDEXADOR = o.COD_OPERADOR "
            "INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO "
            "WHERE (1=1) AND d.COD_INDEXADOR = '7' AND d.COD_DEPTO = 'D01'");
}

TEST(ProductionFilterTest, InsertsCodesAsTheyAre) {
  EXPECT_EQ(Filtered({L"O'X", L" "}, 3),
            "SELECT d.X FROM DOCUMENTO d INNER JOIN SUPORTE s ON 1=1 "
            "INNER JOIN OPERADOR o ON d.COD_INDEXADOR = o.COD_OPERADOR "
            "INNER JOIN DEPTO dp ON d.COD_DEPTO = dp.COD_DEPTO "
            "WHERE (1=1) AND d.COD_INDEXADOR = 'O'X' AND d.COD_DEPTO = ' '");
}

TEST(ProductionFilterTest, IsReadFromOperatorToDepartment) {
  recorder::FakeSurroundings around;
  const ObjectRef parameters = around.NewObject(L"Parametros", {{L"CodOperador", {7}}, {L"CodDepto", {L""}}});
  const ProductionFilter filter = ReadProductionFilter(*parameters);
  EXPECT_EQ(filter.operatorCode, L"7");
  EXPECT_EQ(filter.departmentCode, L"");
  EXPECT_EQ(around.journal.Calls(), Lines({"Parametros.Get(CodOperador) -> 7", R"(Parametros.Get(CodDepto) -> "")"}));
}

}  // namespace
}  // namespace kodra::reports
