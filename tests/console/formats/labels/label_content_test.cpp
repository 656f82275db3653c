// What each label says.
#include "console/formats/labels/label_content.h"

#include <gtest/gtest.h>

namespace kodra::console::labels {
namespace {

constexpr Date kLastOf2023{45291};

struct NamedValue {
  const wchar_t* column;
  Value value;
};

Label LabelOf(const Heading& heading, const std::vector<NamedValue>& row, const ContainerModules& modules = {}) {
  std::vector<Column> columns;
  std::vector<Value> values;
  for (const auto& [column, value] : row) {
    columns.push_back({column});
    values.push_back(value);
  }
  return LabelMakerOf(heading, [&] { return modules; })(RowReader(columns, values));
}

// All texts of a label, for one comparison.
std::vector<std::wstring> Texts(const Label& label) {
  return {label.kind, label.organisation, label.number, label.description, label.facts, label.place};
}

TEST(RetentionText, SaysTheKindTheYearsAndTheDate) {
  EXPECT_EQ(RetentionText(L"T", {}, L"5"), L"guarda por prazo, 5 anos");
  EXPECT_EQ(RetentionText(L"T", {}, L"1"), L"guarda por prazo, 1 ano");
  EXPECT_EQ(RetentionText(L"T", kLastOf2023, L""), L"guarda por prazo, até 31/12/2023");
  EXPECT_EQ(RetentionText(L"", kLastOf2023, L""), L"até 31/12/2023");
  EXPECT_EQ(RetentionText(L"P", Null(), L"0"), L"guarda P");
}

TEST(RetentionText, SaysOfDiscardedContentsAndOfThoseDueOnceClosedJustThat) {
  EXPECT_EQ(RetentionText(L"E", kLastOf2023, L"5"), L"conteúdo descartado");
  EXPECT_EQ(RetentionText(L"D", Null(), L""), L"descarte após o fechamento");
}

TEST(RetentionText, TakesTheZeroDateForNone) { EXPECT_EQ(RetentionText(L"T", Date{0}, L""), L"guarda por prazo"); }

TEST(RetentionText, LeavesTheTimeOfDayOut) {
  EXPECT_EQ(RetentionText(L"T", Date{45291.75}, L""), L"guarda por prazo, até 31/12/2023");
}

TEST(LabelContent, OfAnOpening) {
  EXPECT_EQ(Texts(LabelOf({L"CCaixaRpt", L"EtiquetaAbertura", L"", {}}, {{L"DESC_CAIXA", L"Contratos"},
                                                                         {L"NUM_CAIXA", L"AB001"},
                                                                         {L"TIPO_GUARDA", L"T"},
                                                                         {L"ANOS_VENCIMENTO", std::int32_t(10)}})),
            (std::vector<std::wstring>{L"ABERTURA DE MÓDULO", L"", L"AB001", L"Contratos", L"guarda por prazo, 10 anos",
                                       L""}));
}

TEST(LabelContent, OfAClosing) {
  for (const wchar_t* method : {L"EtiquetaFechamento", L"EtiquetaFechamentoSubordinada"}) {
    EXPECT_EQ(
        Texts(LabelOf({L"CCaixaRpt", method, L"", {}}, {{L"DESC_CAIXA", L"Contratos"},
                                                        {L"NUM_CAIXA", L"AB00107"},
                                                        {L"DOC_INICIAL", L"0000000001"},
                                                        {L"DOC_FINAL", L"0000000090"},
                                                        {L"DATA_VENCIMENTO", kLastOf2023},
                                                        {L"TIPO_GUARDA", L"T"},
                                                        {L"Nome_Empresa", L"Arquivo Geral"}})),
        (std::vector<std::wstring>{L"FECHAMENTO DE MÓDULO", L"Arquivo Geral", L"AB00107", L"Contratos",
                                   L"documentos 0000000001 a 0000000090 · guarda por prazo, até 31/12/2023", L""}));
  }
}

TEST(LabelContent, OfAClosingWithoutDocuments) {
  const auto facts = [](const Value& first, const Value& last) {
    return LabelOf({L"CCaixaRpt", L"EtiquetaFechamento", L"", {}},
                   {{L"NUM_CAIXA", L"AB001"}, {L"DOC_INICIAL", first}, {L"DOC_FINAL", last}})
        .facts;
  };
  EXPECT_EQ(facts(Null(), Null()), L"");
  EXPECT_EQ(facts(L"1", Null()), L"documentos desde 1");
  EXPECT_EQ(facts(Null(), L"9"), L"documentos até 9");
}

TEST(LabelContent, OfADividerNamesTheModuleThatWasAskedFor) {
  EXPECT_EQ(Texts(LabelOf({L"CCaixaRpt", L"EtiquetaDivisoria", L"", {{L"Modulo1", L"AB00107"}}},
                          {{L"COD_DOCTO", L"0000000001"}})),
            (std::vector<std::wstring>{L"DIVISÓRIA", L"", L"0000000001", L"", L"módulo AB001", L""}));
}

TEST(LabelContent, OfAContainerListsItsModules) {
  const ContainerModules modules = {{L"C1", {L"AB001", L"AB002"}}, {L"C2", {L"AB003"}}};
  EXPECT_EQ(Texts(LabelOf({L"CContainerRpt", L"EtiquetaAbertura", L"", {}},
                          {{L"CONTAINER", L"C1"},
                           {L"DATA_VENCIMENTO", Date{0}},
                           {L"TIPO_GUARDA", L"D"},
                           {L"NOME_EMPRESA", L"Arquivo Geral"}},
                          modules)),
            (std::vector<std::wstring>{L"ABERTURA DE CONTÊINER", L"Arquivo Geral", L"C1", L"Módulos: AB001, AB002",
                                       L"descarte após o fechamento", L""}));
}

TEST(LabelContent, ReadsNamesInAnyCaseAndFixedWidthColumnsWithoutTheirBlanks) {
  const Label label = LabelOf({L"CCaixaRpt", L"EtiquetaAbertura", L"", {}},
                              {{L"num_caixa", L"AB001  "}, {L"desc_caixa", L"Contratos "}});
  EXPECT_EQ(label.number, L"AB001");
  EXPECT_EQ(label.description, L"Contratos");
}

TEST(PlaceText, LeavesOutWhatIsEmpty) {
  const auto place = [](const Value& row, const Value& rack, const Value& shelf, const Value& depository) {
    const std::vector<Column> columns = {{L"FILEIRA"}, {L"ESTANTE"}, {L"PRATELEIRA"}, {L"DEPOSITO"}};
    const std::vector<Value> values = {row, rack, shelf, depository};
    return PlaceText(RowReader(columns, values));
  };
  EXPECT_EQ(place(L"D", L"01", L"4", L"Galpão Central"),
            L"fileira D, estante 01, prateleira 4, depósito Galpão Central");
  EXPECT_EQ(place(L"", Null(), L"2 ", L""), L"prateleira 2");
  EXPECT_EQ(place(Null(), Null(), Null(), Null()), L"");
}

TEST(LabelContent, IsNoneOfAListing) {
  EXPECT_EQ(LabelMakerOf({L"CCaixaRpt", L"RelatoriosModulos", L"", {}}, {}), nullptr);
  EXPECT_EQ(LabelMakerOf({L"CContainerRpt", L"EtiquetaAberturaSubRpt", L"", {}}, {}), nullptr);
}

}  // namespace
}  // namespace kodra::console::labels
