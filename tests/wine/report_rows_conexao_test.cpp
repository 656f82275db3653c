// The module reports over a connection of the client's: main modules only and each of them once, the connection as it
// was, and rows that stay with the client.
#include "tests/wine/report_rows_modules.h"

namespace kodra::face {
namespace {

constexpr int kOpen = 1;
constexpr int kClientSide = 3;

class ModuleRowsOverConexao : public OnBothDatabases {
 protected:
  ModuleRowsOverConexao() : connection_(Create(L"ADODB.Connection")), report_(Create(L"KodraRpt.CCaixaRpt")) {
    EXPECT_EQ(S_OK, Put(connection_, L"ConnectionString", Connection()).hr);
    EXPECT_EQ(S_OK, Call(connection_, L"Open").hr);
    EXPECT_EQ(S_OK, PutRef(report_, L"Conexao", connection_).hr);
  }

  Ref<IDispatch> Open(const std::wstring& method, const Properties& properties = {}) const {
    return Got(Call(report_, method, {Var(ParametersOf(L"CCaixaRpt", properties).get())})).object();
  }
  Rows Result(const std::wstring& method, const Properties& properties = {}) const {
    return ReadAll(Open(method, properties));
  }

  // The eleven methods, each with parameters that give rows.
  static const std::vector<std::pair<const wchar_t*, Properties>>& Methods() {
    static const std::vector<std::pair<const wchar_t*, Properties>> methods = {
        {L"EtiquetaAbertura", {{L"Modulo1", L"AA004"}}},
        {L"EtiquetaFechamento", {{L"Modulo1", L"AA004"}}},
        {L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"AA004"}}},
        {L"EtiquetaDivisoria", {{L"Modulo1", L"AA004"}}},
        {L"ModulosExcluidos", {}},
        {L"ModulosVencidos", {}},
        {L"DocsNoModulo", {{L"Modulo1", L"AA00410"}}},
        {L"DocsNoModuloSubRpt", {{L"Modulo1", L"AA004"}}},
        {L"DocsNaoIndexadosNosModulos", {}},
        {L"RelatoriosModulos", {}},
        {L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", L"AA004"}}},
    };
    return methods;
  }

  const Ref<IDispatch> connection_;
  const Ref<IDispatch> report_;
  const Modules modules_{GetParam()};
};
KODRA_ON_BOTH_DATABASES(ModuleRowsOverConexao);

TEST_P(ModuleRowsOverConexao, OfOpeningLabelsAreOneForEachModule) {
  ExpectRows(modules_.OpeningLabels({L"AA004", L"AA007"}, 1),
             Result(L"EtiquetaAbertura", {{L"Modulo1", L"AA007"}, {L"Modulo2", L"AA004"}}), {});
  ExpectRows(modules_.OpeningLabelsOfSubordinates({L"AA00410", L"AA00102"}, 1),
             Result(L"EtiquetaAbertura", {{L"Tipo", L"S"}, {L"Modulo1", L"AA00410"}, {L"Modulo3", L"AA00102"}}), {});
}

TEST_P(ModuleRowsOverConexao, OfOtherLabelsAreAsOverAConnectionString) {
  ExpectRows(modules_.ClosingLabels({L"AA002", L"AA008"}),
             Result(L"EtiquetaFechamento", {{L"Modulo1", L"AA008"}, {L"Modulo2", L"AA002"}}), {L"NUM_CAIXA"});
  ExpectRows(modules_.ClosingLabelsOfSubordinates(L"AA004"),
             Result(L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"AA004"}}), {L"NUM_CAIXA"});
  ExpectRows(modules_.Documents(L"AA004"), Result(L"EtiquetaDivisoria", {{L"Modulo1", L"AA004"}}), {L"COD_DOCTO"});
}

TEST_P(ModuleRowsOverConexao, OfListingsAreMainModulesOnly) {
  ExpectRows(modules_.Discarded(Modules::Any), Result(L"ModulosExcluidos"), {});
  ExpectRows(modules_.Due(Modules::Any), Result(L"ModulosVencidos"), {});
  ExpectRows(modules_.Listed(Modules::Any), Result(L"RelatoriosModulos"), {});
}

TEST_P(ModuleRowsOverConexao, OfListingsAreFilteredAsWell) {
  const Properties filters = {{L"CodDepto", L"005"}, {L"ModoPregresso", true}};
  const auto filter = [](const Row& c) { return c[L"COD_DEPTO"] == L"005" && c[L"DOCS_PREGRESSOS"] == L"1"; };
  EXPECT_EQ(1U, modules_.Discarded(filter).rows.size());
  EXPECT_EQ(1U, modules_.Due(filter).rows.size());
  ExpectRows(modules_.Discarded(filter), Result(L"ModulosExcluidos", filters), {});
  ExpectRows(modules_.Due(filter), Result(L"ModulosVencidos", filters), {});
  ExpectRows(modules_.Listed(filter), Result(L"RelatoriosModulos", filters), {});
}

TEST_P(ModuleRowsOverConexao, OfUnindexedDocumentsAreTheSame) {
  ExpectRows(modules_.Unindexed(Modules::Any), Result(L"DocsNaoIndexadosNosModulos"), {L"NUM_CAIXA"});
}

