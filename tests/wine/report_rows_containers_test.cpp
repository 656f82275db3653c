// The rows of the container reports from the sample archive, compared with rows worked out from its tables.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

constexpr const wchar_t* kReport = L"CContainerRpt";

class ContainerRows : public OnBothDatabases {
 protected:
  Rows Labels(const Properties& properties) const { return RowsOf(kReport, L"EtiquetaAbertura", properties); }
  // The label of a container with dated modules: kept for a term, until the last of their dates.
  Cells DatedLabel(const std::wstring& container) const {
    Cell latest;
    for (const Row& c : TableOf(L"CAIXA").Where(L"CONTAINER", container))
      latest = std::max(latest, c[L"DATA_VENCIMENTO"]);
    EXPECT_TRUE(latest);
    return {container, latest, L"T", LastCompany()};
  }
  // Each module is joined with every installation; the last one's name stays.
  Cell LastCompany() const {
    const auto rows = Create(L"ADODB.Recordset");
    Got(Call(rows, L"Open",
             {L"SELECT p.EMPRESA FROM CAIXA cx INNER JOIN PARAMETRO p ON 1=1 WHERE cx.CONTAINER='CT0002'", Connection(),
              0, 1, 1}));
    return ReadAll(rows).rows.back()[0];
  }
};
KODRA_ON_BOTH_DATABASES(ContainerRows);

const Names kLabelColumns = {L"CONTAINER", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"NOME_EMPRESA"};

TEST_P(ContainerRows, OfTheListAreAllContainersByNumber) {
  Rows expected{{L"NUM_CONTAINER", L"DESC_CONTAINER"}, {}};
  for (const Row& container : All(L"CONTAINER")) expected.rows.push_back(container.Pick(expected.columns));
  ExpectRows(expected, RowsOf(kReport, L"RelatorioContainers"), {L"NUM_CONTAINER", L"DESC_CONTAINER"});
}

TEST_P(ContainerRows, OfLabelsHaveTheLatestDateOfTheirModules) {
  const Cells second = DatedLabel(L"CT0002");
  const Cells third = DatedLabel(L"CT0003");
  EXPECT_NE(second[1], third[1]);
  ExpectExactly({kLabelColumns, {third, second}},
                Labels({{L"Container1", L"CT0003"}, {L"Container2", L"CT0002"}, {L"Container3", L""}}));
}

TEST_P(ContainerRows, OfLabelsHaveTheZeroDateWhereNoModuleIsDated) {
  bool keptForATerm = false;
  for (const Row& c : TableOf(L"CAIXA").Where(L"CONTAINER", L"CT0001")) {
    EXPECT_FALSE(c[L"DATA_VENCIMENTO"]);
    keptForATerm = keptForATerm || c[L"TIPO_GUARDA"] == L"T";
  }
  EXPECT_TRUE(keptForATerm);  // that kind stays once a module has it, dated or not
  ExpectExactly({kLabelColumns, {{L"CT0001", L"1899-12-30 00:00:00", L"T", LastCompany()}}},
                Labels({{L"Container2", L"CT0001"}}));
}

TEST_P(ContainerRows, OfLabelsForTheSameContainerTwiceAreTwo) {
  const Cells label = DatedLabel(L"CT0002");
  ExpectExactly({kLabelColumns, {label, label}}, Labels({{L"Container1", L"CT0002"}, {L"Container3", L"CT0002"}}));
}

TEST_P(ContainerRows, OfLabelsAreNoneForAContainerWithoutModules) {
  EXPECT_TRUE(Find(L"CONTAINER", L"NUM_CONTAINER", L"CT0006"));
  EXPECT_TRUE(TableOf(L"CAIXA").Where(L"CONTAINER", L"CT0006").empty());
  ExpectNoRows(kLabelColumns, Labels({{L"Container1", L"CT0006"}, {L"Container2", L"CT9999"}}));
}

TEST_P(ContainerRows, OfLabelsCarryTheContainerAsItWasGiven) {
  const Rows labels = Labels({{L"Container1", L"CT0002"}});
  ASSERT_EQ(1U, labels.rows.size());
  EXPECT_EQ(L"CT0002", labels.rows[0][0]);
}

