// The labels of modules.
#include <algorithm>

#include "tests/rows/cases.h"
#include "tests/rows/module_rows.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kOpening{L"CCaixaRpt", L"EtiquetaAbertura"};
const Report kClosing{L"CCaixaRpt", L"EtiquetaFechamento"};
const Report kClosingOfSubordinates{L"CCaixaRpt", L"EtiquetaFechamentoSubordinada"};
const Report kDividers{L"CCaixaRpt", L"EtiquetaDivisoria"};

// The parent module whose subordinates satisfy a condition.
template <class Condition>
Text ParentWhere(Condition condition) {
  for (const Caixa& module : All<Caixa>()) {
    std::vector<CaixaSubordinada> subordinates;
    for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
      if (s.numCaixa == module.numCaixa) subordinates.push_back(s);
    }
    if (condition(subordinates)) return module.numCaixa;
  }
  return {};
}
bool IsClosed(const CaixaSubordinada& s) { return s.dataFechamento.has_value(); }

Text ParentOfOpenOnes() {
  return ParentWhere([](const auto& subordinates) {
    return !subordinates.empty() && std::none_of(subordinates.begin(), subordinates.end(), IsClosed);
  });
}
Text ParentOfBothKinds() {
  return ParentWhere([](const auto& subordinates) {
    const auto closed = std::count_if(subordinates.begin(), subordinates.end(), IsClosed);
    return closed > 0 && closed < static_cast<std::ptrdiff_t>(subordinates.size());
  });
}
Text ParentOfClosedOnes() {
  return ParentWhere([](const auto& subordinates) {
    return !subordinates.empty() && std::all_of(subordinates.begin(), subordinates.end(), IsClosed);
  });
}

std::function<Table()> Opening(const std::set<Text>& modules) {
  return [=] { return OpeningLabels(modules, kOverAString); };
}
std::function<Table()> OpeningOfSubordinates(const std::set<Text>& codes) {
  return [=] { return OpeningLabelsOfSubordinates(codes, kOverAString); };
}
std::function<Table()> Closing(const std::set<Text>& modules) {
  return [=] { return ClosingLabels(modules); };
}
std::function<Table()> ClosingOfSubordinates(const Text& parent) {
  return [=] {
    EXPECT_EQ(ClosingLabelsOfSubordinates(parent).rows.size(), 3U);
    return ClosingLabelsOfSubordinates(parent);
  };
}
std::function<Table()> Dividers(const Text& module) {
  return [=] {
    EXPECT_GT(DocumentsOf(module).rows.size(), 10U);
    return DocumentsOf(module);
  };
}

