// The rows of the eleven module reports over a connection string.
#include "tests/wine/report_rows_modules.h"

namespace kodra::face {
namespace {

constexpr const wchar_t* kReport = L"CCaixaRpt";

class ModuleRows : public OnBothDatabases {
 protected:
  Rows Result(const std::wstring& method, const Properties& properties = {}) const {
    return RowsOf(kReport, method, properties);
  }
  const Modules modules_{GetParam()};
};
KODRA_ON_BOTH_DATABASES(ModuleRows);

Properties ThreeModules(const wchar_t* first, const wchar_t* second, const wchar_t* third) {
  return {{L"Modulo1", first}, {L"Modulo2", second}, {L"Modulo3", third}};
}

TEST_P(ModuleRows, OfOpeningLabelsAreTwoForEachModule) {
  const Rows expected = modules_.OpeningLabels({L"AA004", L"AA007", L"AA013"}, 2);
  EXPECT_EQ(6U, expected.rows.size());
  ExpectRows(expected, Result(L"EtiquetaAbertura", ThreeModules(L"AA013", L"AA004", L"AA007")), {L"NUM_CAIXA"});
  ExpectRows(modules_.OpeningLabels({L"AA013"}, 2), Result(L"EtiquetaAbertura", {{L"Modulo1", L"AA013"}}),
             {L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfOpeningLabelsOfSubordinatesAreTwoForEachAsWell) {
  const Rows expected = modules_.OpeningLabelsOfSubordinates({L"AA00102", L"AA00410", L"AA00409"}, 2);
  EXPECT_EQ(6U, expected.rows.size());
  Properties properties = ThreeModules(L"AA00410", L"AA00102", L"AA00409");
  properties.emplace_back(L"Tipo", L"Subordinado");
  ExpectRows(expected, Result(L"EtiquetaAbertura", properties), {L"NUM_CAIXA"});
  ExpectRows(modules_.OpeningLabelsOfSubordinates({L"AA00102"}, 2),
             Result(L"EtiquetaAbertura", {{L"Modulo1", L"AA00102"}, {L"Tipo", L"S"}}), {L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfClosingLabelsAreOneForEachModule) {
  const Rows expected = modules_.ClosingLabels({L"AA002", L"AA008", L"AA023"});
  EXPECT_EQ(3U, expected.rows.size());
  ExpectRows(expected, Result(L"EtiquetaFechamento", ThreeModules(L"AA023", L"AA002", L"AA008")), {L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfClosingLabelsOfSubordinatesAreAllOfThemOnceOneIsClosed) {
  for (const wchar_t* module : {L"AA001", L"AA004"}) {  // all closed; one still open
    const Rows expected = modules_.ClosingLabelsOfSubordinates(module);
    EXPECT_EQ(3U, expected.rows.size());
    ExpectRows(expected, Result(L"EtiquetaFechamentoSubordinada", {{L"Modulo1", module}}), {L"NUM_CAIXA"});
  }
}

TEST_P(ModuleRows, OfClosingLabelsOfSubordinatesAreAnErrorWithoutAClosedOne) {
  for (const wchar_t* module : {L"AA010", L"AA002"})  // all open; none at all
    EXPECT_EQ(Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                     std::wstring(L"Não há módulos subordinados fechados associados ao módulo ") + module),
              ErrorOf(kReport, L"EtiquetaFechamentoSubordinada", {{L"Modulo1", module}}));
  EXPECT_EQ(Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo ZZ999"),
            ErrorOf(kReport, L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"ZZ999"}}));
}

TEST_P(ModuleRows, OfDividerLabelsAreTheModulesDocuments) {
  const Rows expected = modules_.Documents(L"AA004");
  EXPECT_LT(10U, expected.rows.size());
  for (const wchar_t* module : {L"AA004", L"AA00409"})  // a subordinate's are its parent's
    ExpectRows(expected, Result(L"EtiquetaDivisoria", {{L"Modulo1", module}}), {L"COD_DOCTO"});
  ExpectNoRows({L"COD_DOCTO"}, Result(L"EtiquetaDivisoria", {{L"Modulo1", L"ZZ999"}}));
}

TEST_P(ModuleRows, OfDiscardedModulesAreMainAndSubordinateOnes) {
  const Rows main = modules_.Discarded(Modules::Any);
  const Rows subordinates = modules_.DiscardedSubordinates(Modules::Any);
  EXPECT_FALSE(main.rows.empty());
  EXPECT_FALSE(subordinates.rows.empty());
  for (const wchar_t* none : {L"", L"0", L"000", L"todos"})
    ExpectRows(Union(main, subordinates), Result(L"ModulosExcluidos", {{L"CodDepto", none}}),
               {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfDiscardedModulesAreThoseOfADepartment) {
  for (const wchar_t* department : {L"005", L"014", L"020", L"009"}) {
    const auto filter = [&](const Row& c) { return c[L"COD_DEPTO"] == department; };
    ExpectRows(Union(modules_.Discarded(filter), modules_.DiscardedSubordinates(filter)),
               Result(L"ModulosExcluidos", {{L"CodDepto", department}}), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
  }
}

TEST_P(ModuleRows, OfDiscardedModulesInTheBackCatalogueAreAllSubordinatesStill) {
  const auto filter = [](const Row& c) { return c[L"DOCS_PREGRESSOS"] == L"1"; };
  ExpectRows(Union(modules_.Discarded(filter), modules_.DiscardedSubordinates(Modules::Any)),
             Result(L"ModulosExcluidos", {{L"ModoPregresso", true}}), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfDueModulesAreThoseWhoseTermHasEndedOrThatAreClosed) {
  const Rows main = modules_.Due(Modules::Any);
  const Rows subordinates = modules_.DueSubordinates(Modules::Any);
  EXPECT_FALSE(main.rows.empty());
  EXPECT_FALSE(subordinates.rows.empty());
  ExpectRows(Union(main, subordinates), Result(L"ModulosVencidos"), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfDueModulesAreThoseOfADepartment) {
  for (const wchar_t* department : {L"002", L"008", L"009", L"017"}) {
    const auto filter = [&](const Row& c) { return c[L"COD_DEPTO"] == department; };
    const Rows expected = Union(modules_.Due(filter), modules_.DueSubordinates(filter));
    EXPECT_FALSE(expected.rows.empty());
    ExpectRows(expected, Result(L"ModulosVencidos", {{L"CodDepto", department}}), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
  }
}

TEST_P(ModuleRows, OfDueModulesInTheBackCatalogueAreAllSubordinatesStill) {
  const auto filter = [](const Row& c) { return c[L"DOCS_PREGRESSOS"] == L"1"; };
  const Rows expected = Union(modules_.Due(filter), modules_.DueSubordinates(Modules::Any));
  EXPECT_LT(expected.rows.size(),
            Union(modules_.Due(Modules::Any), modules_.DueSubordinates(Modules::Any)).rows.size());
  ExpectRows(expected, Result(L"ModulosVencidos", {{L"ModoPregresso", true}}), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfUnindexedDocumentsAreTheirCountInEachModule) {
  const Rows expected = modules_.Unindexed(Modules::Any);
  EXPECT_LT(10U, expected.rows.size());
  ExpectRows(expected, Result(L"DocsNaoIndexadosNosModulos"), {L"NUM_CAIXA"});
  ExpectRows(expected, Result(L"DocsNaoIndexadosNosModulos", {{L"ModoPregresso", true}}), {L"NUM_CAIXA"});
  const auto filter = [](const Row& c) { return c[L"COD_DEPTO"] == L"003"; };
  EXPECT_EQ(2U, modules_.Unindexed(filter).rows.size());
  ExpectRows(modules_.Unindexed(filter), Result(L"DocsNaoIndexadosNosModulos", {{L"CodDepto", L"003"}}),
             {L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfTheSubReportAreTheModulesDocuments) {
  const Rows expected = modules_.Documents(L"AA009");
  EXPECT_LT(10U, expected.rows.size());
  for (const wchar_t* module : {L"AA009", L"AA00901"})
    ExpectRows(expected, Result(L"DocsNoModuloSubRpt", {{L"Modulo1", module}}), {L"COD_DOCTO"});
}

TEST_P(ModuleRows, OfTheListAreMainAndSubordinateModulesByNumberOrByDescription) {
  const Rows expected =
      Union(modules_.Listed(Modules::Any), modules_.ListedSubordinates([](const Row&, const Row&) { return true; }));
  EXPECT_EQ(All(L"CAIXA").size() - 1 + All(L"CAIXA_SUBORDINADA").size(), expected.rows.size());
  ExpectRows(expected, Result(L"RelatoriosModulos"), {L"NUM_CAIXA"});
  ExpectRows(expected, Result(L"RelatoriosModulos", {{L"Ordenacao", L"descrição"}}), {L"DESC_CAIXA"});
}

TEST_P(ModuleRows, OfTheListThatStillExistAreNeitherDiscardedNorKeptForGood) {
  const auto existing = [](const Row& c) {
    return c[L"TIPO_GUARDA"] && c[L"TIPO_GUARDA"] != L"E" && c[L"TIPO_GUARDA"] != L"P";
  };
  // Of a subordinate: not discarded itself, its parent not kept for good.
  const auto existingSubordinate = [](const Row& s, const Row& c) {
    return s[L"TIPO_GUARDA"] && s[L"TIPO_GUARDA"] != L"E" && c[L"TIPO_GUARDA"] && c[L"TIPO_GUARDA"] != L"P";
  };
  const Rows expected = Union(modules_.Listed(existing), modules_.ListedSubordinates(existingSubordinate));
  EXPECT_FALSE(modules_.ListedSubordinates(existingSubordinate).rows.empty());
  ExpectRows(expected, Result(L"RelatoriosModulos", {{L"SomenteExistentes", true}}), {L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfTheListInADepartmentAndTheBackCatalogueAreBothKindsOfModules) {
  const auto filter = [](const Row& c) { return c[L"COD_DEPTO"] == L"005" && c[L"DOCS_PREGRESSOS"] == L"1"; };
  const Rows expected =
      Union(modules_.Listed(filter), modules_.ListedSubordinates([&](const Row&, const Row& c) { return filter(c); }));
  EXPECT_EQ(5U, expected.rows.size());
  ExpectRows(expected, Result(L"RelatoriosModulos", {{L"CodDepto", L"005"}, {L"ModoPregresso", true}}), {L"NUM_CAIXA"});
}

TEST_P(ModuleRows, OfADiscardAreTheModulesDocumentsWithItsTotals) {
  for (const wchar_t* module : {L"AA002", L"AA003"})
    ExpectRows(modules_.DocumentsForDiscard(module), Result(L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", module}}),
               {L"COD_DOCTO"});
}

TEST_P(ModuleRows, OfADiscardAreOneBlankRowForAnyOtherModule) {
  const Rows blank{{L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"}, {{L" ", L"0", L"0"}}};
  for (const wchar_t* module : {L"AA00102", L"", L"ZZ999"})
    ExpectExactly(blank, Result(L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", module}}));
}

TEST_P(ModuleRows, OfAHeaderAreOneForEveryModule) {
  for (const Row& c : All(L"CAIXA")) {
    const std::wstring module = *c[L"NUM_CAIXA"];
    SCOPED_TRACE(testing::PrintToString(module));
    ExpectExactly(modules_.Header(module), Result(L"DocsNoModulo", {{L"Modulo1", module}}));
  }
}

TEST_P(ModuleRows, OfAHeaderAreOneForEverySubordinateWithItsParentsDates) {
  for (const Row& s : All(L"CAIXA_SUBORDINADA")) {
    const std::wstring module = Modules::Code(s);
    SCOPED_TRACE(testing::PrintToString(module));
    const Rows expected = modules_.HeaderOfSubordinate(module);
    EXPECT_EQ(1U, expected.rows.size());
    ExpectExactly(expected, Result(L"DocsNoModulo", {{L"Modulo1", module}}));
  }
}

TEST_P(ModuleRows, OfAHeaderAreNoneForAnotherDepartment) {
  const Rows expected = modules_.Header(L"AA004");
  ExpectExactly(expected, Result(L"DocsNoModulo", {{L"Modulo1", L"AA004"}, {L"CodDepto", L"005"}}));
  ExpectNoRows(expected.columns, Result(L"DocsNoModulo", {{L"Modulo1", L"AA004"}, {L"CodDepto", L"006"}}));
}

TEST_P(ModuleRows, HaveDatesAsDatesInAUnionToo) {
  for (const wchar_t* method : {L"ModulosExcluidos", L"ModulosVencidos", L"RelatoriosModulos"}) {
    const auto rows = Open(kReport, method);
    const auto date = Got(Call(rows, L"Fields", {L"DATA_FECHAMENTO"})).object();
    while (Got(Get(date, L"Value")).type() == VT_NULL && Call(rows, L"MoveNext").hr == S_OK) {
    }
    EXPECT_EQ(VT_DATE, Got(Get(date, L"Value")).type()) << testing::PrintToString(std::wstring(method));
  }
}

// On a subordinate the term has ended on its very day; the module that holds what waits for one is never due.
TEST(ModuleRowsOfOwnArchive, AreDueOnTheirDay) {
  const OwnArchive archive({L"UPDATE CAIXA SET TIPO_GUARDA = 'P' WHERE NUM_CAIXA <> 'AA000'",
                            L"UPDATE CAIXA_SUBORDINADA SET TIPO_GUARDA = 'P'",
                            L"UPDATE CAIXA_SUBORDINADA SET TIPO_GUARDA = 'T', DATA_VENCIMENTO = date('now') "
                            L"WHERE NUM_CAIXA = 'AA001' AND NUM_SEQ = 2",
                            L"UPDATE CAIXA SET TIPO_GUARDA = 'T', DATA_VENCIMENTO = date('now') "
                            L"WHERE NUM_CAIXA = 'AA002'",
                            L"UPDATE CAIXA SET TIPO_GUARDA = 'T', DATA_VENCIMENTO = date('now', '+2 days') "
                            L"WHERE NUM_CAIXA = 'AA003'"});
  const auto parameters = ParametersOf(kReport);
  const Rows rows =
      ReadAll(Got(RunReport(kReport, L"ModulosVencidos", Var(parameters.get()), archive.Connection())).object());
  Names modules;
  for (const Cells& cells : rows.rows) modules.push_back(*Row(rows.columns, cells)[L"NUM_CAIXA"]);
  EXPECT_EQ((Names{L"AA00102", L"AA002"}), modules);
}

// The sub-report has no frame: what is raised reaches the client as it is.
TEST(ModuleErrors, OfTheSubReportComeAsTheyAre) {
  const OwnFile missing(L"ausente.db");
  const auto parameters = ParametersOf(kReport, {{L"Modulo1", L"AA001"}});
  EXPECT_EQ(
      (Failure{0x80040001, L"modADO.AbreFirehoseRs",
               L"[modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados \"" + missing.path() + L"\" não encontrado."}),
      RunReport(kReport, L"DocsNoModuloSubRpt", Var(parameters.get()), ConnectionTo(missing.path())).failure);
}

TEST(ModuleErrors, OfTheDatabaseNameTheOpenerAsTheirSource) {
  const OwnArchive archive({L"DROP TABLE CAIXA"});
  const auto parameters = ParametersOf(kReport, {{L"Modulo1", L"AA001"}});
  EXPECT_EQ((Failure{0x80041FAB, L"modADO.AbreFirehoseRs",
                     L"Erro ao gerar dados para o relatório: " + RefusedBySQLite(L"no such table: CAIXA")}),
            RunReport(kReport, L"EtiquetaAbertura", Var(parameters.get()), archive.Connection()).failure);
}

}  // namespace
}  // namespace kodra::face
