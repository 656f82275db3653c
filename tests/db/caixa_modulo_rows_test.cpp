// The reports on one module.
#include <algorithm>

#include "reports/modules/caixa_rpt.h"
#include "tests/db/module_rows.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class CaixaModuloRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(CaixaModuloRows);

frame::ParameterObject Obj(const Text& module, const Text& department = {}) {
  return Reports::Parameters(L"CCaixaRptObj", {{L"Modulo1", module}, {L"CodDepto", department}});
}

// A column that gives the empty text for a null.
Text OrEmpty(const MaybeText& text) { return text.value_or(L""); }

// The header of a module; of a subordinate the places are empty, and the dates and the depository its parent's.
Table Header(const Caixa& c, const CaixaSubordinada* s) {
  Table table({L"NUM_CAIXA", L"DESC_CAIXA", L"OBS_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO",
               L"DATA_FECHAMENTO", L"FILEIRA", L"ESTANTE", L"PRATELEIRA", L"CONTAINER", L"DEPOSITO", L"ENDERECO",
               L"CIDADE", L"ESTADO", L"TELEFONE", L"CONTATO"});
  const Container* in = Reports::Find(&Container::numContainer, c.container);
  const Deposito* found = Reports::Find(&Deposito::codDeposito, c.codDeposito);
  const Deposito at = found == nullptr ? Deposito() : *found;
  const Text container = in == nullptr ? L"" : OrEmpty(in->descContainer);
  const bool main = s == nullptr;
  table.Add(main ? c.numCaixa : CodeOf(*s), OrEmpty(c.descCaixa), main ? OrEmpty(c.obsCaixa) : L"",
            OrEmpty(main ? c.docInicial : s->docInicial), OrEmpty(main ? c.docFinal : s->docFinal), c.dataVencimento,
            c.dataFechamento, main ? OrEmpty(c.coordX) : L"", main ? OrEmpty(c.coordY) : L"",
            main ? OrEmpty(c.coordZ) : L"", main ? container : L"", OrEmpty(at.nome), OrEmpty(at.endereco),
            OrEmpty(at.cidade), OrEmpty(at.estado), OrEmpty(at.telefone), OrEmpty(at.contato));
  return table;
}

TEST_P(CaixaModuloRows, TheHeaderOfEveryModuleHasItsPlaceAndNoNullTexts) {
  for (const Caixa& c : All<Caixa>()) {
    SCOPED_TRACE(testing::PrintToString(c.numCaixa));
    ExpectRows(RowsOf(&CCaixaRpt::DocsNoModulo, Obj(c.numCaixa)), Header(c, nullptr));
  }
}

TEST_P(CaixaModuloRows, TheHeaderOfEverySubordinateHasItsParentsDates) {
  for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
    if (s.numSeq > 99) continue;  // its code names another
    SCOPED_TRACE(testing::PrintToString(CodeOf(s)));
    ExpectRows(RowsOf(&CCaixaRpt::DocsNoModulo, Obj(CodeOf(s))), Header(*ModuleOf(s.numCaixa), &s));
  }
}

TEST_P(CaixaModuloRows, TheHeaderOfAnotherDepartmentsModuleIsNoRow) {
  const Caixa& c = *ModuleOf(L"AA001");
  ExpectRows(RowsOf(&CCaixaRpt::DocsNoModulo, Obj(c.numCaixa, *c.codDepto)), Header(c, nullptr));
  ExpectNoRows(RowsOf(&CCaixaRpt::DocsNoModulo, Obj(c.numCaixa, L"999")), Header(c, nullptr).columns);
}

TEST_P(CaixaModuloRows, TheDocumentsOfAModuleAreReadAfterItsHeader) {
  Table expected({L"COD_DOCTO"});
  for (const Documento& d : All<Documento>()) {
    if (d.numCaixa == L"AA003") expected.Add(d.codDocto);
  }
  CCaixaRpt report(Machine());
  report.SetStringConexao(ConnectionString());
  auto obj = Obj(L"AA003");
  EXPECT_FALSE(report.DocsNoModulo(&obj)->Eof());
  ExpectRows(Read(*report.DocsNoModuloSubRpt(&obj)), expected, {L"COD_DOCTO"});
}

TEST_P(CaixaModuloRows, TheDiscardOfAModuleCountsItsDocumentsAndItsPages) {
  for (const Caixa& c : All<Caixa>()) {
    std::vector<Documento> documents;
    std::copy_if(All<Documento>().begin(), All<Documento>().end(), std::back_inserter(documents),
                 [&](const Documento& d) { return d.numCaixa == c.numCaixa; });
    Table expected({L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"});
    MaybeNumber pages;  // of the documents of which both counts are known
    for (const Documento& d : documents) {
      if (d.frente && d.verso) pages = pages.value_or(0) + *d.frente + *d.verso;
    }
    for (const Documento& d : documents) expected.Add(d.codDocto, static_cast<std::int64_t>(documents.size()), pages);
    if (documents.empty()) expected.Add(L" ", std::int64_t{0}, std::int64_t{0});
    SCOPED_TRACE(testing::PrintToString(c.numCaixa));
    ExpectRows(RowsOf(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, Obj(c.numCaixa)), expected, {L"COD_DOCTO"});
  }
}

TEST_P(CaixaModuloRows, TheDiscardOfASubordinateOrOfNothingIsOneBlankRow) {
  Table blank({L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"});
  blank.Add(L" ", std::int64_t{0}, std::int64_t{0});
  for (const wchar_t* code : {L"AA00101", L"", L"XX999"}) {
    ExpectRows(RowsOf(&CCaixaRpt::AutorizacaoDescarteModuloSubRpt, Obj(code)), blank);
  }
}

}  // namespace
}  // namespace kodra::tests
