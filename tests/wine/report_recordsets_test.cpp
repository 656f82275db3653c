// The recordsets that clients receive: how they are read, the types of their values, what they keep alive, and that
// those made in memory depend on nothing.
#include "ado/adoint.h"
#include "tests/wine/public_face.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

struct Method {
  const wchar_t* report;
  const wchar_t* name;
  Properties properties = {};
};

// Properties with a period in which documents were stored.
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

// -- The catalogs ---------------------------------------------------------------------------------------------------

TEST(CatalogRecordset, StreamsFromTheServerForwardOnlyReadOnlyAHundredRowsAtATime) {
  for (const ReportEntry& entry : CatalogReports()) {
    if (entry.name == std::wstring(L"CModeloRpt")) continue;
    SCOPED_TRACE(testing::PrintToString(std::wstring(entry.name)));
    const auto recordset = OpenReport(entry.name, entry.method());
    EXPECT_EQ(adStateOpen, Number(recordset, L"State"));
    EXPECT_EQ(adUseServer, Number(recordset, L"CursorLocation"));
    EXPECT_EQ(100, Number(recordset, L"CacheSize"));
    EXPECT_EQ(adOpenForwardOnly, Number(recordset, L"CursorType"));
    EXPECT_EQ(adLockReadOnly, Number(recordset, L"LockType"));
  }
}

// A client-side cursor is always static, whatever type was requested.
TEST(CatalogRecordset, OfModelsIsHeldByTheClient) {
  const auto recordset = OpenReport(L"CModeloRpt", L"RelatorioModelos");
  EXPECT_EQ(adStateOpen, Number(recordset, L"State"));
  EXPECT_EQ(adUseClient, Number(recordset, L"CursorLocation"));
  EXPECT_EQ(adOpenStatic, Number(recordset, L"CursorType"));
}

TEST(CatalogRecordset, OfModelsIsReadableTwice) {
  const auto recordset = OpenReport(L"CModeloRpt", L"RelatorioModelos");
  const Table first = ReadAll(recordset);
  EXPECT_FALSE(first.rows.empty());
  EXPECT_EQ(static_cast<int>(first.rows.size()), Number(recordset, L"RecordCount"));
  EXPECT_EQ(first.rows, ReadFromFirst(recordset).rows);
}

TEST(CatalogRecordset, StartsOnItsFirstRow) {
  const auto recordset = OpenReport(L"CDeptoRpt", L"RelatorioDeptos");
  EXPECT_EQ(VARIANT_FALSE, Got(Get(recordset, L"EOF")).raw().boolVal);
  EXPECT_EQ(S_OK, Get(Got(Call(recordset, L"Fields", {0})).object(), L"Value").hr);
}

TEST(CatalogRecordset, KeepsItsConnectionAliveWhenTheReportIsReleased) {
  for (const Method& method : {Method{L"CDeptoRpt", L"RelatorioDeptos"}, Method{L"CModeloRpt", L"RelatorioModelos"}}) {
    SCOPED_TRACE(Named(method));
    auto report = Create(std::wstring(L"KodraRpt.") + method.report);
    auto parameters = ParametersOf(method.report);
    ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
    const auto recordset = Got(Call(report, method.name, {Var(parameters.get())})).object();
    EXPECT_EQ(0U, parameters.Release());
    EXPECT_EQ(0U, report.Release());
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(ReadAll(recordset).rows.empty());
  }
}

TEST(CatalogRecordset, BelongsToTheClientAlone) {
  auto report = Create(L"KodraRpt.CDeptoRpt");
  const auto parameters = Create(L"KodraRpt.CDeptoRptObj");
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  auto recordset = Got(Call(report, L"RelatorioDeptos", {Var(parameters.get())})).object();
  EXPECT_EQ(0U, recordset.Release());
}

TEST(CatalogRecordset, OneReportReturnsSeveralThatAreReadByTurns) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  const auto one = Got(Call(report, L"RelatorioDeptos", {parameters})).object();
  const auto other = Got(Call(report, L"RelatorioDeptos", {parameters})).object();
  ASSERT_EQ(S_OK, Call(one, L"MoveNext").hr);
  const Table whole = ReadAll(other);
  Table rest = ReadAll(one);
  rest.rows.insert(rest.rows.begin(), whole.rows.front());
  EXPECT_EQ(whole.rows, rest.rows);
}

TEST(CatalogRecordset, ANewConnectionStringIsUsedFromTheNextCallOn) {
  const auto report = Create(L"KodraRpt.CDeptoRpt");
  const Var parameters(Create(L"KodraRpt.CDeptoRptObj").get());
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  const auto recordset = Got(Call(report, L"RelatorioDeptos", {parameters})).object();
  ASSERT_EQ(S_OK, Put(report, L"StringConexao", L"").hr);
  EXPECT_FALSE(ReadAll(recordset).rows.empty());
  EXPECT_EQ(DISP_E_EXCEPTION, Call(report, L"RelatorioDeptos", {parameters}).hr);
}

