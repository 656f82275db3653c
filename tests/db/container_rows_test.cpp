// Containers: their list, their labels, and the modules on a label.
#include <algorithm>

#include "reports/modules/container_rpt.h"
#include "tests/db/reports_on.h"
#include "tests/odbc/print_value.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class ContainerRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(ContainerRows);

frame::ParameterObject Obj(const Text& first = {}, const Text& second = {}, const Text& third = {}) {
  return Reports::Parameters(L"CContainerRptObj",
                             {{L"Container1", first}, {L"Container2", second}, {L"Container3", third}});
}

std::vector<Caixa> ModulesIn(const Text& container) {
  std::vector<Caixa> modules;
  std::copy_if(Reports::All<Caixa>().begin(), Reports::All<Caixa>().end(), std::back_inserter(modules),
               [&](const Caixa& c) { return c.container == container; });
  return modules;
}

const std::vector<std::wstring> kLabelColumns{L"CONTAINER", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"NOME_EMPRESA"};

// The label of a container that holds modules. A term, once met, stays its kind; without any it is its last module's.
// No order is asked of the database: both read the index of the column, whose rows stand by the modules' numbers.
void AddLabel(Table& labels, const Text& container) {
  Day latest = std::chrono::year(1899) / 12 / 30;
  Text kind;
  for (const Caixa& module : ModulesIn(container)) {
    if (module.dataVencimento) latest = std::max(latest, *module.dataVencimento);
    if (kind != L"T") kind = module.dataVencimento ? L"T" : module.tipoGuarda.value_or(L"");
  }
  labels.Add(container, latest, kind, Reports::Company());
}

// The rows of labels, on the first of which their recordset is. Their statement joins every row of parameters, and the
// last one read names the company: of the two that the archive has it may be either, and counts as the installation's.
Table LabelRows(frame::ReportRows rows) {
  Table labels = Read(*rows);
  const Text other = *Reports::Find(&Parametro::codigo, Text(L"2"))->empresa;
  for (Table::Row& label : labels.rows) {
    if (label.back() == Cell(other)) label.back() = Cell(Reports::Company());
  }
  return labels;
}

TEST_P(ContainerRows, AllContainersByNumber) {
  Table expected({L"NUM_CONTAINER", L"DESC_CONTAINER"});
  for (const Container& c : All<Container>()) expected.Add(c.numContainer, c.descContainer);
  ExpectRows(RowsOf(&CContainerRpt::RelatorioContainers, Obj()), expected, {L"NUM_CONTAINER", L"DESC_CONTAINER"});
}

TEST_P(ContainerRows, ALabelHasTheLatestDateAndItsKindIsThatOfATermIfThereIsAny) {
  std::size_t labels = 0;
  for (const Container& container : All<Container>()) {
    if (ModulesIn(container.numContainer).empty()) continue;
    Table expected(kLabelColumns);
    AddLabel(expected, container.numContainer);
    ExpectRows(LabelRows(Open(&CContainerRpt::EtiquetaAbertura, Obj(container.numContainer))), expected);
    ++labels;
  }
  EXPECT_GE(labels, 4U);
}

TEST_P(ContainerRows, AContainerOfUndatedModulesHasTheZeroDateAndItsLastModulesKind) {
  Table expected(kLabelColumns);
  expected.Add(L"CT9001", Day(std::chrono::year(1899) / 12 / 30), L"E", Company());
  ExpectRows(LabelRows(Open(&CContainerRpt::EtiquetaAbertura, Obj(L"CT9001"))), expected);
}

TEST_P(ContainerRows, AContainerWithADatedModuleHasTheKindOfATermThoughItsLastModuleWasDiscarded) {
  Table expected(kLabelColumns);
  expected.Add(L"CT9002", Find(&Caixa::numCaixa, Text(L"ZZ001"))->dataVencimento, L"T", Company());
  ExpectRows(LabelRows(Open(&CContainerRpt::EtiquetaAbertura, Obj(L"CT9002"))), expected);
}

TEST_P(ContainerRows, LabelsComeInTheOrderAskedAndTheSameContainerTwiceGivesTwo) {
  Table expected(kLabelColumns);
  for (const wchar_t* container : {L"CT0003", L"CT0001", L"CT0003"}) AddLabel(expected, container);
  ExpectExactly(LabelRows(Open(&CContainerRpt::EtiquetaAbertura, Obj(L"CT0003", L"CT0001", L"CT0003"))), expected);
}

TEST_P(ContainerRows, ContainersThatAreEmptyOrNotThereHaveNoLabel) {
  const auto found = std::find_if(All<Container>().begin(), All<Container>().end(),
                                  [](const Container& c) { return ModulesIn(c.numContainer).empty(); });
  ASSERT_NE(found, All<Container>().end());
  const Text empty = found->numContainer;
  const frame::ReportRows rows = Open(&CContainerRpt::EtiquetaAbertura, Obj(empty, L"", L"XX"));
  EXPECT_EQ(rows->State(), platform::ad::kStateOpen);
  ExpectNoRows(Read(*rows), kLabelColumns);
}

TEST_P(ContainerRows, TheModulesOnTheLabelsStandByContainerAndNumber) {
  Table expected({L"CONTAINER", L"NUM_CAIXA"});
  for (const wchar_t* container : {L"CT0001", L"CT0003"}) {
    for (const Caixa& module : ModulesIn(container)) expected.Add(container, module.numCaixa);
  }
  ExpectRows(RowsOf(&CContainerRpt::EtiquetaAberturaSubRpt, Obj(L"CT0003", L"", L"CT0001")), expected,
             {L"CONTAINER", L"NUM_CAIXA"});
}

}  // namespace
}  // namespace kodra::tests