TEST_P(ContainerRows, OfTheSubReportAreTheModulesOfThreeContainers) {
  Rows expected{{L"CONTAINER", L"NUM_CAIXA"}, {}};
  for (const wchar_t* container : {L"CT0001", L"CT0003", L"CT0005"})
    for (const Row& c : TableOf(L"CAIXA").Where(L"CONTAINER", container))
      expected.rows.push_back(c.Pick(expected.columns));
  EXPECT_LT(3U, expected.rows.size());
  ExpectRows(expected,
             RowsOf(kReport, L"EtiquetaAberturaSubRpt",
                    {{L"Container1", L"CT0005"}, {L"Container2", L"CT0001"}, {L"Container3", L"CT0003"}}),
             {L"CONTAINER", L"NUM_CAIXA"});
  ExpectNoRows(expected.columns, RowsOf(kReport, L"EtiquetaAberturaSubRpt"));
}

// The label of a container with three undated modules of the kinds E, E and D after one more change.
Cells LabelOfThree(const std::wstring& change) {
  const OwnArchive archive({L"DELETE FROM PARAMETRO WHERE CODIGO <> '1'",
                            L"DELETE FROM CAIXA WHERE NUM_CAIXA NOT IN ('AA001', 'AA002', 'AA003')",
                            L"UPDATE CAIXA SET CONTAINER = 'CT0001', TIPO_GUARDA = 'E', DATA_VENCIMENTO = NULL",
                            L"UPDATE CAIXA SET TIPO_GUARDA = 'D' WHERE NUM_CAIXA = 'AA003'", change});
  const auto parameters = ParametersOf(kReport, {{L"Container1", L"CT0001"}});
  const auto labels =
      Got(RunReport(kReport, L"EtiquetaAbertura", Var(parameters.get()), archive.Connection())).object();
  const Rows rows = ReadAll(labels);
  EXPECT_EQ(1U, rows.rows.size());
  return rows.rows.at(0);
}

TEST(ContainerRowsOfOwnArchive, OfLabelsHaveTheKindOfTheLastModuleWhereNoneIsKeptForATerm) {
  const Cells label = LabelOfThree(L"UPDATE CAIXA SET TIPO_GUARDA = NULL WHERE NUM_CAIXA = 'AA002'");
  EXPECT_EQ(L"1899-12-30 00:00:00", label[1]);
  EXPECT_EQ(L"D", label[2]);
  EXPECT_EQ(L"", LabelOfThree(L"UPDATE CAIXA SET TIPO_GUARDA = NULL WHERE NUM_CAIXA = 'AA003'")[2]);
}

TEST(ContainerRowsOfOwnArchive, OfLabelsAreKeptForATermAsSoonAsOneModuleIsDated) {
  const Cells label = LabelOfThree(L"UPDATE CAIXA SET DATA_VENCIMENTO = '2031-05-06' WHERE NUM_CAIXA = 'AA002'");
  EXPECT_EQ(L"2031-05-06 00:00:00", label[1]);
  EXPECT_EQ(L"T", label[2]);
}

TEST(ContainerRowsOfOwnArchive, OfLabelsHaveTheLatestDateWhereverItsModuleStands) {
  const Cells label = LabelOfThree(
      L"UPDATE CAIXA SET DATA_VENCIMENTO = CASE NUM_CAIXA WHEN 'AA001' THEN '2019-01-01' WHEN 'AA002' THEN "
      L"'2031-05-06' "
      L"ELSE '2030-12-31' END");
  EXPECT_EQ(L"2031-05-06 00:00:00", label[1]);
  EXPECT_EQ(L"T", label[2]);
}

TEST(ContainerErrors, OfOneContainersModulesFailTheWholeSheet) {
  const OwnArchive archive({L"DROP TABLE CAIXA"});
  const auto parameters = ParametersOf(kReport, {{L"Container1", L"CT0002"}});
  for (const wchar_t* method : {L"EtiquetaAbertura", L"EtiquetaAberturaSubRpt"})
    EXPECT_EQ(Framed(std::wstring(L"CContainerRpt::") + method, RefusedBySQLite(L"no such table: CAIXA")),
              RunReport(kReport, method, Var(parameters.get()), archive.Connection()).failure);
}

}  // namespace
}  // namespace kodra::face