// -- The other reports ----------------------------------------------------------------------------------------------

class ReportRecordset : public testing::Test, protected ArchiveClient {
 protected:
  ReportRecordset() : ArchiveClient(Engine::kMariaDb) {}
  Ref<IDispatch> OpenOf(const Method& method) const { return Open(method.report, method.name, method.properties); }
};

TEST_F(ReportRecordset, StreamsFromTheServerForwardOnlyReadOnlyAHundredRowsAtATime) {
  for (const Method& method : Streamed()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    EXPECT_EQ(adStateOpen, Number(recordset, L"State"));
    EXPECT_EQ(adUseServer, Number(recordset, L"CursorLocation"));
    EXPECT_EQ(100, Number(recordset, L"CacheSize"));
    EXPECT_EQ(adOpenForwardOnly, Number(recordset, L"CursorType"));
    EXPECT_EQ(adLockReadOnly, Number(recordset, L"LockType"));
    EXPECT_FALSE(ReadAll(recordset).rows.empty());
  }
}

TEST_F(ReportRecordset, OfOneModuleIsHeldByTheClient) {
  for (const Method& method : HeldByTheClient()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    EXPECT_EQ(adStateOpen, Number(recordset, L"State"));
    EXPECT_EQ(adUseClient, Number(recordset, L"CursorLocation"));
    EXPECT_EQ(adOpenStatic, Number(recordset, L"CursorType"));
    const Table first = ReadAll(recordset);
    EXPECT_EQ(static_cast<int>(first.rows.size()), Number(recordset, L"RecordCount"));
    EXPECT_EQ(first.rows, ReadFromFirst(recordset).rows);
  }
}