TEST_P(ModuleRowsOverConexao, OfOneModuleAreTheSame) {
  ExpectRows(modules_.Documents(L"AA009"), Result(L"DocsNoModuloSubRpt", {{L"Modulo1", L"AA00901"}}), {L"COD_DOCTO"});
  ExpectExactly(modules_.Header(L"AA009"), Result(L"DocsNoModulo", {{L"Modulo1", L"AA009"}}));
  ExpectExactly(modules_.HeaderOfSubordinate(L"AA00410"), Result(L"DocsNoModulo", {{L"Modulo1", L"AA00410"}}));
  ExpectRows(modules_.DocumentsForDiscard(L"AA002"),
             Result(L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", L"AA002"}}), {L"COD_DOCTO"});
  ExpectExactly({{L"COD_DOCTO", L"TOTAL_DOCS", L"TOTAL_PAGINAS"}, {{L" ", L"0", L"0"}}},
                Result(L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", L"ZZ999"}}));
}

TEST_P(ModuleRowsOverConexao, LeaveTheConnectionOpenAsItWasAndTheClients) {
  const auto state = [&] {
    Names values;
    for (const wchar_t* property : {L"ConnectionString", L"State", L"CursorLocation"})
      values.push_back(Got(Get(connection_, property)).text().value());
    return values;
  };
  const Names before = state();
  EXPECT_EQ(std::to_wstring(kOpen), before[1]);
  for (const auto& [method, properties] : Methods()) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(method)));
    EXPECT_FALSE(Result(method, properties).rows.empty());
    EXPECT_EQ(before, state());
    const auto counted = Got(Call(connection_, L"Execute", {L"SELECT COUNT(*) AS N FROM PARAMETRO"})).object();
    EXPECT_EQ(L"2", ReadAll(counted).rows.at(0).at(0));
  }
  EXPECT_EQ(before[0], Got(Get(report_, L"StringConexao")).text());
}

TEST_P(ModuleRowsOverConexao, LeaveTheConnectionOpenAfterAFailureToo) {
  const Outcome outcome = Call(report_, L"EtiquetaFechamentoSubordinada",
                               {Var(ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"ZZ999"}}).get())});
  EXPECT_EQ(Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo ZZ999"),
            outcome.failure);
  EXPECT_EQ(kOpen, Got(Get(connection_, L"State")).number());
  EXPECT_FALSE(Result(L"ModulosExcluidos").rows.empty());
}

TEST_P(ModuleRowsOverConexao, AreHeldByTheClientAndReadWithoutTheirConnection) {
  for (const auto& [method, properties] : Methods()) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(method)));
    const Rows whole = Result(method, properties);
    const auto rows = Open(method, properties);
    EXPECT_EQ(kClientSide, Got(Get(rows, L"CursorLocation")).number());
    EXPECT_EQ(static_cast<int>(whole.rows.size()), Got(Get(rows, L"RecordCount")).number());
    ASSERT_EQ(S_OK, PutRef(rows, L"ActiveConnection", {}).hr);
    ASSERT_EQ(S_OK, Call(connection_, L"Close").hr);
    const Rows read = ReadAll(rows);
    ExpectRows(whole, read, {});
    ExpectExactly(read, ReadFromFirst(rows));
    ASSERT_EQ(S_OK, Call(connection_, L"Open").hr);
  }
}

TEST_P(ModuleRowsOverConexao, AreBoundToTheClientsConnection) {
  for (const auto& [method, properties] : Methods()) {
    const auto bound = Got(Get(Open(method, properties), L"ActiveConnection")).object();
    EXPECT_EQ(connection_.As<IUnknown>().get(), bound.As<IUnknown>().get())
        << testing::PrintToString(std::wstring(method));
  }
}

TEST_P(ModuleRowsOverConexao, TakeTheConnectionInPlaceOfAConnectionString) {
  ASSERT_EQ(S_OK, Put(report_, L"StringConexao", L"Driver={SQLite3};Database=/nao/existe.db").hr);
  EXPECT_FALSE(Result(L"ModulosExcluidos").rows.empty());
  EXPECT_EQ(Got(Get(connection_, L"ConnectionString")).text(), Got(Get(report_, L"StringConexao")).text());
}

TEST_P(ModuleRowsOverConexao, ComeFromAConnectionStringAgainWithoutIt) {
  EXPECT_EQ(modules_.Discarded(Modules::Any).rows.size(), Result(L"ModulosExcluidos").rows.size());
  ASSERT_EQ(S_OK, PutRef(report_, L"Conexao", {}).hr);
  ASSERT_EQ(S_OK, Put(report_, L"StringConexao", Connection()).hr);
  ExpectRows(Union(modules_.Discarded(Modules::Any), modules_.DiscardedSubordinates(Modules::Any)),
             Result(L"ModulosExcluidos"), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
}

TEST_P(ModuleRowsOverConexao, ReleaseTheConnectionWithTheReport) {
  auto connection = Create(L"ADODB.Connection");
  ASSERT_EQ(S_OK, Call(connection, L"Open", {Connection()}).hr);
  auto report = Create(L"KodraRpt.CCaixaRpt");
  ASSERT_EQ(S_OK, PutRef(report, L"Conexao", connection).hr);
  auto rows = Got(Call(report, L"ModulosExcluidos", {Var(ParametersOf(L"CCaixaRpt").get())})).object();
  EXPECT_EQ(0U, report.Release());
  EXPECT_FALSE(ReadAll(rows).rows.empty());
  EXPECT_EQ(0U, rows.Release());
  EXPECT_EQ(0U, connection.Release());
}

}  // namespace
}  // namespace kodra::face
