// The listings of all modules, main and subordinate in one.
#include <algorithm>

#include "reports/modules/caixa_rpt.h"
#include "tests/db/module_rows.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class CaixaListagemRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(CaixaListagemRows);

frame::ParameterObject Obj(Reports::Properties properties = {}) {
  return Reports::Parameters(L"CCaixaRptObj", properties);
}
frame::ParameterObject Obj(const ModuleFilter& filter) {
  return Obj({{L"CodDepto", filter.department},
              {L"ModoPregresso", filter.backCatalogue},
              {L"SomenteExistentes", filter.existingOnly}});
}

// A row of which a union has another already.
bool IsDouble(const CaixaSubordinada& s) { return s.numSeq > 99; }

Table Excluded(const ModuleFilter& filter) {
  Table rows({L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"DATA_FECHAMENTO",
              L"TIPO_GUARDA"});
  for (const Caixa& c : Reports::All<Caixa>()) {
    if (c.tipoGuarda != L"E" || !filter.Department(c) || !filter.BackCatalogue(c)) continue;
    rows.Add(c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento, c.tipoGuarda);
  }
  for (const CaixaSubordinada& s : Reports::All<CaixaSubordinada>()) {
    const Caixa& parent = *ModuleOf(s.numCaixa);
    if (s.tipoGuarda != L"E" || !filter.Department(parent) || IsDouble(s)) continue;
    rows.Add(CodeOf(s), parent.descCaixa, s.docInicial, s.docFinal, s.dataVencimento, s.dataFechamento, s.tipoGuarda);
  }
  return rows;
}

// Due at the end of their term today, or since they were closed.
template <class Module>
bool IsDue(const Module& module) {
  if (module.tipoGuarda == L"T") return module.dataVencimento && *module.dataVencimento <= Today();
  return module.tipoGuarda == L"D" && module.dataFechamento.has_value();
}

MaybeNumber PagesOf(const Text& module) {
  MaybeNumber pages;
  for (const Documento& d : Reports::All<Documento>()) {
    if (d.numCaixa == module && d.frente) pages = pages.value_or(0) + *d.frente;
  }
  return pages;
}

std::int64_t DocumentsOf(const Text& module) {
  const auto& documents = Reports::All<Documento>();
  return std::count_if(documents.begin(), documents.end(), [&](const Documento& d) { return d.numCaixa == module; });
}

Table Due(const ModuleFilter& filter) {
  Table rows({L"DESCR_DEPTO", L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO",
              L"DATA_FECHAMENTO", L"TIPO_GUARDA", L"ANOS_VENCIMENTO", L"NUM_PAGINAS", L"NUM_DOCS"});
  const auto departmentOf = [](const Caixa& c) {
    const Depto* department = Reports::Find(&Depto::codDepto, c.codDepto);
    return department == nullptr ? MaybeText() : department->descrDepto;
  };
  for (const Caixa& c : Reports::All<Caixa>()) {
    if (c.numCaixa == L"AA000" || !IsDue(c) || !filter.Department(c) || !filter.BackCatalogue(c)) continue;
    rows.Add(departmentOf(c), c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento,
             c.tipoGuarda, c.anosVencimento, PagesOf(c.numCaixa), DocumentsOf(c.numCaixa));
  }
  for (const CaixaSubordinada& s : Reports::All<CaixaSubordinada>()) {
    const Caixa& parent = *ModuleOf(s.numCaixa);
    if (!IsDue(s) || !filter.Department(parent)) continue;
    rows.Add(departmentOf(parent), CodeOf(s), parent.descCaixa, s.docInicial, s.docFinal, s.dataVencimento,
             s.dataFechamento, s.tipoGuarda, s.anosVencimento, PagesOf(s.numCaixa), DocumentsOf(s.numCaixa));
  }
  return rows;
}

Table Modules(const ModuleFilter& filter) {
  Table rows({L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"DATA_FECHAMENTO",
              L"FILEIRA", L"ESTANTE", L"PRATELEIRA", L"CONTAINER", L"TIPO_GUARDA"});
  // A kind that nobody has said is neither one nor another.
  const auto exists = [](const MaybeText& own, const MaybeText& other) {
    return own && other && *own != L"E" && *other != L"P";
  };
  for (const Caixa& c : Reports::All<Caixa>()) {
    if (c.numCaixa == L"AA000" || !filter.Department(c) || !filter.BackCatalogue(c)) continue;
    if (filter.existingOnly && !exists(c.tipoGuarda, c.tipoGuarda)) continue;
    const Container* container = Reports::Find(&Container::numContainer, c.container);
    rows.Add(c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento, c.coordX, c.coordY,
             c.coordZ, container == nullptr ? MaybeText() : container->descContainer, c.tipoGuarda);
  }
  for (const CaixaSubordinada& s : Reports::All<CaixaSubordinada>()) {
    const Caixa& parent = *ModuleOf(s.numCaixa);
    if (IsDouble(s) || !filter.Department(parent) || !filter.BackCatalogue(parent)) continue;
    if (filter.existingOnly && !exists(s.tipoGuarda, parent.tipoGuarda)) continue;
    rows.Add(CodeOf(s), parent.descCaixa, s.docInicial, s.docFinal, s.dataVencimento, s.dataFechamento, L"", L"", L"",
             L"", s.tipoGuarda);
  }
  return rows;
}

// A department that has a module with a condition.
template <class Condition>
Text DepartmentWith(Condition condition) {
  for (const Caixa& c : Reports::All<Caixa>()) {
    if (c.codDepto && condition(c)) return *c.codDepto;
  }
  return {};
}