TEST_F(ReportRecordset, StaysReadableWhenReportAndParametersAreReleased) {
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

TEST_F(ReportRecordset, MadeInMemoryHasNoConnection) {
  for (const Method& method : MadeInMemory()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    EXPECT_EQ(adStateOpen, Number(recordset, L"State"));
    EXPECT_FALSE(Got(Get(recordset, L"ActiveConnection")).object());
  }
}

TEST_F(ReportRecordset, MadeInMemoryMayBeChangedByTheClient) {
  for (const Method& method : MadeInMemory()) {
    SCOPED_TRACE(Named(method));
    const auto recordset = OpenOf(method);
    const Table before = ReadFromFirst(recordset);
    ASSERT_EQ(S_OK, Call(recordset, L"MoveFirst").hr);
    const int position = method.report == std::wstring(L"CLogRpt") ? 1 : 0;  // the first field that is a text
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

// The name and the type of a field and, if it is a text, its size.
using FieldShape = std::tuple<std::wstring, int, int>;
std::vector<FieldShape> ShapeOf(const Ref<IDispatch>& recordset) {
  std::vector<FieldShape> shape;
  const int count = Number(Got(Get(recordset, L"Fields")).object(), L"Count");
  for (int i = 0; i < count; ++i) {
    const auto field = FieldOf(recordset, i);
    const int type = Number(field, L"Type");
    shape.emplace_back(*Got(Get(field, L"Name")).text(), type, type == adVarChar ? Number(field, L"DefinedSize") : 0);
  }
  return shape;
}

TEST_F(ReportRecordset, MadeInMemoryHasFieldsOfTheirTypeAndSize) {
  EXPECT_EQ((std::vector<FieldShape>{{L"DESCR_OPERADOR", adVarChar, 255},
                                     {L"NOME_COMPLETO", adVarChar, 255},
                                     {L"DESCR_TIPO", adVarChar, 255},
                                     {L"DESCR_DEPTO", adVarChar, 255},
                                     {L"CHAPA", adVarChar, 255},
                                     {L"RAMAL", adVarChar, 255},
                                     {L"DESCR_GRUPO_OP", adVarChar, 255},
                                     {L"ATIVO", adBoolean, 0}}),
            ShapeOf(OpenOf(MadeInMemory()[0])));
  EXPECT_EQ((std::vector<FieldShape>{{L"OPERADOR", adVarChar, 1000},
                                     {L"DOCUMENTOS", adVarChar, 4000},
                                     {L"DEVOLUCAO", adVarChar, 1000},
                                     {L"OBS_SOLICIT", adVarChar, 4000}}),
            ShapeOf(OpenOf(MadeInMemory()[1])));
  std::vector<FieldShape> events = {{L"DATA", adDBTimeStamp, 0},         {L"HORA", adVarChar, 8},
                                    {L"DESCR_OPERADOR", adVarChar, 250}, {L"MAQUINA", adVarChar, 250},
                                    {L"COD_DOCTO", adVarChar, 10},       {L"COD_ACAO", adVarChar, 10}};
  for (int piece = 1; piece <= 32; ++piece) events.emplace_back(L"ACAO" + std::to_wstring(piece), adVarChar, 250);
  EXPECT_EQ(events, ShapeOf(OpenOf(MadeInMemory()[2])));
  EXPECT_EQ((std::vector<FieldShape>{{L"CONTAINER", adVarChar, 10},
                                     {L"DATA_VENCIMENTO", adDBDate, 0},
                                     {L"TIPO_GUARDA", adVarChar, 1},
                                     {L"NOME_EMPRESA", adVarChar, 64}}),
            ShapeOf(OpenOf(MadeInMemory()[3])));
}

TEST(ReportRecordsetOfAnArchiveCopy, MadeInMemoryStaysReadableWhenTheDatabaseIsDeleted) {
  const ArchiveCopy archive({});
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

TEST_F(ReportRecordset, OneReportReturnsSeveralThatAreReadByTurns) {
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

// -- The types of values --------------------------------------------------------------------------------------------

struct FieldType {
  const char* name;
  const wchar_t* report;
  const wchar_t* method;
  const wchar_t* field;
  VARTYPE type;
  Properties properties = {};

  friend void PrintTo(const FieldType& field, std::ostream* out) { *out << field.name; }
};

class FieldTypes : public testing::TestWithParam<std::tuple<FieldType, Engine>> {};

// The type on the first row where the field is not null.
TEST_P(FieldTypes, AreThoseOfTheirValues) {
  const auto& [tested, engine] = GetParam();
  const auto rows = ArchiveClient(engine).Open(tested.report, tested.method, tested.properties);
  const auto field = FieldOf(rows, tested.field);
  while (Got(Get(field, L"Value")).type() == VT_NULL) ASSERT_EQ(S_OK, Call(rows, L"MoveNext").hr);
  EXPECT_EQ(tested.type, Got(Get(field, L"Value")).type());
}

// The first event of kind LOG has a short action. The fields of the pieces beyond it are never assigned.
const Properties kShortActions = {{L"Evento", L"LOG"}};

const FieldType kFieldTypes[] = {
    {"DateOfAMedium", L"CCDRpt", L"RelatorioMidias", L"DATA_GRAVACAO", VT_DATE},
    {"DescriptionOfAMediaType", L"CTipo_MidiaRpt", L"RelatorioTiposMidia", L"DESCR_MIDIA", VT_BSTR},
    {"TermOfAMediaType", L"CTipo_MidiaRpt", L"RelatorioTiposMidia", L"VALIDADE_MIDIA", VT_I4},
    {"CodeOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"COD_DOCTO", VT_BSTR},
    {"MomentOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"DT_ARMAZ", VT_DATE},
    {"DateOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"DT_VENC", VT_DATE},
    {"FrontPagesOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"FRENTE", VT_I4},
    {"BackPagesOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"VERSO", VT_I4},
    {"FlagOfAnOperator", L"COperadorRpt", L"RelatorioOperadores", L"ATIVO", VT_BOOL},
    {"MomentOfAnEvent", L"CLogRpt", L"RelatorioLog", L"DATA", VT_DATE, kShortActions},
    {"TimeOfAnEvent", L"CLogRpt", L"RelatorioLog", L"HORA", VT_BSTR, kShortActions},
    {"DocumentOfAnEvent", L"CLogRpt", L"RelatorioLog", L"COD_DOCTO", VT_BSTR, kShortActions},
    {"FirstPieceOfAnAction", L"CLogRpt", L"RelatorioLog", L"ACAO1", VT_BSTR, kShortActions},
    {"PieceBeyondAnAction", L"CLogRpt", L"RelatorioLog", L"ACAO2", VT_EMPTY, kShortActions},
    {"LastPieceBeyondAnAction", L"CLogRpt", L"RelatorioLog", L"ACAO32", VT_EMPTY, kShortActions},
    {"DateInAUnionOfDiscardedModules", L"CCaixaRpt", L"ModulosExcluidos", L"DATA_FECHAMENTO", VT_DATE},
    {"DateInAUnionOfDueModules", L"CCaixaRpt", L"ModulosVencidos", L"DATA_FECHAMENTO", VT_DATE},
    {"DateInAUnionOfAllModules", L"CCaixaRpt", L"RelatoriosModulos", L"DATA_FECHAMENTO", VT_DATE},
};
INSTANTIATE_TEST_SUITE_P(, FieldTypes, testing::Combine(testing::ValuesIn(kFieldTypes), rows::BothEngines()),
                         [](const auto& info) {
                           return std::get<FieldType>(info.param).name + rows::NameOf(std::get<Engine>(info.param));
                         });

}  // namespace
}  // namespace kodra::face
