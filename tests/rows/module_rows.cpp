#include "tests/rows/module_rows.h"

#include <algorithm>

namespace kodra::rows {
namespace {

using namespace testbed;

Table OpeningLabelColumns() { return Table({L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"}); }
Table ClosingLabelColumns() {
  return Table(
      {L"DESC_CAIXA", L"NUM_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"Nome_Empresa"});
}
Table HeaderColumns() {
  return Table({L"NUM_CAIXA", L"DESC_CAIXA", L"OBS_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO",
                L"DATA_FECHAMENTO", L"FILEIRA", L"ESTANTE", L"PRATELEIRA", L"CONTAINER", L"DEPOSITO", L"ENDERECO",
                L"CIDADE", L"ESTADO", L"TELEFONE", L"CONTATO"});
}

// A column that has the empty text for a null.
Text OrEmpty(const MaybeText& text) { return text.value_or(L""); }

Deposito DepositoryOf(const Caixa& module) {
  const Deposito* found = Find(&Deposito::codDeposito, module.codDeposito);
  return found == nullptr ? Deposito() : *found;
}

MaybeText ContainerOf(const Caixa& module) {
  const Container* container = Find(&Container::numContainer, module.container);
  return container == nullptr ? MaybeText() : container->descContainer;
}

MaybeText DepartmentOf(const Caixa& module) {
  const Depto* department = Find(&Depto::codDepto, module.codDepto);
  return department == nullptr ? MaybeText() : department->descrDepto;
}

std::vector<Documento> DocumentsIn(const Text& module) {
  std::vector<Documento> documents;
  std::copy_if(All<Documento>().begin(), All<Documento>().end(), std::back_inserter(documents),
               [&](const Documento& d) { return d.numCaixa == module; });
  return documents;
}

std::int64_t CountOf(const Text& module) { return static_cast<std::int64_t>(DocumentsIn(module).size()); }

MaybeNumber FrontPagesOf(const Text& module) {
  MaybeNumber pages;
  for (const Documento& d : DocumentsIn(module)) {
    if (d.frente) pages = pages.value_or(0) + *d.frente;
  }
  return pages;
}

// Due today at the end of their term, or since they were closed.
template <class Module>
bool IsDue(const Module& module) {
  if (module.tipoGuarda == L"T") return module.dataVencimento && *module.dataVencimento <= Today();
  return module.tipoGuarda == L"D" && module.dataFechamento.has_value();
}

// The subordinate modules of a listing.
const std::vector<CaixaSubordinada>& Subordinates(Listed listed) {
  static const std::vector<CaixaSubordinada> none;
  return listed == Listed::kMainOnly ? none : All<CaixaSubordinada>();
}

}  // namespace

Text CodeOf(const CaixaSubordinada& subordinate) {
  return subordinate.numCaixa + (subordinate.numSeq < 10 ? L"0" : L"") + std::to_wstring(subordinate.numSeq);
}

const Caixa* ModuleOf(const MaybeText& number) { return Find(&Caixa::numCaixa, number); }

const CaixaSubordinada* SubordinateOf(const Text& code) {
  for (const CaixaSubordinada& subordinate : All<CaixaSubordinada>()) {
    if (CodeOf(subordinate) == code) return &subordinate;
  }
  return nullptr;
}

Table OpeningLabels(const std::set<Text>& modules, int copies) {
  Table labels = OpeningLabelColumns();
  for (const Caixa& c : All<Caixa>()) {
    if (!modules.contains(c.numCaixa)) continue;
    for (int i = 0; i < copies; ++i) labels.Add(c.descCaixa, c.numCaixa, c.tipoGuarda, c.anosVencimento);
  }
  EXPECT_EQ(labels.rows.size(), modules.size() * static_cast<std::size_t>(copies));
  return labels;
}

Table OpeningLabelsOfSubordinates(const std::set<Text>& codes, int copies) {
  Table labels = OpeningLabelColumns();
  for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
    if (!codes.contains(CodeOf(s))) continue;
    const Caixa& parent = *ModuleOf(s.numCaixa);
    for (int i = 0; i < copies; ++i) labels.Add(parent.descCaixa, CodeOf(s), s.tipoGuarda, s.anosVencimento);
  }
  EXPECT_EQ(labels.rows.size(), codes.size() * static_cast<std::size_t>(copies));
  return labels;
}

Table ClosingLabels(const std::set<Text>& modules) {
  Table labels = ClosingLabelColumns();
  for (const Caixa& c : All<Caixa>()) {
    if (!modules.contains(c.numCaixa)) continue;
    labels.Add(c.descCaixa, c.numCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.tipoGuarda, Company());
  }
  EXPECT_EQ(labels.rows.size(), modules.size());
  return labels;
}

Table ClosingLabelsOfSubordinates(const Text& parent) {
  Table labels = ClosingLabelColumns();
  for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
    if (s.numCaixa != parent) continue;
    labels.Add(ModuleOf(parent)->descCaixa, CodeOf(s), s.docInicial, s.docFinal, s.dataVencimento, s.tipoGuarda,
               Company());
  }
  return labels;
}

Table DocumentsOf(const Text& module) {
  Table documents({L"COD_DOCTO"});
  for (const Documento& d : DocumentsIn(module)) documents.Add(d.codDocto);
  return documents;
}

Table DiscardOf(const Text& module) {
  Table table({L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"});
  MaybeNumber pages;  // of the documents whose counts are both known
  for (const Documento& d : DocumentsIn(module)) {
    if (d.frente && d.verso) pages = pages.value_or(0) + *d.frente + *d.verso;
  }
  for (const Documento& d : DocumentsIn(module)) table.Add(d.codDocto, CountOf(module), pages);
  if (table.rows.empty()) table.Add(L" ", std::int64_t{0}, std::int64_t{0});
  return table;
}

Table HeaderOf(const Caixa& c) {
  Table table = HeaderColumns();
  const Deposito at = DepositoryOf(c);
  table.Add(c.numCaixa, OrEmpty(c.descCaixa), OrEmpty(c.obsCaixa), OrEmpty(c.docInicial), OrEmpty(c.docFinal),
            c.dataVencimento, c.dataFechamento, OrEmpty(c.coordX), OrEmpty(c.coordY), OrEmpty(c.coordZ),
            OrEmpty(ContainerOf(c)), OrEmpty(at.nome), OrEmpty(at.endereco), OrEmpty(at.cidade), OrEmpty(at.estado),
            OrEmpty(at.telefone), OrEmpty(at.contato));
  return table;
}

Table HeaderOf(const CaixaSubordinada& s) {
  Table table = HeaderColumns();
  const Caixa& parent = *ModuleOf(s.numCaixa);
  const Deposito at = DepositoryOf(parent);
  table.Add(CodeOf(s), OrEmpty(parent.descCaixa), L"", OrEmpty(s.docInicial), OrEmpty(s.docFinal),
            parent.dataVencimento, parent.dataFechamento, L"", L"", L"", L"", OrEmpty(at.nome), OrEmpty(at.endereco),
            OrEmpty(at.cidade), OrEmpty(at.estado), OrEmpty(at.telefone), OrEmpty(at.contato));
  return table;
}

Table DiscardedModules(const ModuleFilter& filter, Listed listed) {
  Table rows({L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"DATA_FECHAMENTO",
              L"TIPO_GUARDA"});
  for (const Caixa& c : All<Caixa>()) {
    if (c.tipoGuarda != L"E" || !filter.Department(c) || !filter.BackCatalogue(c)) continue;
    rows.Add(c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento, c.tipoGuarda);
  }
  for (const CaixaSubordinada& s : Subordinates(listed)) {
    const Caixa& parent = *ModuleOf(s.numCaixa);
    if (s.tipoGuarda != L"E" || !filter.Department(parent) || IsDouble(s)) continue;
    rows.Add(CodeOf(s), parent.descCaixa, s.docInicial, s.docFinal, s.dataVencimento, s.dataFechamento, s.tipoGuarda);
  }
  return rows;
}

// A subordinate has its parent's department, pages and documents.
Table DueModules(const ModuleFilter& filter, Listed listed) {
  Table rows({L"DESCR_DEPTO", L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO",
              L"DATA_FECHAMENTO", L"TIPO_GUARDA", L"ANOS_VENCIMENTO", L"NUM_PAGINAS", L"NUM_DOCS"});
  for (const Caixa& c : All<Caixa>()) {
    if (c.numCaixa == L"AA000" || !IsDue(c) || !filter.Department(c) || !filter.BackCatalogue(c)) continue;
    rows.Add(DepartmentOf(c), c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento,
             c.tipoGuarda, c.anosVencimento, FrontPagesOf(c.numCaixa), CountOf(c.numCaixa));
  }
  for (const CaixaSubordinada& s : Subordinates(listed)) {
    const Caixa& parent = *ModuleOf(s.numCaixa);
    if (!IsDue(s) || !filter.Department(parent)) continue;
    rows.Add(DepartmentOf(parent), CodeOf(s), parent.descCaixa, s.docInicial, s.docFinal, s.dataVencimento,
             s.dataFechamento, s.tipoGuarda, s.anosVencimento, FrontPagesOf(s.numCaixa), CountOf(s.numCaixa));
  }
  return rows;
}

Table AllModules(const ModuleFilter& filter, Listed listed) {
  Table rows({L"NUM_CAIXA", L"DESC_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"DATA_FECHAMENTO",
              L"FILEIRA", L"ESTANTE", L"PRATELEIRA", L"CONTAINER", L"TIPO_GUARDA"});
  // Neither discarded nor kept for good; a subordinate must not be discarded itself and its parent must not be kept for
  // good. A kind that is null is neither.
  const auto exists = [](const MaybeText& own, const MaybeText& other) {
    return own && other && *own != L"E" && *other != L"P";
  };
  for (const Caixa& c : All<Caixa>()) {
    if (c.numCaixa == L"AA000" || !filter.Department(c) || !filter.BackCatalogue(c)) continue;
    if (filter.existingOnly && !exists(c.tipoGuarda, c.tipoGuarda)) continue;
    rows.Add(c.numCaixa, c.descCaixa, c.docInicial, c.docFinal, c.dataVencimento, c.dataFechamento, c.coordX, c.coordY,
             c.coordZ, ContainerOf(c), c.tipoGuarda);
  }
  for (const CaixaSubordinada& s : Subordinates(listed)) {
    const Caixa& parent = *ModuleOf(s.numCaixa);
    if (IsDouble(s) || !filter.Department(parent) || !filter.BackCatalogue(parent)) continue;
    if (filter.existingOnly && !exists(s.tipoGuarda, parent.tipoGuarda)) continue;
    rows.Add(CodeOf(s), parent.descCaixa, s.docInicial, s.docFinal, s.dataVencimento, s.dataFechamento, L"", L"", L"",
             L"", s.tipoGuarda);
  }
  return rows;
}

Table UnclassifiedDocuments(const ModuleFilter& filter) {
  Table rows({L"NUM_CAIXA", L"DESC_CAIXA", L"NaoIndexados"});
  for (const Caixa& c : All<Caixa>()) {
    const std::vector<Documento> documents = DocumentsIn(c.numCaixa);
    const std::int64_t count =
        std::count_if(documents.begin(), documents.end(), [](const Documento& d) { return !d.codAssunto; });
    if (count > 0 && c.numCaixa != L"AA000" && filter.Department(c)) rows.Add(c.numCaixa, c.descCaixa, count);
  }
  return rows;
}

}  // namespace kodra::rows
