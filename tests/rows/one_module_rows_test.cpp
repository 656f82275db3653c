// The reports on one module.
#include "tests/rows/cases.h"
#include "tests/rows/module_rows.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kHeader{L"CCaixaRpt", L"DocsNoModulo"};
const Report kDocuments{L"CCaixaRpt", L"DocsNoModuloSubRpt"};
const Report kDiscard{L"CCaixaRpt", L"AutorizacaoDescarteModuloSubRpt"};

std::function<Table()> Documents(const Text& module) {
  return [=] {
    EXPECT_GT(DocumentsOf(module).rows.size(), 10U);
    return DocumentsOf(module);
  };
}

std::vector<Case> OneModule() {
  const Caixa& first = *ModuleOf(L"AA001");
  return {
      {"HeaderOfTheDepartmentsOwnModule",
       kHeader,
       {{L"Modulo1", L"AA001"}, {L"CodDepto", *first.codDepto}},
       [&] { return HeaderOf(first); }},
      {"HeaderOfDepartment005sModule",
       kHeader,
       {{L"Modulo1", L"AA004"}, {L"CodDepto", L"005"}},
       [] { return HeaderOf(*ModuleOf(L"AA004")); }},
      {"DocumentsOfAModule", kDocuments, {{L"Modulo1", L"AA009"}}, Documents(L"AA009"), {L"COD_DOCTO"}},
      {"DocumentsOfASubordinatesParent", kDocuments, {{L"Modulo1", L"AA00901"}}, Documents(L"AA009"), {L"COD_DOCTO"}},
  };
}
INSTANTIATE_TEST_SUITE_P(OneModule, ReportRows, testing::Combine(testing::ValuesIn(OneModule()), BothEngines()),
                         CaseName);

class OneModuleRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, OneModuleRows, BothEngines(), EngineName);

TEST_P(OneModuleRows, OfEveryModulesHeaderHaveItsPlaceAndNoNullTexts) {
  for (const Caixa& c : All<Caixa>()) {
    SCOPED_TRACE(testing::PrintToString(c.numCaixa));
    ExpectExactly(RowsOf(kHeader, {{L"Modulo1", c.numCaixa}}), HeaderOf(c));
  }
}

TEST_P(OneModuleRows, OfEverySubordinatesHeaderHaveItsParentsDates) {
  for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
    if (IsDouble(s)) continue;
    SCOPED_TRACE(testing::PrintToString(CodeOf(s)));
    ExpectExactly(RowsOf(kHeader, {{L"Modulo1", CodeOf(s)}}), HeaderOf(s));
  }
}

TEST_P(OneModuleRows, OfAnotherDepartmentsModuleAreNoHeader) {
  const std::vector<std::wstring> columns = HeaderOf(*ModuleOf(L"AA001")).columns;
  ExpectNoRows(RowsOf(kHeader, {{L"Modulo1", L"AA001"}, {L"CodDepto", L"999"}}), columns);
  ExpectNoRows(RowsOf(kHeader, {{L"Modulo1", L"AA004"}, {L"CodDepto", L"006"}}), columns);
}

TEST_P(OneModuleRows, OfEveryModulesDiscardAreItsDocumentsWithTheirTotals) {
  for (const Caixa& c : All<Caixa>()) {
    SCOPED_TRACE(testing::PrintToString(c.numCaixa));
    ExpectRows(RowsOf(kDiscard, {{L"Modulo1", c.numCaixa}}), DiscardOf(c.numCaixa), {L"COD_DOCTO"});
  }
}

TEST_P(OneModuleRows, OfTheDiscardOfASubordinateOrOfNothingAreOneBlankRow) {
  Table blank({L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"});
  blank.Add(L" ", std::int64_t{0}, std::int64_t{0});
  for (const wchar_t* code : {L"AA00101", L"AA00102", L"", L"XX999"})
    ExpectExactly(RowsOf(kDiscard, {{L"Modulo1", code}}), blank);
}

// The sub-report has no frame: an error reaches the client unchanged.
TEST(ModuleErrors, OfTheSubReportReachTheClientUnchanged) {
  EXPECT_EQ(ErrorAt(SqliteFile(kMissingFile), kDocuments, {{L"Modulo1", L"AA001"}}),
            (Raised{static_cast<std::int32_t>(0x80040001U), L"modADO.AbreFirehoseRs", kFileIsMissing}));
}

}  // namespace
}  // namespace kodra::rows
