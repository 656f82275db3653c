// The module reports on a client's connection: they list only main modules, each of them once, leave the connection as
// it is, and hold the rows in the client's memory.
#include "ado/adoint.h"
#include "tests/rows/module_rows.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

using rows::ExpectExactly;
using rows::ExpectRows;
using rows::Listed;

class ModuleRowsOverConexao : public rows::OnBothEngines {
 protected:
  ModuleRowsOverConexao() : connection_(Create(L"ADODB.Connection")), report_(Create(L"KodraRpt.CCaixaRpt")) {
    EXPECT_EQ(S_OK, Put(connection_, L"ConnectionString", Sample()).hr);
    EXPECT_EQ(S_OK, Call(connection_, L"Open").hr);
    EXPECT_EQ(S_OK, PutRef(report_, L"Conexao", connection_).hr);
  }

  Ref<IDispatch> Open(const std::wstring& method, const Properties& properties = {}) const {
    return Got(Call(report_, method, {Var(ParametersOf(L"CCaixaRpt", properties).get())})).object();
  }
  Table Result(const std::wstring& method, const Properties& properties = {}) const {
    return ReadAll(Open(method, properties));
  }

  // The eleven methods, each with parameters that return rows.
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
};
INSTANTIATE_TEST_SUITE_P(, ModuleRowsOverConexao, rows::BothEngines(), rows::EngineName);

TEST_P(ModuleRowsOverConexao, OfOpeningLabelsAreOneForEachModule) {
  ExpectRows(Result(L"EtiquetaAbertura", {{L"Modulo1", L"AA007"}, {L"Modulo2", L"AA004"}}),
             rows::OpeningLabels({L"AA004", L"AA007"}, rows::kOverAConnection));
  ExpectRows(Result(L"EtiquetaAbertura", {{L"Tipo", L"S"}, {L"Modulo1", L"AA00410"}, {L"Modulo3", L"AA00102"}}),
             rows::OpeningLabelsOfSubordinates({L"AA00410", L"AA00102"}, rows::kOverAConnection));
}

TEST_P(ModuleRowsOverConexao, OfOtherLabelsAreAsOverAConnectionString) {
  ExpectRows(Result(L"EtiquetaFechamento", {{L"Modulo1", L"AA008"}, {L"Modulo2", L"AA002"}}),
             rows::ClosingLabels({L"AA002", L"AA008"}), {L"NUM_CAIXA"});
  ExpectRows(Result(L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"AA004"}}),
             rows::ClosingLabelsOfSubordinates(L"AA004"), {L"NUM_CAIXA"});
  ExpectRows(Result(L"EtiquetaDivisoria", {{L"Modulo1", L"AA004"}}), rows::DocumentsOf(L"AA004"), {L"COD_DOCTO"});
}

TEST_P(ModuleRowsOverConexao, OfListingsAreMainModulesOnly) {
  ExpectRows(Result(L"ModulosExcluidos"), rows::DiscardedModules({}, Listed::kMainOnly));
  ExpectRows(Result(L"ModulosVencidos"), rows::DueModules({}, Listed::kMainOnly));
  ExpectRows(Result(L"RelatoriosModulos"), rows::AllModules({}, Listed::kMainOnly));
}

TEST_P(ModuleRowsOverConexao, OfListingsAreFiltered) {
  const Properties filters = {{L"CodDepto", L"005"}, {L"ModoPregresso", true}};
  const rows::ModuleFilter filter{.department = L"005", .backCatalogue = true};
  EXPECT_EQ(1U, rows::DiscardedModules(filter, Listed::kMainOnly).rows.size());
  EXPECT_EQ(1U, rows::DueModules(filter, Listed::kMainOnly).rows.size());
  ExpectRows(Result(L"ModulosExcluidos", filters), rows::DiscardedModules(filter, Listed::kMainOnly));
  ExpectRows(Result(L"ModulosVencidos", filters), rows::DueModules(filter, Listed::kMainOnly));
  ExpectRows(Result(L"RelatoriosModulos", filters), rows::AllModules(filter, Listed::kMainOnly));
}

TEST_P(ModuleRowsOverConexao, OfUnindexedDocumentsAreTheSame) {
  ExpectRows(Result(L"DocsNaoIndexadosNosModulos"), rows::UnclassifiedDocuments({}), {L"NUM_CAIXA"});
}

