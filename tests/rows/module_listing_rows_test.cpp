// The listings of all modules, main and subordinate together.
#include <algorithm>

#include "tests/rows/cases.h"
#include "tests/rows/module_rows.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kDiscarded{L"CCaixaRpt", L"ModulosExcluidos"};
const Report kDue{L"CCaixaRpt", L"ModulosVencidos"};
const Report kList{L"CCaixaRpt", L"RelatoriosModulos"};
const Report kUnclassified{L"CCaixaRpt", L"DocsNaoIndexadosNosModulos"};

const std::vector<std::wstring> kByDueDate{L"DATA_VENCIMENTO", L"NUM_CAIXA"};
const std::vector<std::wstring> kByNumber{L"NUM_CAIXA"};

std::function<Table()> Discarded(const ModuleFilter& filter) {
  return [=] { return DiscardedModules(filter); };
}
std::function<Table()> Due(const ModuleFilter& filter) {
  return [=] { return DueModules(filter); };
}
std::function<Table()> Modules(const ModuleFilter& filter) {
  return [=] { return AllModules(filter); };
}
std::function<Table()> Unclassified(const ModuleFilter& filter) {
  return [=] { return UnclassifiedDocuments(filter); };
}

std::size_t CountOfSubordinates(const Table& table) {
  const std::vector<Value> codes = table.Column(L"NUM_CAIXA");
  return static_cast<std::size_t>(
      std::count_if(codes.begin(), codes.end(), [](const Value& v) { return v.As<std::wstring>().size() == 7; }));
}