std::vector<Case> Labels() {
  const std::vector<std::wstring> byModule{L"NUM_CAIXA"};
  const std::vector<std::wstring> byDocument{L"COD_DOCTO"};
  return {
      {"OpeningLabelsTwiceForOneModule", kOpening, {{L"Modulo1", L"AA013"}}, Opening({L"AA013"}), byModule},
      {"OpeningLabelsTwiceForTwoModulesOfNoKind",
       kOpening,
       {{L"Tipo", L""}, {L"Modulo1", L"AA004"}, {L"Modulo2", L"AA001"}},
       Opening({L"AA001", L"AA004"}),
       byModule},
      {"OpeningLabelsTwiceForTwoModulesOfAnotherKind",
       kOpening,
       {{L"Tipo", L"P"}, {L"Modulo1", L"AA004"}, {L"Modulo2", L"AA001"}},
       Opening({L"AA001", L"AA004"}),
       byModule},
      {"OpeningLabelsTwiceForThreeModules",
       kOpening,
       {{L"Modulo1", L"AA013"}, {L"Modulo2", L"AA004"}, {L"Modulo3", L"AA007"}},
       Opening({L"AA004", L"AA007", L"AA013"}),
       byModule},
      {"OpeningLabelsTwiceForASubordinate",
       kOpening,
       {{L"Tipo", L"S"}, {L"Modulo1", L"AA00102"}},
       OpeningOfSubordinates({L"AA00102"}),
       byModule},
      {"OpeningLabelsTwiceForThreeSubordinates",
       kOpening,
       {{L"Tipo", L"sub"}, {L"Modulo1", L"AA00101"}, {L"Modulo2", L"ZZ00302"}, {L"Modulo3", L"AA00409"}},
       OpeningOfSubordinates({L"AA00101", L"ZZ00302", L"AA00409"}),
       byModule},
      {"OpeningLabelsTwiceForThreeSubordinatesAtLength",
       kOpening,
       {{L"Tipo", L"Subordinado"}, {L"Modulo1", L"AA00410"}, {L"Modulo2", L"AA00102"}, {L"Modulo3", L"AA00409"}},
       OpeningOfSubordinates({L"AA00102", L"AA00410", L"AA00409"}),
       byModule},
      {"ClosingLabelsOnceForTheFirstModules",
       kClosing,
       {{L"Modulo1", L"AA007"}, {L"Modulo2", L"AA001"}, {L"Modulo3", L"AA002"}},
       Closing({L"AA001", L"AA002", L"AA007"}),
       byModule},
      {"ClosingLabelsOnceForThreeModules",
       kClosing,
       {{L"Modulo1", L"AA023"}, {L"Modulo2", L"AA002"}, {L"Modulo3", L"AA008"}},
       Closing({L"AA002", L"AA008", L"AA023"}),
       byModule},
      {"ClosingLabelsOfSubordinatesThatAreAllClosed",
       kClosingOfSubordinates,
       {{L"Modulo1", ParentOfClosedOnes()}},
       ClosingOfSubordinates(ParentOfClosedOnes()),
       byModule},
      {"ClosingLabelsOfTheOpenSubordinatesToo",
       kClosingOfSubordinates,
       {{L"Modulo1", ParentOfBothKinds()}},
       ClosingOfSubordinates(ParentOfBothKinds()),
       byModule},
      {"DividersOfTheFirstModule", kDividers, {{L"Modulo1", L"AA001"}}, Dividers(L"AA001"), byDocument},
      {"DividersOfAModule", kDividers, {{L"Modulo1", L"AA004"}}, Dividers(L"AA004"), byDocument},
      // A subordinate has the rows of its parent.
      {"DividersOfASubordinate", kDividers, {{L"Modulo1", L"AA00102"}}, Dividers(L"AA001"), byDocument},
      {"DividersOfAnotherSubordinate", kDividers, {{L"Modulo1", L"AA00409"}}, Dividers(L"AA004"), byDocument},
  };
}
INSTANTIATE_TEST_SUITE_P(ModuleLabels, ReportRows, testing::Combine(testing::ValuesIn(Labels()), BothEngines()),
                         CaseName);

class ModuleLabelRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, ModuleLabelRows, BothEngines(), EngineName);

TEST_P(ModuleLabelRows, OfAnUnknownModuleAreNone) {
  ExpectNoRows(RowsOf(kOpening, {{L"Modulo1", L"XX999"}}), OpeningLabels({}, kOverAString).columns);
  ExpectNoRows(RowsOf(kDividers, {{L"Modulo1", L"XX999"}}), {L"COD_DOCTO"});
}

TEST_P(ModuleLabelRows, OfClosedSubordinatesAreAnErrorWithoutAClosedOne) {
  ASSERT_FALSE(ParentOfOpenOnes().empty());
  ASSERT_TRUE(ClosingLabelsOfSubordinates(L"AA002").rows.empty());
  for (const Text& parent : {ParentOfOpenOnes(), Text(L"AA002")})
    EXPECT_EQ(ErrorOf(kClosingOfSubordinates, {{L"Modulo1", parent}}),
              Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                     L"Não há módulos subordinados fechados associados ao módulo " + parent));
}

TEST_P(ModuleLabelRows, OfClosedSubordinatesAreAnErrorForAnUnknownModule) {
  EXPECT_EQ(ErrorOf(kClosingOfSubordinates, {{L"Modulo1", L"XX999"}}),
            Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo XX999"));
}

TEST(ModuleErrors, OfTheDatabaseNameTheOpenerAsTheirSource) {
  const ChangedArchive archive({L"DROP TABLE CAIXA"});
  EXPECT_EQ(ErrorAt(archive.ConnectionString(), kOpening, {{L"Modulo1", L"AA001"}}),
            (Raised{kReportError, L"modADO.AbreFirehoseRs",
                    L"Erro ao gerar dados para o relatório: " + RefusedBySqlite(L"no such table: CAIXA")}));
}

}  // namespace
}  // namespace kodra::rows
