// The recordsets of the reports beyond the catalogs: how they read, what they keep alive, and that those made in memory
// depend on nothing.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

constexpr int kForwardOnly = 0;
constexpr int kStatic = 3;
constexpr int kReadOnly = 1;
constexpr int kServer = 2;
constexpr int kClient = 3;
constexpr int kOpen = 1;
constexpr int kBoolean = 11;
constexpr int kDate = 133;
constexpr int kTimeStamp = 135;
constexpr int kText = 200;

struct Method {
  const wchar_t* report;
  const wchar_t* name;
  Properties properties;
};

// With a period that has documents.
Properties InPeriod(Properties properties = {}) {
  properties.emplace_back(L"DataInicial", DayOf(L"2012-01-01"));
  properties.emplace_back(L"DataFinal", DayOf(L"2020-12-31"));
  return properties;
}

const std::vector<Method>& Streamed() {
  static const std::vector<Method> methods = {
      {L"CDocumentoRpt", L"RelatorioSintetico", {}},
      {L"CDocumentoRpt", L"RelatorioAnalitico", {}},
      {L"CDocumentoRpt", L"RelatorioInventarios", {}},
      {L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal", {}},
      {L"CCaixaRpt", L"EtiquetaAbertura", {{L"Modulo1", L"AA004"}}},
      {L"CCaixaRpt", L"EtiquetaFechamento", {{L"Modulo1", L"AA004"}}},
      {L"CCaixaRpt", L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"AA004"}}},
      {L"CCaixaRpt", L"EtiquetaDivisoria", {{L"Modulo1", L"AA004"}}},
      {L"CCaixaRpt", L"ModulosExcluidos", {}},
      {L"CCaixaRpt", L"ModulosVencidos", {}},
      {L"CCaixaRpt", L"DocsNaoIndexadosNosModulos", {}},
      {L"CCaixaRpt", L"DocsNoModuloSubRpt", {{L"Modulo1", L"AA004"}}},
      {L"CCaixaRpt", L"RelatoriosModulos", {}},
      {L"CContainerRpt", L"RelatorioContainers", {}},
      {L"CContainerRpt", L"EtiquetaAberturaSubRpt", {{L"Container1", L"CT0002"}}},
      {L"CEstatImgRpt", L"RelatorioEstatisticas", InPeriod()},
      {L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento", InPeriod()},
      {L"CEstatIndexRpt",
       L"RelatorioEstatisticasPorPalavrasChave",
       {{L"NumeroPC1", L"1"},
        {L"NumeroPC2", L"2"},
        {L"NumeroPC3", L"3"},
        {L"NumeroPC4", L"4"},
        {L"NumeroPC5", L"5"},
        {L"NumeroObs", L"6"}}},
      {L"CEstatSuporteRpt", L"RelatorioEstatisticas", InPeriod()},
      {L"CEstatSubgrupoRpt", L"RelatorioEstatisticas", InPeriod()},
      {L"CEstatSerieRpt", L"RelatorioEstatisticas", InPeriod({{L"CodGrupo", L"003"}})},
  };
  return methods;
}
const std::vector<Method>& HeldByTheClient() {
  static const std::vector<Method> methods = {
      {L"CCaixaRpt", L"DocsNoModulo", {{L"Modulo1", L"AA004"}}},
      {L"CCaixaRpt", L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", L"AA004"}}},
  };
  return methods;
}
const std::vector<Method>& MadeInMemory() {
  static const std::vector<Method> methods = {
      {L"COperadorRpt", L"RelatorioOperadores", {}},
      {L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal", {{L"CodSolicit", L"2"}}},
      {L"CLogRpt", L"RelatorioLog", {}},
      {L"CContainerRpt", L"EtiquetaAbertura", {{L"Container1", L"CT0002"}, {L"Container2", L"CT0003"}}},
  };
  return methods;
}

testing::Message Named(const Method& method) {
  return testing::Message() << testing::PrintToString(std::wstring(method.report) + L"::" + method.name);
}
int Number(const Ref<IDispatch>& recordset, const wchar_t* property) { return Got(Get(recordset, property)).number(); }
Ref<IDispatch> FieldOf(const Ref<IDispatch>& recordset, const Var& field) {
  return Got(Call(recordset, L"Fields", {field})).object();
}

class ReportsRecordset : public testing::Test, protected ArchiveClient {
 protected:
  ReportsRecordset() : ArchiveClient(Engine::kMariaDb) {}
  Ref<IDispatch> OpenOf(const Method& method) const { return Open(method.report, method.name, method.properties); }
};

TEST_F(ReportsRecordset, StreamsFromTheServerForwardOnlyReadOnlyAHundredRowsAtATime) {
  for (const Method& method : Streamed()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    EXPECT_EQ(kOpen, Number(recordset, L"State"));
    EXPECT_EQ(kServer, Number(recordset, L"CursorLocation"));
    EXPECT_EQ(100, Number(recordset, L"CacheSize"));
    EXPECT_EQ(kForwardOnly, Number(recordset, L"CursorType"));
    EXPECT_EQ(kReadOnly, Number(recordset, L"LockType"));
    EXPECT_FALSE(ReadAll(recordset).rows.empty());
  }
}

TEST_F(ReportsRecordset, OfOneModuleIsHeldByTheClient) {
  for (const Method& method : HeldByTheClient()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    EXPECT_EQ(kOpen, Number(recordset, L"State"));
    EXPECT_EQ(kClient, Number(recordset, L"CursorLocation"));
    EXPECT_EQ(kStatic, Number(recordset, L"CursorType"));
    const Table first = ReadAll(recordset);
    EXPECT_EQ(static_cast<int>(first.rows.size()), Number(recordset, L"RecordCount"));
    EXPECT_EQ(first.rows, ReadFromFirst(recordset).rows);
  }
}

TEST_F(ReportsRecordset, StaysReadableWhenReportAndParametersAreReleased) {
  for (const auto* methods : {&Streamed(), &HeldByTheClient(), &MadeInMemory()})
    for (const Method& method : *methods) {
      SCOPED_TRACE(Named(method));
      auto report = Create(std::wstring(L"KodraRpt.") + method.report);
      auto parameters = ParametersOf(method.report, method.properties);
      ASSERT_EQ(S_OK, Put(report, L"StringConexao", Connection()).hr);
      auto recordset = Got(Call(report, method.name, {Var(parameters.get())})).object();
      EXPECT_EQ(0U, parameters.Release());
      EXPECT_EQ(0U, report.Release());
      CoFreeUnusedLibrariesEx(0, 0);
      const Table rows = ReadAll(recordset);
      EXPECT_FALSE(rows.rows.empty());
      EXPECT_EQ(ReadAll(OpenOf(method)).rows.size(), rows.rows.size());
      EXPECT_EQ(0U, recordset.Release());
    }
}

TEST_F(ReportsRecordset, MadeInMemoryHasNoConnection) {
  for (const Method& method : MadeInMemory()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    EXPECT_EQ(kOpen, Number(recordset, L"State"));
    EXPECT_FALSE(Got(Get(recordset, L"ActiveConnection")).object());
  }
}

TEST_F(ReportsRecordset, MadeInMemoryMayBeChangedByTheClient) {
  for (const Method& method : MadeInMemory()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    const Table before = ReadFromFirst(recordset);
    ASSERT_EQ(S_OK, Call(recordset, L"MoveFirst").hr);
    const int position = method.report == std::wstring(L"CLogRpt") ? 1 : 0;  // of the first text
    const auto text = FieldOf(recordset, position);
    ASSERT_EQ(S_OK, Put(text, L"Value", L"mudado").hr);
    ASSERT_EQ(S_OK, Call(recordset, L"Update").hr);
    ASSERT_EQ(S_OK, Call(recordset, L"AddNew").hr);
    ASSERT_EQ(S_OK, Put(text, L"Value", L"novo").hr);
    ASSERT_EQ(S_OK, Call(recordset, L"Update").hr);
    const Table after = ReadFromFirst(recordset);
    ASSERT_EQ(before.rows.size() + 1, after.rows.size());
    EXPECT_EQ(rows::Cell(L"mudado"), after.rows.front().at(position));
    EXPECT_EQ(rows::Cell(L"novo"), after.rows.back().at(position));
    for (std::size_t i = 1; i < before.rows.size(); ++i) EXPECT_EQ(before.rows[i], after.rows[i]);
  }
}

// A field's name, type and, for a text, size.
using FieldShape = std::tuple<std::wstring, int, int>;
std::vector<FieldShape> ShapeOf(const Ref<IDispatch>& recordset) {
  std::vector<FieldShape> shape;
  const int count = Number(Got(Get(recordset, L"Fields")).object(), L"Count");
  for (int i = 0; i < count; ++i) {
    const auto field = FieldOf(recordset, i);
    const int type = Number(field, L"Type");
    shape.emplace_back(*Got(Get(field, L"Name")).text(), type, type == kText ? Number(field, L"DefinedSize") : 0);
  }
  return shape;
}

TEST_F(ReportsRecordset, MadeInMemoryHasFieldsOfTheirTypeAndSize) {
  EXPECT_EQ((std::vector<FieldShape>{{L"DESCR_OPERADOR", kText, 255},
                                     {L"NOME_COMPLETO", kText, 255},
                                     {L"DESCR_TIPO", kText, 255},
                                     {L"DESCR_DEPTO", kText, 255},
                                     {L"CHAPA", kText, 255},
                                     {L"RAMAL", kText, 255},
                                     {L"DESCR_GRUPO_OP", kText, 255},
                                     {L"ATIVO", kBoolean, 0}}),
            ShapeOf(OpenOf(MadeInMemory()[0])));
  EXPECT_EQ((std::vector<FieldShape>{{L"OPERADOR", kText, 1000},
                                     {L"DOCUMENTOS", kText, 4000},
                                     {L"DEVOLUCAO", kText, 1000},
                                     {L"OBS_SOLICIT", kText, 4000}}),
            ShapeOf(OpenOf(MadeInMemory()[1])));
  std::vector<FieldShape> events = {{L"DATA", kTimeStamp, 0},        {L"HORA", kText, 8},
                                    {L"DESCR_OPERADOR", kText, 250}, {L"MAQUINA", kText, 250},
                                    {L"COD_DOCTO", kText, 10},       {L"COD_ACAO", kText, 10}};
  for (int piece = 1; piece <= 32; ++piece) events.emplace_back(L"ACAO" + std::to_wstring(piece), kText, 250);
  EXPECT_EQ(events, ShapeOf(OpenOf(MadeInMemory()[2])));
  EXPECT_EQ((std::vector<FieldShape>{{L"CONTAINER", kText, 10},
                                     {L"DATA_VENCIMENTO", kDate, 0},
                                     {L"TIPO_GUARDA", kText, 1},
                                     {L"NOME_EMPRESA", kText, 64}}),
            ShapeOf(OpenOf(MadeInMemory()[3])));
}

TEST(ReportsRecordsetOfOwnArchive, MadeInMemoryStaysReadableWhenTheDatabaseIsDeleted) {
  const OwnArchive archive({});
  std::vector<std::pair<Ref<IDispatch>, Table>> recordsets;
  for (const Method& method : MadeInMemory()) {
    const auto parameters = ParametersOf(method.report, method.properties);
    const auto run = [&] {
      return Got(RunReport(method.report, method.name, Var(parameters.get()), archive.Connection())).object();
    };
    recordsets.emplace_back(run(), ReadFromFirst(run()));
  }
  archive.Delete();
  for (const auto& [recordset, whole] : recordsets) {
    EXPECT_FALSE(whole.rows.empty());
    rows::ExpectRows(ReadFromFirst(recordset), whole);
  }
}

TEST_F(ReportsRecordset, OneReportReturnsSeveralThatAreReadByTurns) {
  const auto report = Create(L"KodraRpt.CDocumentoRpt");
  const Var parameters(Create(L"KodraRpt.CDocumentoRptObj").get());
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", Connection()).hr);
  const auto one = Got(Call(report, L"RelatorioSintetico", {parameters})).object();
  const auto other = Got(Call(report, L"RelatorioAnalitico", {parameters})).object();
  ASSERT_EQ(S_OK, Call(one, L"MoveNext").hr);
  const Table detail = ReadAll(other);
  const Table rest = ReadAll(one);
  EXPECT_EQ(RowsOf(L"CDocumentoRpt", L"RelatorioAnalitico").rows, detail.rows);
  EXPECT_EQ(RowsOf(L"CDocumentoRpt", L"RelatorioSintetico").rows.size(), rest.rows.size() + 1);
}

// Reports on two databases, called by turns on one thread: each statement is in its own dialect.
TEST(ReportsOnTwoDatabases, EachUseTheirOwnDialect) {
  const auto onSQLite = Create(L"KodraRpt.CEstatSerieRpt");
  const auto onMariaDb = Create(L"KodraRpt.CEstatSerieRpt");
  ASSERT_EQ(S_OK, Put(onSQLite, L"StringConexao", ConnectionOn(Engine::kSqlite)).hr);
  ASSERT_EQ(S_OK, Put(onMariaDb, L"StringConexao", ConnectionOn(Engine::kMariaDb)).hr);
  const Var parameters(ParametersOf(L"CEstatSerieRpt", InPeriod({{L"CodGrupo", L"003"}})).get());
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(ReadAll(Got(Call(onSQLite, L"RelatorioEstatisticas", {parameters})).object()).rows.empty());
    EXPECT_FALSE(ReadAll(Got(Call(onMariaDb, L"RelatorioEstatisticas", {parameters})).object()).rows.empty());
  }
}

}  // namespace
}  // namespace kodra::face