std::vector<Case> DiscardedCases() {
  std::vector<Case> cases{
      {"DiscardedModules", kDiscarded, {}, Discarded({}), kByDueDate},
      {"DiscardedModulesOfTheBackCatalogueAndAllSubordinates",
       kDiscarded,
       {{L"ModoPregresso", true}},
       Discarded({.backCatalogue = true}),
       kByDueDate},
  };
  // A department that is not a number is no filter.
  for (const auto& [name, department] :
       {std::pair("EmptyText", L""), std::pair("Zero", L"0"), std::pair("Zeros", L"000"),
        std::pair("NegativeNumber", L"-1"), std::pair("Word", L"todos"), std::pair("ShortWord", L"abc")})
    cases.push_back({std::string("DiscardedModulesOfADepartmentThatIsA") + name,
                     kDiscarded,
                     {{L"CodDepto", department}},
                     Discarded({}),
                     kByDueDate});
  for (const char* department : {"002", "005", "014", "020"}) {
    const Text code(department, department + 3);
    cases.push_back({std::string("DiscardedModulesOfDepartment") + department,
                     kDiscarded,
                     {{L"CodDepto", code}},
                     Discarded({.department = code}),
                     kByDueDate});
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(DiscardedModules, ReportRows,
                         testing::Combine(testing::ValuesIn(DiscardedCases()), BothEngines()), CaseName);

std::vector<Case> DueCases() {
  std::vector<Case> cases{
      {"DueModules", kDue, {}, Due({}), kByDueDate},
      {"DueModulesOfTheBackCatalogueAndAllSubordinates",
       kDue,
       {{L"ModoPregresso", true}},
       Due({.backCatalogue = true}),
       kByDueDate},
  };
  for (const char* department : {"002", "008", "009", "017"}) {
    const Text code(department, department + 3);
    cases.push_back({std::string("DueModulesOfDepartment") + department,
                     kDue,
                     {{L"CodDepto", code}},
                     Due({.department = code}),
                     kByDueDate});
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(DueModules, ReportRows, testing::Combine(testing::ValuesIn(DueCases()), BothEngines()),
                         CaseName);

// A department that has a module in a container.
Text DepartmentOfAContainer() {
  for (const Caixa& c : All<Caixa>()) {
    if (c.codDepto && c.codDepto != L"001" && c.container) return *c.codDepto;
  }
  return {};
}

std::vector<Case> ListCases() {
  std::vector<Case> cases{
      {"AllModulesByNumber", kList, {}, Modules({}), kByNumber},
      {"AllModulesByDescription", kList, {{L"Ordenacao", L"descrição"}}, Modules({}), {L"DESC_CAIXA"}},
  };
  const std::pair<const char*, ModuleFilter> filters[] = {
      {"AllModulesOfADepartment", {.department = DepartmentOfAContainer()}},
      {"AllModulesOfTheBackCatalogue", {.backCatalogue = true}},
      {"AllModulesThatStillExist", {.existingOnly = true}},
      {"AllModulesOfTheBackCatalogueThatStillExist", {.backCatalogue = true, .existingOnly = true}},
      {"AllModulesOfADepartmentInTheBackCatalogue", {.department = L"005", .backCatalogue = true}},
  };
  for (const auto& [name, filter] : filters)
    cases.push_back({name, kList, PropertiesOf(filter), Modules(filter), kByNumber});
  return cases;
}
INSTANTIATE_TEST_SUITE_P(AllModules, ReportRows, testing::Combine(testing::ValuesIn(ListCases()), BothEngines()),
                         CaseName);

std::vector<Case> UnclassifiedCases() {
  return {
      {"UnclassifiedDocumentsByModule", kUnclassified, {}, Unclassified({}), kByNumber},
      {"UnclassifiedDocumentsWhateverTheBackCatalogue",
       kUnclassified,
       {{L"ModoPregresso", true}},
       Unclassified({}),
       kByNumber},
      {"UnclassifiedDocumentsOfDepartment002",
       kUnclassified,
       {{L"CodDepto", L"002"}},
       Unclassified({.department = L"002"}),
       kByNumber},
      {"UnclassifiedDocumentsOfDepartment003",
       kUnclassified,
       {{L"CodDepto", L"003"}},
       Unclassified({.department = L"003"}),
       kByNumber},
  };
}
INSTANTIATE_TEST_SUITE_P(Unclassified, ReportRows,
                         testing::Combine(testing::ValuesIn(UnclassifiedCases()), BothEngines()), CaseName);

// The archive contains rows that the filters of the cases above keep and rows that they leave out.
TEST(ModuleArchive, HasRowsThatEachFilterSeparates) {
  for (const ModuleFilter& filter : {ModuleFilter{}, ModuleFilter{.backCatalogue = true}}) {
    EXPECT_GT(CountOfSubordinates(DiscardedModules(filter)), 0U);
    EXPECT_GT(CountOfSubordinates(DueModules(filter)), 0U);
    EXPECT_FALSE(DiscardedModules(filter, Listed::kMainOnly).rows.empty());
    EXPECT_FALSE(DueModules(filter, Listed::kMainOnly).rows.empty());
  }
  // The back-catalogue filter chooses only main modules.
  EXPECT_LT(DiscardedModules({.backCatalogue = true}).rows.size(), DiscardedModules({}).rows.size());
  EXPECT_LT(DueModules({.backCatalogue = true}).rows.size(), DueModules({}).rows.size());
  EXPECT_EQ(CountOfSubordinates(DiscardedModules({.backCatalogue = true})), CountOfSubordinates(DiscardedModules({})));
  const auto& subordinates = All<CaixaSubordinada>();
  const auto doubles = std::count_if(subordinates.begin(), subordinates.end(), IsDouble);
  EXPECT_EQ(AllModules({}).rows.size() + static_cast<std::size_t>(doubles),
            All<Caixa>().size() - 1 + subordinates.size());
  EXPECT_GT(CountOfSubordinates(AllModules({.existingOnly = true})), 0U);
  EXPECT_EQ(AllModules({.department = L"005", .backCatalogue = true}).rows.size(), 5U);
  EXPECT_GT(UnclassifiedDocuments({}).rows.size(), 10U);
  EXPECT_EQ(UnclassifiedDocuments({.department = L"003"}).rows.size(), 2U);
}

class ModuleListingRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, ModuleListingRows, BothEngines(), EngineName);

TEST_P(ModuleListingRows, OfADepartmentAreFoundByItsTextNotByItsNumber) {
  ExpectNoRows(RowsOf(kDiscarded, {{L"CodDepto", L"2"}}), DiscardedModules({}).columns);
}

TEST_P(ModuleListingRows, OfADepartmentThatDiscardedNoModuleAreNone) {
  ASSERT_NE(Find(&Depto::codDepto, Text(L"009")), nullptr);
  ASSERT_TRUE(DiscardedModules({.department = L"009"}).rows.empty());
  ExpectNoRows(RowsOf(kDiscarded, {{L"CodDepto", L"009"}}), DiscardedModules({}).columns);
}

TEST_P(ModuleListingRows, ThatAreEqualInAUnionAreOne) {
  const std::vector<Value> codes = RowsOf(kDiscarded, {{L"CodDepto", L"002"}}).Column(L"NUM_CAIXA");
  EXPECT_EQ(std::count(codes.begin(), codes.end(), Cell(L"ZZ00303")), 1);
  EXPECT_EQ(std::count(codes.begin(), codes.end(), Cell(L"ZZ00310")), 1);
}

TEST_P(ModuleListingRows, OfDueModulesIncludeTodayAndNotTomorrow) {
  const std::vector<Value> codes = RowsOf(kDue).Column(L"NUM_CAIXA");
  const auto has = [&](const wchar_t* code) {
    return std::find(codes.begin(), codes.end(), Cell(code)) != codes.end();
  };
  EXPECT_TRUE(has(L"ZZ001"));
  EXPECT_TRUE(has(L"ZZ00301"));
  EXPECT_FALSE(has(L"ZZ002"));
  EXPECT_FALSE(has(L"ZZ00302"));
  EXPECT_FALSE(has(L"AA000"));
}

// AA000, the module of the documents that do not have one yet, is never due.
TEST(ModuleListingRowsOfAChangedArchive, OfDueModulesIncludeTodayByTheDatabasesClock) {
  const ChangedArchive archive({L"UPDATE CAIXA SET TIPO_GUARDA = 'P' WHERE NUM_CAIXA <> 'AA000'",
                                L"UPDATE CAIXA_SUBORDINADA SET TIPO_GUARDA = 'P'",
                                L"UPDATE CAIXA_SUBORDINADA SET TIPO_GUARDA = 'T', DATA_VENCIMENTO = date('now') "
                                L"WHERE NUM_CAIXA = 'AA001' AND NUM_SEQ = 2",
                                L"UPDATE CAIXA SET TIPO_GUARDA = 'T', DATA_VENCIMENTO = date('now') "
                                L"WHERE NUM_CAIXA = 'AA002'",
                                L"UPDATE CAIXA SET TIPO_GUARDA = 'T', DATA_VENCIMENTO = date('now', '+2 days') "
                                L"WHERE NUM_CAIXA = 'AA003'"});
  EXPECT_EQ(RowsAt(archive.ConnectionString(), kDue).Column(L"NUM_CAIXA"), (std::vector<Value>{L"AA00102", L"AA002"}));
}

}  // namespace
}  // namespace kodra::rows