TEST_P(ModuleRowsOverConexao, OfOneModuleAreTheSame) {
  ExpectRows(Result(L"DocsNoModuloSubRpt", {{L"Modulo1", L"AA00901"}}), rows::DocumentsOf(L"AA009"), {L"COD_DOCTO"});
  ExpectExactly(Result(L"DocsNoModulo", {{L"Modulo1", L"AA009"}}), rows::HeaderOf(*rows::ModuleOf(L"AA009")));
  ExpectExactly(Result(L"DocsNoModulo", {{L"Modulo1", L"AA00410"}}), rows::HeaderOf(*rows::SubordinateOf(L"AA00410")));
  for (const wchar_t* module : {L"AA002", L"ZZ999"})
    ExpectRows(Result(L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", module}}), rows::DiscardOf(module),
               {L"COD_DOCTO"});
}

TEST_P(ModuleRowsOverConexao, LeaveTheClientsConnectionOpenAndUnchanged) {
  const auto state = [&] {
    Texts values;
    for (const wchar_t* property : {L"ConnectionString", L"State", L"CursorLocation"})
      values.push_back(Got(Get(connection_, property)).text().value());
    return values;
  };
  const Texts before = state();
  EXPECT_EQ(std::to_wstring(adStateOpen), before[1]);
  for (const auto& [method, properties] : Methods()) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(method)));
    EXPECT_FALSE(Result(method, properties).rows.empty());
    EXPECT_EQ(before, state());
    const auto counted = Got(Call(connection_, L"Execute", {L"SELECT COUNT(*) AS N FROM PARAMETRO"})).object();
    EXPECT_EQ(rows::Cell(std::int64_t{2}), ReadAll(counted).rows.at(0).at(0));
  }
  EXPECT_EQ(before[0], Got(Get(report_, L"StringConexao")).text());
}

TEST_P(ModuleRowsOverConexao, LeaveTheConnectionOpenAfterAFailureToo) {
  const Outcome outcome = Call(report_, L"EtiquetaFechamentoSubordinada",
                               {Var(ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"ZZ999"}}).get())});
  EXPECT_EQ(Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo ZZ999"),
            outcome.failure);
  EXPECT_EQ(adStateOpen, Got(Get(connection_, L"State")).number());
  EXPECT_FALSE(Result(L"ModulosExcluidos").rows.empty());
}

TEST_P(ModuleRowsOverConexao, AreHeldByTheClientAndReadWithoutTheirConnection) {
  for (const auto& [method, properties] : Methods()) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(method)));
    const Table whole = Result(method, properties);
    const auto held = Open(method, properties);
    EXPECT_EQ(adUseClient, Got(Get(held, L"CursorLocation")).number());
    EXPECT_EQ(static_cast<int>(whole.rows.size()), Got(Get(held, L"RecordCount")).number());
    ASSERT_EQ(S_OK, PutRef(held, L"ActiveConnection", {}).hr);
    ASSERT_EQ(S_OK, Call(connection_, L"Close").hr);
    const Table read = ReadAll(held);
    ExpectRows(read, whole);
    ExpectExactly(ReadFromFirst(held), read);
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

TEST_P(ModuleRowsOverConexao, ComeFromAConnectionStringAfterItIsRemoved) {
  ExpectRows(Result(L"ModulosExcluidos"), rows::DiscardedModules({}, Listed::kMainOnly));
  ASSERT_EQ(S_OK, PutRef(report_, L"Conexao", {}).hr);
  ASSERT_EQ(S_OK, Put(report_, L"StringConexao", Sample()).hr);
  ExpectRows(Result(L"ModulosExcluidos"), rows::DiscardedModules({}), {L"DATA_VENCIMENTO", L"NUM_CAIXA"});
}

TEST_P(ModuleRowsOverConexao, ReleaseTheConnectionWithTheReport) {
  auto connection = Create(L"ADODB.Connection");
  ASSERT_EQ(S_OK, Call(connection, L"Open", {Sample()}).hr);
  auto report = Create(L"KodraRpt.CCaixaRpt");
  ASSERT_EQ(S_OK, PutRef(report, L"Conexao", connection).hr);
  auto modules = Got(Call(report, L"ModulosExcluidos", {Var(ParametersOf(L"CCaixaRpt").get())})).object();
  EXPECT_EQ(0U, report.Release());
  EXPECT_FALSE(ReadAll(modules).rows.empty());
  EXPECT_EQ(0U, modules.Release());
  EXPECT_EQ(0U, connection.Release());
}

}  // namespace
}  // namespace kodra::face
