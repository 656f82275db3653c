// Containers: their list, their labels, and the modules on a label.
#include <algorithm>

#include "tests/rows/cases.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kList{L"CContainerRpt", L"RelatorioContainers"};
const Report kLabels{L"CContainerRpt", L"EtiquetaAbertura"};
const Report kModules{L"CContainerRpt", L"EtiquetaAberturaSubRpt"};

std::vector<Caixa> ModulesIn(const Text& container) {
  std::vector<Caixa> modules;
  std::copy_if(All<Caixa>().begin(), All<Caixa>().end(), std::back_inserter(modules),
               [&](const Caixa& c) { return c.container == container; });
  return modules;
}

Table Containers() {
  Table expected({L"NUM_CONTAINER", L"DESC_CONTAINER"});
  for (const Container& c : All<Container>()) expected.Add(c.numContainer, c.descContainer);
  return expected;
}

Table ModulesOf(const std::vector<Text>& containers) {
  Table expected({L"CONTAINER", L"NUM_CAIXA"});
  for (const Text& container : containers) {
    for (const Caixa& module : ModulesIn(container)) expected.Add(container, module.numCaixa);
  }
  return expected;
}

std::vector<Case> ListAndModules() {
  return {
      {"AllContainersByNumber", kList, {}, Containers, {L"NUM_CONTAINER", L"DESC_CONTAINER"}},
      {"ModulesOfTwoContainers",
       kModules,
       {{L"Container1", L"CT0003"}, {L"Container2", L""}, {L"Container3", L"CT0001"}},
       [] {
         return ModulesOf({L"CT0001", L"CT0003"});
       },
       {L"CONTAINER", L"NUM_CAIXA"}},
      {"ModulesOfThreeContainers",
       kModules,
       {{L"Container1", L"CT0005"}, {L"Container2", L"CT0001"}, {L"Container3", L"CT0003"}},
       [] {
         return ModulesOf({L"CT0001", L"CT0003", L"CT0005"});
       },
       {L"CONTAINER", L"NUM_CAIXA"}},
  };
}
INSTANTIATE_TEST_SUITE_P(Containers, ReportRows, testing::Combine(testing::ValuesIn(ListAndModules()), BothEngines()),
                         CaseName);

const std::vector<std::wstring> kLabelColumns{L"CONTAINER", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"NOME_EMPRESA"};
constexpr Day kZeroDate = std::chrono::year(1899) / 12 / 30;

class ContainerLabelRows : public OnBothEngines {
 protected:
  // A label's statement joins its modules with every row of parameters, and the last row read names the company; the
  // database decides which of the two that is.
  static Value CompanyOn(const Text& container) {
    const Table joined =
        Query(L"SELECT p.EMPRESA FROM CAIXA cx INNER JOIN PARAMETRO p ON 1=1 WHERE cx.CONTAINER='" + container + L"'",
              Sample());
    return joined.rows.back().front();
  }

  // The label of a container with modules, which both databases read in the order of their numbers because they use the
  // index of the column. The label has the latest date. As soon as one module has a term, its kind is that of a term;
  // otherwise it is the kind of the last module.
  static void AddLabel(Table& labels, const Text& container) {
    Day latest = kZeroDate;
    Text kind;
    for (const Caixa& module : ModulesIn(container)) {
      if (module.dataVencimento) latest = std::max(latest, *module.dataVencimento);
      if (kind != L"T") kind = module.dataVencimento ? L"T" : module.tipoGuarda.value_or(L"");
    }
    labels.Add(container, latest, kind, CompanyOn(container));
  }

  static Table LabelsOf(const Text& first, const Text& second = {}, const Text& third = {}) {
    return RowsOf(kLabels, {{L"Container1", first}, {L"Container2", second}, {L"Container3", third}});
  }
};
INSTANTIATE_TEST_SUITE_P(, ContainerLabelRows, BothEngines(), EngineName);

TEST_P(ContainerLabelRows, HaveTheLatestDateAndTheKindOfATermIfThereIsAny) {
  std::size_t labels = 0;
  for (const Container& container : All<Container>()) {
    if (ModulesIn(container.numContainer).empty()) continue;
    Table expected(kLabelColumns);
    AddLabel(expected, container.numContainer);
    ExpectExactly(LabelsOf(container.numContainer), expected);
    ++labels;
  }
  EXPECT_GE(labels, 4U);
}

TEST_P(ContainerLabelRows, OfUndatedModulesHaveTheZeroDateAndTheirLastModulesKind) {
  Table expected(kLabelColumns);
  expected.Add(L"CT9001", kZeroDate, L"E", CompanyOn(L"CT9001"));
  ExpectExactly(LabelsOf(L"CT9001"), expected);
}

TEST_P(ContainerLabelRows, OfUndatedModulesKeepTheKindOfATermOnceMet) {
  const std::vector<Caixa> modules = ModulesIn(L"CT0001");
  ASSERT_TRUE(std::none_of(modules.begin(), modules.end(), [](const Caixa& c) { return c.dataVencimento; }));
  ASSERT_TRUE(std::any_of(modules.begin(), modules.end(), [](const Caixa& c) { return c.tipoGuarda == L"T"; }));
  Table expected(kLabelColumns);
  expected.Add(L"CT0001", kZeroDate, L"T", CompanyOn(L"CT0001"));
  ExpectExactly(LabelsOf(L"", L"CT0001"), expected);
}

