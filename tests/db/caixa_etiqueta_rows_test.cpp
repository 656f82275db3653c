// The labels of modules.
#include <algorithm>

#include "reports/modules/caixa_rpt.h"
#include "tests/db/module_rows.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class CaixaEtiquetaRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(CaixaEtiquetaRows);

frame::ParameterObject Obj(Reports::Properties properties) { return Reports::Parameters(L"CCaixaRptObj", properties); }

TEST_P(CaixaEtiquetaRows, AnOpeningLabelComesTwice) {
  Table expected({L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"});
  for (const wchar_t* number : {L"AA001", L"AA004"}) {
    const Caixa& module = *ModuleOf(Text(number));
    for (int copy = 0; copy < 2; ++copy) {
      expected.Add(module.descCaixa, module.numCaixa, module.tipoGuarda, module.anosVencimento);
    }
  }
  for (const wchar_t* kind : {L"", L"P"}) {
    ExpectRows(
        RowsOf(&CCaixaRpt::EtiquetaAbertura, Obj({{L"Tipo", kind}, {L"Modulo1", L"AA004"}, {L"Modulo2", L"AA001"}})),
        expected, {L"NUM_CAIXA"});
  }
}

TEST_P(CaixaEtiquetaRows, AnOpeningLabelOfASubordinateComesTwice) {
  Table expected({L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"});
  for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
    if (CodeOf(s) != L"AA00101" && CodeOf(s) != L"AA00409" && CodeOf(s) != L"ZZ00302") continue;
    for (int copy = 0; copy < 2; ++copy) {
      expected.Add(ModuleOf(s.numCaixa)->descCaixa, CodeOf(s), s.tipoGuarda, s.anosVencimento);
    }
  }
  ASSERT_EQ(expected.rows.size(), 6U);
  ExpectRows(
      RowsOf(&CCaixaRpt::EtiquetaAbertura,
             Obj({{L"Tipo", L"sub"}, {L"Modulo1", L"AA00101"}, {L"Modulo2", L"ZZ00302"}, {L"Modulo3", L"AA00409"}})),
      expected, {L"NUM_CAIXA"});
}

TEST_P(CaixaEtiquetaRows, AModuleThatIsNotThereHasNoLabel) {
  ExpectNoRows(RowsOf(&CCaixaRpt::EtiquetaAbertura, Obj({{L"Modulo1", L"XX999"}})),
               {L"DESC_CAIXA", L"NUM_CAIXA", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"});
}

TEST_P(CaixaEtiquetaRows, AClosingLabelHasTheDocumentsAndTheCompany) {
  Table expected(
      {L"DESC_CAIXA", L"NUM_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"Nome_Empresa"});
  for (const wchar_t* number : {L"AA001", L"AA002", L"AA007"}) {
    const Caixa& m = *ModuleOf(Text(number));
    expected.Add(m.descCaixa, m.numCaixa, m.docInicial, m.docFinal, m.dataVencimento, m.tipoGuarda, Company());
  }
  ExpectRows(RowsOf(&CCaixaRpt::EtiquetaFechamento,
                    Obj({{L"Modulo1", L"AA007"}, {L"Modulo2", L"AA001"}, {L"Modulo3", L"AA002"}})),
             expected, {L"NUM_CAIXA"});
}

// A parent module for which a condition holds of its subordinates.
template <class Condition>
Text ParentWhere(Condition condition) {
  for (const Caixa& module : Reports::All<Caixa>()) {
    std::vector<CaixaSubordinada> subordinates;
    for (const CaixaSubordinada& s : Reports::All<CaixaSubordinada>()) {
      if (s.numCaixa == module.numCaixa) subordinates.push_back(s);
    }
    if (condition(subordinates)) return module.numCaixa;
  }
  return {};
}

bool IsClosed(const CaixaSubordinada& s) { return s.dataFechamento.has_value(); }

TEST_P(CaixaEtiquetaRows, TheClosingLabelsOfSubordinatesAreThoseOfTheOpenOnesToo) {
  const Text parent = ParentWhere([](const auto& subordinates) {
    const auto closed = std::count_if(subordinates.begin(), subordinates.end(), IsClosed);
    return closed > 0 && closed < static_cast<std::ptrdiff_t>(subordinates.size());
  });
  Table expected(
      {L"DESC_CAIXA", L"NUM_CAIXA", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"Nome_Empresa"});
  for (const CaixaSubordinada& s : All<CaixaSubordinada>()) {
    if (s.numCaixa != parent) continue;
    expected.Add(ModuleOf(parent)->descCaixa, CodeOf(s), s.docInicial, s.docFinal, s.dataVencimento, s.tipoGuarda,
                 Company());
  }
  ExpectRows(RowsOf(&CCaixaRpt::EtiquetaFechamentoSubordinada, Obj({{L"Modulo1", parent}})), expected, {L"NUM_CAIXA"});
}

TEST_P(CaixaEtiquetaRows, AModuleWithOpenSubordinatesOnlyHasNoClosingLabels) {
  const Text parent = ParentWhere([](const auto& subordinates) {
    return !subordinates.empty() && std::none_of(subordinates.begin(), subordinates.end(), IsClosed);
  });
  EXPECT_EQ(ErrorOf(&CCaixaRpt::EtiquetaFechamentoSubordinada, Obj({{L"Modulo1", parent}})),
            Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não há módulos subordinados fechados associados ao módulo " + parent));
}

TEST_P(CaixaEtiquetaRows, AModuleThatIsNotThereHasNoListOfSubordinates) {
  EXPECT_EQ(ErrorOf(&CCaixaRpt::EtiquetaFechamentoSubordinada, Obj({{L"Modulo1", L"XX999"}})),
            Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo XX999"));
}

TEST_P(CaixaEtiquetaRows, TheDividersOfASubordinateAreThoseOfItsParent) {
  Table expected({L"COD_DOCTO"});
  for (const Documento& d : All<Documento>()) {
    if (d.numCaixa == L"AA001") expected.Add(d.codDocto);
  }
  for (const wchar_t* code : {L"AA001", L"AA00102"}) {
    ExpectRows(RowsOf(&CCaixaRpt::EtiquetaDivisoria, Obj({{L"Modulo1", code}})), expected, {L"COD_DOCTO"});
  }
}

}  // namespace
}  // namespace kodra::tests
