// The calls of reports to sibling components, and what the reports make of the results. Objects of the test replace the
// siblings.
#include "tests/wine/foreign_object.h"
#include "tests/wine/report_rows.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

// An answer that returns an object or a text, whatever the member.
RecordingObject::Answer Returning(const Var& value) {
  return [value](const std::wstring&, const std::vector<Var>&, VARIANT* result, EXCEPINFO*) {
    return value.CopyTo(result);
  };
}
// An answer that raises an error.
RecordingObject::Answer Failing() {
  return [](const std::wstring&, const std::vector<Var>&, VARIANT*, EXCEPINFO* info) {
    return Raise(info, kRaisedNumber, L"Irmao.Classe::Metodo", L"Sem permissão.");
  };
}

// The real siblings' collection of the subordinates of a module that has none.
Var EmptyCollection() {
  const auto filter = Create(L"KodraBsnV3.ModulosFiltro");
  EXPECT_EQ(S_OK, Put(filter, L"NumCaixa", L"AA002").hr);
  const auto modules = Create(L"KodraBsnV3.ObtedorDeModulos");
  EXPECT_EQ(S_OK, Put(modules, L"StringConexao", ArchiveConnection()).hr);
  const Var collection = Got(Call(modules, L"ObtemSubordinados", {Var(filter.get())}));
  EXPECT_EQ(0, Got(Get(collection.object(), L"Count")).number());
  return collection;
}

Outcome RunOnArchive(const std::wstring& report, const std::wstring& method, const Properties& properties) {
  return RunReport(report, method, Var(ParametersOf(report, properties).get()), ArchiveConnection());
}

class ReportSiblings : public testing::Test {
 protected:
  // Replaces a component that a report creates; the recorded calls name it `name`.
  StandIn Replace(const wchar_t* progId, const wchar_t* name, RecordingObject::Answer answer = {}) const {
    return StandIn(progId, [name, answer, calls = calls_] { return RecordingObject::New(name, calls, answer); });
  }

  const std::shared_ptr<Texts> calls_ = std::make_shared<Texts>();
};

// A sibling whose result or error makes a report fail.
struct FailingSibling {
  // In letters only: the test is named after it.
  const char* name;
  const wchar_t* progId;
  RecordingObject::Answer (*answer)();
  const wchar_t* report;
  const wchar_t* method;
  Properties properties;
  Failure expected;

  friend void PrintTo(const FailingSibling& failing, std::ostream* out) { *out << failing.name; }
};

class FailingSiblings : public ReportSiblings, public testing::WithParamInterface<FailingSibling> {};

TEST_P(FailingSiblings, FailTheReportWithTheirCause) {
  const auto& [name, progId, answer, report, method, properties, expected] = GetParam();
  const StandIn sibling = Replace(progId, L"Irmao", answer());
  const Outcome outcome = RunOnArchive(report, method, properties);
  EXPECT_EQ(expected, outcome.failure);
  EXPECT_FALSE(outcome.value.object());
  ASSERT_FALSE(calls_->empty());
  EXPECT_EQ(L"Irmao gone", calls_->back());
}

// The error of the operators' report while it fills its recordset.
Failure FailedFilling(const std::wstring& cause) {
  return {kReportError, L"KodraRpt.COperadorRpt::RelatorioOperadores",
          L"Erro ao preencher conjunto de dados de saída: " + cause};
}