TEST_P(ContainerLabelRows, OfADatedModuleHaveTheKindOfATermThoughTheLastModuleWasDiscarded) {
  Table expected(kLabelColumns);
  expected.Add(L"CT9002", Find(&Caixa::numCaixa, Text(L"ZZ001"))->dataVencimento, L"T", CompanyOn(L"CT9002"));
  ExpectExactly(LabelsOf(L"CT9002"), expected);
}

TEST_P(ContainerLabelRows, AreInTheRequestedOrderAndTheSameContainerTwiceIsTwo) {
  for (const std::vector<Text>& asked :
       {std::vector<Text>{L"CT0003", L"CT0001", L"CT0003"}, {L"CT0003", L"CT0002", L""}, {L"CT0002", L"", L"CT0002"}}) {
    Table expected(kLabelColumns);
    for (const Text& container : asked) {
      if (!container.empty()) AddLabel(expected, container);
    }
    ExpectExactly(LabelsOf(asked[0], asked[1], asked[2]), expected);
  }
}

TEST_P(ContainerLabelRows, AreNoneForContainersThatAreEmptyOrUnknown) {
  ASSERT_NE(Find(&Container::numContainer, Text(L"CT0006")), nullptr);
  ASSERT_TRUE(ModulesIn(L"CT0006").empty());
  ExpectNoRows(LabelsOf(L"CT0006", L"", L"XX"), kLabelColumns);
  ExpectNoRows(LabelsOf(L"CT0006", L"CT9999"), kLabelColumns);
  ExpectNoRows(RowsOf(kModules), ModulesOf({}).columns);
}

// The label of a container with three undated modules of the kinds E, E and D after one more change: date and kind.
std::pair<Value, Value> LabelOfThree(const std::wstring& change) {
  const ChangedArchive archive({L"DELETE FROM PARAMETRO WHERE CODIGO <> '1'",
                                L"DELETE FROM CAIXA WHERE NUM_CAIXA NOT IN ('AA001', 'AA002', 'AA003')",
                                L"UPDATE CAIXA SET CONTAINER = 'CT0001', TIPO_GUARDA = 'E', DATA_VENCIMENTO = NULL",
                                L"UPDATE CAIXA SET TIPO_GUARDA = 'D' WHERE NUM_CAIXA = 'AA003'", change});
  const Table labels = RowsAt(archive.ConnectionString(), kLabels, {{L"Container1", L"CT0001"}});
  EXPECT_EQ(labels.rows.size(), 1U);
  return {labels.Column(L"DATA_VENCIMENTO").at(0), labels.Column(L"TIPO_GUARDA").at(0)};
}
std::pair<Value, Value> DateAndKind(Day date, const wchar_t* kind) { return {Cell(date), Cell(kind)}; }

TEST(ContainerLabelRowsOfAChangedArchive, HaveTheKindOfTheLastModuleWhereNoneIsKeptForATerm) {
  EXPECT_EQ(LabelOfThree(L"UPDATE CAIXA SET TIPO_GUARDA = NULL WHERE NUM_CAIXA = 'AA002'"),
            DateAndKind(kZeroDate, L"D"));
  EXPECT_EQ(LabelOfThree(L"UPDATE CAIXA SET TIPO_GUARDA = NULL WHERE NUM_CAIXA = 'AA003'"),
            DateAndKind(kZeroDate, L""));
}

TEST(ContainerLabelRowsOfAChangedArchive, AreKeptForATermAsSoonAsOneModuleIsDated) {
  EXPECT_EQ(LabelOfThree(L"UPDATE CAIXA SET DATA_VENCIMENTO = '2031-05-06' WHERE NUM_CAIXA = 'AA002'"),
            DateAndKind(std::chrono::year(2031) / 5 / 6, L"T"));
}

TEST(ContainerLabelRowsOfAChangedArchive, HaveTheLatestDateWhicheverModuleHasIt) {
  EXPECT_EQ(LabelOfThree(L"UPDATE CAIXA SET DATA_VENCIMENTO = CASE NUM_CAIXA WHEN 'AA001' THEN '2019-01-01' "
                         L"WHEN 'AA002' THEN '2031-05-06' ELSE '2030-12-31' END"),
            DateAndKind(std::chrono::year(2031) / 5 / 6, L"T"));
}

TEST(ContainerErrors, OfOneContainersModulesFailTheWholeSheet) {
  const ChangedArchive archive({L"DROP TABLE CAIXA"});
  for (const Report& report : {kLabels, kModules})
    EXPECT_EQ(ErrorAt(archive.ConnectionString(), report, {{L"Container1", L"CT0002"}}),
              Framed(L"CContainerRpt::" + report.method, RefusedBySqlite(L"no such table: CAIXA")));
}

}  // namespace
}  // namespace kodra::rows