TEST_P(CaixaListagemRows, DiscardedModules) {
  const Text department = DepartmentWith([](const Caixa& c) { return c.tipoGuarda == L"E"; });
  for (const ModuleFilter& filter : {ModuleFilter{}, ModuleFilter{.department = department},
                                     ModuleFilter{.department = L"002"}, ModuleFilter{.backCatalogue = true}}) {
    ExpectRows(RowsOf(&CCaixaRpt::ModulosExcluidos, Obj(filter)), Excluded(filter), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
  }
}

TEST_P(CaixaListagemRows, RowsThatAreEqualInAUnionAreOne) {
  const Table rows = RowsOf(&CCaixaRpt::ModulosExcluidos, Obj({{L"CodDepto", L"002"}}));
  const auto isOf = [](const wchar_t* code) { return [=](const Table::Row& row) { return row[0] == Cell(code); }; };
  EXPECT_EQ(std::count_if(rows.rows.begin(), rows.rows.end(), isOf(L"ZZ00303")), 1);
  EXPECT_EQ(std::count_if(rows.rows.begin(), rows.rows.end(), isOf(L"ZZ00310")), 1);
}

TEST_P(CaixaListagemRows, TheBackCatalogueChoosesAmongMainModulesOnly) {
  const Table all = Excluded({});
  const Table chosen = Excluded({.backCatalogue = true});
  const auto subordinates = [](const Table& table) {
    return std::count_if(table.rows.begin(), table.rows.end(),
                         [](const Table::Row& row) { return row[0].As<std::wstring>().size() == 7; });
  };
  EXPECT_LT(chosen.rows.size(), all.rows.size());
  EXPECT_EQ(subordinates(chosen), subordinates(all));
  ExpectRows(RowsOf(&CCaixaRpt::ModulosExcluidos, Obj({{L"ModoPregresso", true}})), chosen);
}

TEST_P(CaixaListagemRows, DueModules) {
  const Text department = DepartmentWith([](const Caixa& c) { return c.numCaixa != L"ZZ001" && IsDue(c); });
  for (const ModuleFilter& filter :
       {ModuleFilter{}, ModuleFilter{.department = department}, ModuleFilter{.backCatalogue = true}}) {
    ExpectRows(RowsOf(&CCaixaRpt::ModulosVencidos, Obj(filter)), Due(filter), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
  }
}

TEST_P(CaixaListagemRows, WhatFallsDueTodayIsDueAndWhatFallsDueTomorrowIsNot) {
  const Table rows = RowsOf(&CCaixaRpt::ModulosVencidos, Obj());
  const auto has = [&](const wchar_t* code) {
    return std::any_of(rows.rows.begin(), rows.rows.end(), [&](const auto& row) { return row[1] == Cell(code); });
  };
  EXPECT_TRUE(has(L"ZZ001"));
  EXPECT_TRUE(has(L"ZZ00301"));
  EXPECT_FALSE(has(L"ZZ002"));
  EXPECT_FALSE(has(L"ZZ00302"));
  EXPECT_FALSE(has(L"AA000"));
}

TEST_P(CaixaListagemRows, ADepartmentThatIsNoNumberIsNoFilter) {
  for (const wchar_t* department : {L"0", L"abc", L"-1"}) {
    ExpectRows(RowsOf(&CCaixaRpt::ModulosExcluidos, Obj({{L"CodDepto", department}})), Excluded({}));
  }
  // Its text is what is compared, not its number.
  EXPECT_TRUE(RowsOf(&CCaixaRpt::ModulosExcluidos, Obj({{L"CodDepto", L"2"}})).rows.empty());
}

TEST_P(CaixaListagemRows, AllModulesWithTheirPlaces) {
  const Text department = DepartmentWith([](const Caixa& c) { return c.container && c.codDepto != L"001"; });
  for (const ModuleFilter& filter :
       {ModuleFilter{}, ModuleFilter{.department = department}, ModuleFilter{.backCatalogue = true},
        ModuleFilter{.existingOnly = true}, ModuleFilter{.backCatalogue = true, .existingOnly = true}}) {
    ExpectRows(RowsOf(&CCaixaRpt::RelatoriosModulos, Obj(filter)), Modules(filter), {L"NUM_CAIXA"});
  }
}

TEST_P(CaixaListagemRows, AllModulesByDescription) {
  ExpectRows(RowsOf(&CCaixaRpt::RelatoriosModulos, Obj({{L"Ordenacao", L"descrição"}})), Modules({}), {L"DESC_CAIXA"});
}

TEST_P(CaixaListagemRows, UnclassifiedDocumentsAreCountedByModule) {
  for (const ModuleFilter& filter : {ModuleFilter{}, ModuleFilter{.department = L"002"}}) {
    Table expected({L"NUM_CAIXA", L"DESC_CAIXA", L"NaoIndexados"});
    for (const Caixa& c : All<Caixa>()) {
      const auto& documents = All<Documento>();
      const std::int64_t count = std::count_if(documents.begin(), documents.end(), [&](const Documento& d) {
        return d.numCaixa == c.numCaixa && !d.codAssunto;
      });
      if (count > 0 && c.numCaixa != L"AA000" && filter.Department(c)) expected.Add(c.numCaixa, c.descCaixa, count);
    }
    ExpectRows(RowsOf(&CCaixaRpt::DocsNaoIndexadosNosModulos, Obj(filter)), expected, {L"NUM_CAIXA"});
  }
}

}  // namespace
}  // namespace kodra::tests