const FailingSibling kFailingSiblings[] = {
    {"AnEventLogThatRaises",
     L"KodraRegEvt.RegEvtDAO",
     Failing,
     L"CLogRpt",
     L"RelatorioLog",
     {},
     Framed(L"CLogRpt::RelatorioLog", L"Sem permissão.")},
    {"AnEventLogWithAnEmptyCollection",
     L"KodraRegEvt.RegEvtDAO",
     [] { return Returning(EmptyCollection()); },
     L"CLogRpt",
     L"RelatorioLog",
     {},
     Framed(L"CLogRpt::RelatorioLog",
            L"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
            L"current record.")},
    {"OperatorTypesThatRaise",
     L"KodraBsnV3.ObtedorDeTiposOperadores",
     Failing,
     L"COperadorRpt",
     L"RelatorioOperadores",
     {},
     FailedFilling(L"Sem permissão.")},
    {"OperatorTypesWithATooLongDescription",
     L"KodraBsnV3.ObtedorDeTiposOperadores",
     [] { return Returning(std::wstring(256, L'x')); },
     L"COperadorRpt",
     L"RelatorioOperadores",
     {},
     FailedFilling(L"Multiple-step operation generated errors. Check each status value.")},
    {"ModulesWithAnEmptyCollection",
     L"KodraBsnV3.ObtedorDeModulos",
     [] { return Returning(EmptyCollection()); },
     L"CCaixaRpt",
     L"EtiquetaFechamentoSubordinada",
     {{L"Modulo1", L"AA001"}},
     Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
            L"Não há módulos subordinados fechados associados ao módulo AA001")},
    // The module reports name the source of the cause.
    {"ModulesThatRaise",
     L"KodraBsnV3.ModulosBsn",
     Failing,
     L"CCaixaRpt",
     L"ModulosExcluidos",
     {},
     {kReportError, L"Irmao.Classe::Metodo", L"Erro ao gerar dados para o relatório: Sem permissão."}},
};
INSTANTIATE_TEST_SUITE_P(, FailingSiblings, testing::ValuesIn(kFailingSiblings),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ReportSiblings, OfTheEventLogGetTheWholeFilter) {
  const StandIn find = Replace(L"KodraRegEvt.RegEvtFind", L"Find");
  const StandIn dao = Replace(L"KodraRegEvt.RegEvtDAO", L"DAO", Returning(Var::Nothing()));
  const Outcome outcome = RunOnArchive(L"CLogRpt", L"RelatorioLog",
                                       {{L"Owner", L"Arquivo"},
                                        {L"MaquinaOrigem", L"ESTAÇÃO-001"},
                                        {L"Operador", L"d'ávila"},
                                        {L"Acao", L"Inclusão"},
                                        {L"Evento", L"ínclusão"},
                                        {L"CodDocto", L"0000000009"},
                                        {L"DataInicial", DayOf(L"2024-05-30")},
                                        {L"DataFinal", DayOf(L"2024-05-31")}});
  EXPECT_EQ(S_OK, outcome.hr);
  EXPECT_FALSE(outcome.value.object());
  EXPECT_EQ(
      (Texts{L"Find.Acao := 'Inclusão'", L"Find.Cod_Docto := '0000000009'", L"Find.DataFinal := 2024-05-31 00:00:00",
             L"Find.DataInicial := 2024-05-30 00:00:00", L"Find.Maquina := 'ESTAÇÃO-001'",
             L"Find.Nome_Operador := 'd'ávila'", L"Find.Tipo_Evento := 'ÍNC'",
             L"DAO.StringConexao := '" + ArchiveConnection() + L"'", L"DAO.Caller := 'KodraRpt.CLogRpt::RelatorioLog'",
             L"DAO.Localiza (object)", L"DAO gone", L"Find gone"}),
      *calls_);
}

TEST_F(ReportSiblings, OfTheEventLogThatReturnNoCollectionLeadToNoRecordset) {
  for (const Var& none : {Var::Nothing(), Var()}) {
    const StandIn dao = Replace(L"KodraRegEvt.RegEvtDAO", L"DAO", Returning(none));
    const Outcome outcome = RunOnArchive(L"CLogRpt", L"RelatorioLog", {});
    EXPECT_EQ(S_OK, outcome.hr);
    EXPECT_EQ(VT_DISPATCH, outcome.value.type());
    EXPECT_FALSE(outcome.value.object());
  }
}

TEST_F(ReportSiblings, OfTheOperatorsAreAskedForEveryRowByNumber) {
  const ArchiveCopy archive({L"DELETE FROM OPERADOR WHERE COD_OPERADOR NOT IN ('1', '2', '3')",
                             L"UPDATE OPERADOR SET TIPO = '12abc' WHERE COD_OPERADOR = '1'",
                             L"UPDATE OPERADOR SET TIPO = NULL WHERE COD_OPERADOR = '2'",
                             L"UPDATE OPERADOR SET TIPO = '-1.5' WHERE COD_OPERADOR = '3'"});
  std::vector<VARTYPE> types;
  const StandIn names =
      Replace(L"KodraBsnV3.ObtedorDeTiposOperadores", L"Tipos",
              [&](const std::wstring&, const std::vector<Var>& arguments, VARIANT* result, EXCEPINFO*) {
                types.push_back(arguments.at(0).type());
                return Var(L"tipo " + arguments.at(0).text().value()).CopyTo(result);
              });
  const auto parameters = ParametersOf(L"COperadorRpt");
  const Table rows = ReadAll(
      Got(RunReport(L"COperadorRpt", L"RelatorioOperadores", Var(parameters.get()), archive.Connection())).object());
  Texts expected;
  // In the order of the logins: antonio.queiros, conceicao.falcao, joao.goncalves.
  EXPECT_EQ((std::vector<Value>{L"tipo -1.5", L"tipo 0", L"tipo 12"}), rows.Column(L"DESCR_TIPO"));
  for (const wchar_t* number : {L"-1.5", L"0", L"12"}) {
    expected.push_back(L"Tipos.StringConexao := '" + archive.Connection() + L"'");
    expected.push_back(std::wstring(L"Tipos.ObtemDescricao ") + number);
    expected.push_back(L"Tipos gone");
  }
  EXPECT_EQ(expected, *calls_);
  EXPECT_EQ(std::vector<VARTYPE>(3, VT_R8), types);
}

TEST_F(ReportSiblings, OfModulesGetConnectionStringAndLogFileAndTheirTextIsTheColumn) {
  const StandIn business = Replace(L"KodraBsnV3.ModulosBsn", L"Bsn", Returning(Var(L"'código ' || s.NUM_SEQ")));
  const auto report = Create(L"KodraRpt.CCaixaRpt");
  EXPECT_EQ(S_OK, Put(report, L"StringConexao", ArchiveConnection()).hr);
  const auto parameters = ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"AA00102"}});
  const Table rows = ReadAll(Got(Call(report, L"DocsNoModulo", {Var(parameters.get())})).object());
  ASSERT_EQ(1U, rows.rows.size());
  EXPECT_EQ(Value(L"código 2"), rows.rows[0][0]);
  EXPECT_EQ((Texts{L"Bsn.StringConexao := '" + ArchiveConnection() + L"'", L"Bsn.LogFile := ''",
                   L"Bsn.NumCxSubordinadaSQL 7 's'", L"Bsn gone"}),
            *calls_);
}

TEST_F(ReportSiblings, OfModulesGetTheClientsConnectionItself) {
  const auto connection = Create(L"ADODB.Connection");
  ASSERT_EQ(S_OK, Call(connection, L"Open", {ArchiveConnection()}).hr);
  const StandIn filter = Replace(L"KodraBsnV3.ModulosFiltro", L"Filtro");
  const StandIn modules = Replace(L"KodraBsnV3.ObtedorDeModulos", L"Obtedor", Returning(Var::Nothing()));
  const auto report = Create(L"KodraRpt.CCaixaRpt");
  ASSERT_EQ(S_OK, PutRef(report, L"Conexao", connection).hr);
  const auto parameters = ParametersOf(L"CCaixaRpt", {{L"Modulo1", L"AA001"}});
  EXPECT_EQ(Framed(L"CCaixaRpt::EtiquetaFechamentoSubordinada",
                   L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo AA001"),
            Call(report, L"EtiquetaFechamentoSubordinada", {Var(parameters.get())}).failure);
  const std::wstring given = Got(Get(connection, L"ConnectionString")).text().value();
  EXPECT_EQ((Texts{L"Filtro.NumCaixa := 'AA001'", L"Filtro.Fechados := 1", L"Obtedor.StringConexao := '" + given + L"'",
                   L"Obtedor.LogFile := ''", L"Obtedor.Conexao Set (object)", L"Obtedor.ObtemSubordinados (object)",
                   L"Obtedor gone", L"Filtro gone"}),
            *calls_);
}

TEST_F(ReportSiblings, OfContainersGetTheFieldItselfForEveryModule) {
  const ArchiveCopy archive({L"DELETE FROM PARAMETRO WHERE CODIGO <> '1'",
                             L"DELETE FROM CAIXA WHERE NUM_CAIXA NOT IN ('AA001', 'AA005')"});  // both in CT0003
  Texts fields;
  const StandIn conversions =
      Replace(L"VantLib.Conversoes", L"Conversoes",
              [&](const std::wstring&, const std::vector<Var>& arguments, VARIANT* result, EXCEPINFO*) {
                const auto field = arguments.at(0).object();
                fields.push_back(TextOf(Got(Get(field, L"Name"))) + L" " + TextOf(Got(Get(field, L"Value"))));
                return DayOf(L"2001-02-03").CopyTo(result);
              });
  const auto parameters = ParametersOf(L"CContainerRpt", {{L"Container1", L"CT0003"}});
  const Table labels = ReadFromFirst(
      Got(RunReport(L"CContainerRpt", L"EtiquetaAbertura", Var(parameters.get()), archive.Connection())).object());
  EXPECT_EQ((Texts{L"Conversoes.ToDate (object)", L"Conversoes.ToDate (object)", L"Conversoes gone"}), *calls_);
  EXPECT_EQ((std::multiset<std::wstring>{L"DATA_VENCIMENTO 2085-06-21 00:00:00", L"DATA_VENCIMENTO (null)"}),
            std::multiset<std::wstring>(fields.begin(), fields.end()));
  ASSERT_EQ(1U, labels.rows.size());
  EXPECT_EQ(rows::Cell(testbed::Day(std::chrono::year(2001) / 2 / 3)), labels.rows[0][1]);
}

}  // namespace
}  // namespace kodra::face
