// The operators: the report, the operator record, and the truth of a flag.
#include <gtest/gtest.h>

#include "reports/operators/operador_obj.h"
#include "reports/operators/operator_flag.h"
#include "reports/reports.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::kObjectNotSet;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Rows;
using recorder::Shown;
using recorder::Utf8;

constexpr auto kStatement =
    "SELECT o.DESCR_OPERADOR, o.NOME_COMPLETO, o.TIPO, d.DESCR_DEPTO, o.CHAPA, o.RAMAL, o.IDC_ATIVO AS ATIVO, "
    "gp.DESCR_GRPOP AS DESCR_GRUPO_OP FROM OPERADOR o "
    "INNER JOIN DEPTO d ON o.COD_DEPTO = d.COD_DEPTO "
    "INNER JOIN GRUPOS_OPERADORES gp ON o.COD_GRPOP = gp.COD_GRPOP "
    "WHERE o.OPCOES_PESSOAIS <> 'APAGADO' OR o.OPCOES_PESSOAIS IS NULL "
    "ORDER BY o.DESCR_OPERADOR";

Subject Report() { return SubjectOf("COperadorRpt::RelatorioOperadores", &COperadorRpt::RelatorioOperadores); }

// The columns of the statement, in its order, and an operator in that order.
const std::vector<std::wstring> kColumns = {L"DESCR_OPERADOR", L"NOME_COMPLETO", L"TIPO",  L"DESCR_DEPTO",
                                            L"CHAPA",          L"RAMAL",         L"ATIVO", L"DESCR_GRUPO_OP"};
using Operator = std::vector<Value>;
const Operator kAna = {L"ANA", L"Ana Lúcia", L"2", L"Jurídico", L"00017", L"4321", L"S", L"Arquivistas"};
const Operator kBeto = {L"BETO", Null{}, Null{}, L"Pessoal", Null{}, Null{}, Null{}, L"Consulta"};

// Ana with another value in one column.
Operator AnaWith(std::size_t column, Value value) {
  Operator ana = kAna;
  ana.at(column) = std::move(value);
  return ana;
}

// Those operators in the database, and a sibling that has one description for all types.
Preparation Having(std::vector<Operator> operators, Value description = L"Arquivista") {
  return [operators = std::move(operators), description = std::move(description)](FakeSurroundings& around) {
    around.Register(L"KodraBsnV3.ObtedorDeTiposOperadores", {{L"ObtemDescricao", {description}}});
    around.ado.results = {Rows{kColumns, operators}};
  };
}

Raised FailedStep(const std::string& step, const std::string& cause) {
  return {frame::kReportError, "KodraRpt.COperadorRpt::RelatorioOperadores", "Erro " + step + ": " + cause};
}

constexpr auto kReading = "ao obter dados do SGBD";
constexpr auto kMaking = "ao criar conjunto de dados de saída";
constexpr auto kFilling = "ao preencher conjunto de dados de saída";

// The calls up to the first row.
CallLines FirstLines(const Database& database) {
  CallLines lines = InitialisationLines(database);
  Append(lines, OpeningRows(database, kStatement, 1, 1));
  Append(lines, {
                    R"(Recordset1.FieldByName("ATIVO"))",
                    R"(Recordset1.FieldByName("CHAPA"))",
                    R"(Recordset1.FieldByName("DESCR_DEPTO"))",
                    R"(Recordset1.FieldByName("DESCR_GRUPO_OP"))",
                    R"(Recordset1.FieldByName("DESCR_OPERADOR"))",
                    R"(Recordset1.FieldByName("NOME_COMPLETO"))",
                    R"(Recordset1.FieldByName("RAMAL"))",
                    R"(Recordset1.FieldByName("TIPO"))",
                });
  return lines;
}

std::string AnaAndBeto(const Database& database) {
  CallLines lines = FirstLines(database);
  const std::string connect = "Object2.Let(StringConexao, " + Quoted(database.connectionString) + ")";
  Append(lines, {
                    "Recordset1.Eof() -> False",
                    R"(Recordset1.Field(ATIVO).Get() -> "S")",
                    R"(Recordset1.Field(CHAPA).Get() -> "00017")",
                    R"(Recordset1.Field(DESCR_DEPTO).Get() -> "Jurídico")",
                    R"(Recordset1.Field(DESCR_GRUPO_OP).Get() -> "Arquivistas")",
                    R"(Recordset1.Field(DESCR_OPERADOR).Get() -> "ANA")",
                    R"(Recordset1.Field(NOME_COMPLETO).Get() -> "Ana Lúcia")",
                    R"(Recordset1.Field(RAMAL).Get() -> "4321")",
                    R"(Recordset1.Field(TIPO).Get() -> "2")",
                    "Recordset1.MoveNext()",
                    "Recordset1.Eof() -> False",
                    "Recordset1.Field(ATIVO).Get() -> Null",
                    "Recordset1.Field(CHAPA).Get() -> Null",
                    R"(Recordset1.Field(DESCR_DEPTO).Get() -> "Pessoal")",
                    R"(Recordset1.Field(DESCR_GRUPO_OP).Get() -> "Consulta")",
                    R"(Recordset1.Field(DESCR_OPERADOR).Get() -> "BETO")",
                    "Recordset1.Field(NOME_COMPLETO).Get() -> Null",
                    "Recordset1.Field(RAMAL).Get() -> Null",
                    "Recordset1.Field(TIPO).Get() -> Null",
                    "Recordset1.MoveNext()",
                    "Recordset1.Eof() -> True",
                    "Recordset1.Close()",
                    "~Recordset1",
                    "NewRecordset() -> Recordset2",
                    R"(Recordset2.AppendField("DESCR_OPERADOR", 200, 255, -1))",
                    R"(Recordset2.AppendField("NOME_COMPLETO", 200, 255, -1))",
                    R"(Recordset2.AppendField("DESCR_TIPO", 200, 255, -1))",
                    R"(Recordset2.AppendField("DESCR_DEPTO", 200, 255, -1))",
                    R"(Recordset2.AppendField("CHAPA", 200, 255, -1))",
                    R"(Recordset2.AppendField("RAMAL", 200, 255, -1))",
                    R"(Recordset2.AppendField("DESCR_GRUPO_OP", 200, 255, -1))",
                    R"(Recordset2.AppendField("ATIVO", 11, 0, -1))",
                    "Recordset2.Open(missing, missing, -1, -1, -1)",
                    R"(Recordset2.FieldByName("DESCR_OPERADOR"))",
                    R"(Recordset2.FieldByName("NOME_COMPLETO"))",
                    R"(Recordset2.FieldByName("DESCR_TIPO"))",
                    R"(Recordset2.FieldByName("DESCR_DEPTO"))",
                    R"(Recordset2.FieldByName("CHAPA"))",
                    R"(Recordset2.FieldByName("RAMAL"))",
                    R"(Recordset2.FieldByName("DESCR_GRUPO_OP"))",
                    R"(Recordset2.FieldByName("ATIVO"))",
                    "Recordset2.AddNew()",
                    R"(Recordset2.Field(DESCR_OPERADOR).Let("ANA"))",
                    R"(Recordset2.Field(NOME_COMPLETO).Let("Ana Lúcia"))",
                    R"(CreateObject("KodraBsnV3.ObtedorDeTiposOperadores") -> Object2)",
                    connect,
                    R"(Object2.Call(ObtemDescricao, 2) -> "Arquivista")",
                    "~Object2",
                    R"(Recordset2.Field(DESCR_TIPO).Let("Arquivista"))",
                    R"(Recordset2.Field(DESCR_DEPTO).Let("Jurídico"))",
                    R"(Recordset2.Field(CHAPA).Let("00017"))",
                    R"(Recordset2.Field(RAMAL).Let("4321"))",
                    R"(Recordset2.Field(DESCR_GRUPO_OP).Let("Arquivistas"))",
                    "Recordset2.Field(ATIVO).Let(True)",
                    "Recordset2.Update()",
                    "Recordset2.AddNew()",
                    R"(Recordset2.Field(DESCR_OPERADOR).Let("BETO"))",
                    R"(Recordset2.Field(NOME_COMPLETO).Let(""))",
                    R"(CreateObject("KodraBsnV3.ObtedorDeTiposOperadores") -> Object3)",
                    Replaced(connect, "Object2", "Object3"),
                    R"(Object3.Call(ObtemDescricao, 0) -> "Arquivista")",
                    "~Object3",
                    R"(Recordset2.Field(DESCR_TIPO).Let("Arquivista"))",
                    R"(Recordset2.Field(DESCR_DEPTO).Let("Pessoal"))",
                    R"(Recordset2.Field(CHAPA).Let(""))",
                    R"(Recordset2.Field(RAMAL).Let(""))",
                    R"(Recordset2.Field(DESCR_GRUPO_OP).Let("Consulta"))",
                    "Recordset2.Field(ATIVO).Let(False)",
                    "Recordset2.Update()",
                    "Recordset2.MoveFirst()",
                    "~Recordset2",
                });
  return All({lines});
}

TEST(COperadorRptTest, CopiesTheOperatorsToARecordsetOfItsOwnOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Scenario(Report(), database, Having({kAna, kBeto})).Run(), AnaAndBeto(database));
}

TEST(COperadorRptTest, IsOnTheFirstOperator) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({kAna, kBeto}));
  scenario.Prepare();
  const frame::ReportRows rows = scenario.Call();
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->State(), platform::ad::kStateOpen);
  EXPECT_EQ(rows->FieldByName(L"DESCR_OPERADOR")->Get(), Value(L"ANA"));
  rows->MoveNext();
  EXPECT_EQ(rows->FieldByName(L"DESCR_OPERADOR")->Get(), Value(L"BETO"));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

TEST(COperadorRptTest, ReturnsNothingWithoutOperators) {
  for (const Database& database : Databases()) {
    Scenario scenario(Report(), database, Having({}));
    scenario.hasRows = false;
    CallLines lines = FirstLines(database);
    Append(lines, {"Recordset1.Eof() -> True", "Recordset1.Close()", "~Recordset1"});
    EXPECT_EQ(scenario.Run(), All({lines}));
  }
}

TEST(COperadorRptTest, AsksForTheNumberThatTheTypeBeginsWith) {
  const std::pair<Value, std::string> kTypes[] = {
      {L"12", "12"}, {L"12abc", "12"}, {L" 7 ", "7"},   {L"abc", "0"}, {L"", "0"},
      {Null{}, "0"}, {3, "3"},         {L"1.5", "1.5"}, {L"1,5", "1"}, {L"-2", "-2"},
  };
  for (const auto& [stored, asked] : kTypes) {
    const std::string calls =
        Scenario(Report(), DatabaseOf(tbSQLServer), Having({AnaWith(2, stored)}, L"Descrição")).Run();
    EXPECT_NE(calls.find("\nObject2.Call(ObtemDescricao, " + asked + ") -> \"Descrição\"\n"), std::string::npos)
        << calls;
  }
}

TEST(COperadorRptTest, PassesTheTypeAsADouble) {
  struct Types final : AutomationObject {
    Value Get(std::wstring_view) override { return {}; }
    void Let(std::wstring_view, const Value&) override {}
    void Set(std::wstring_view, const ObjectRef&) override {}
    Value Call(std::wstring_view, std::span<const Value> arguments) override {
      asked.emplace_back(arguments.begin(), arguments.end());
      return L"Arquivista";
    }
    std::vector<std::vector<Value>> asked;
  };
  const auto types = std::make_shared<Types>();
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), [&](FakeSurroundings& around) {
    Having({kAna})(around);
    around.RegisterMaker(L"KodraBsnV3.ObtedorDeTiposOperadores", L"Tipos", [&](const std::wstring&) { return types; });
  });
  scenario.Run();
  EXPECT_EQ(types->asked, std::vector<std::vector<Value>>{{2.0}});
}

TEST(COperadorRptTest, TakesTextsOfTheFullSizeOfAField) {
  const std::wstring full(255, L'x');
  for (const std::size_t column : {0, 1, 3, 4, 5, 7}) {
    Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({AnaWith(column, full)}));
    scenario.Prepare();
    const frame::ReportRows rows = scenario.Call();
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->FieldByName(kColumns[column])->Get(), Value(full));
  }
}

TEST(COperadorRptTest, WritesANumberOfAnyAutomationTypeWithItsDigits) {
  const struct {
    Value stored;
    std::wstring_view written;
  } cases[] = {
      {0.1F, L"0,1"},
      {1e7F, L"1E+07"},
      {Currency{9223372036854775807}, L"922337203685477,5807"},
      {Currency{-1}, L"-0,0001"},
      {Decimal{.low = 123456789012345678}, L"123456789012345678"},
      {Decimal{.low = 1250, .scale = 2}, L"12,5"},
      {std::uint64_t{18446744073709551615U}, L"18446744073709551615"},
  };
  for (const auto& [stored, written] : cases) {
    for (const std::size_t column : {0, 1, 3, 4, 5, 7}) {
      Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({AnaWith(column, stored)}));
      scenario.Prepare();
      const frame::ReportRows rows = scenario.Call();
      ASSERT_NE(rows, nullptr);
      EXPECT_EQ(rows->FieldByName(kColumns[column])->Get(), Value(written));
    }
  }
}

TEST(COperadorRptTest, FailsWhileFillingForATextLongerThanItsField) {
  const std::wstring tooLong(256, L'x');
  const Raised expected = FailedStep(kFilling, "A operação em várias etapas gerou erros");
  for (const std::size_t column : {0, 1, 3, 4, 5, 7})
    EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({AnaWith(column, tooLong)})).RunRaising(), expected)
        << column;
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kAna}, tooLong)).RunRaising(), expected);
}

TEST(COperadorRptTest, RefusesATypeWithoutDescription) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kAna}, Null{})).RunRaising(),
            FailedStep(kFilling, "Uso de 'Null' inválido"));
}

TEST(COperadorRptTest, RefusesATypeNumberThatNoDoubleHolds) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({AnaWith(2, L"1e999")})).RunRaising(),
            FailedStep(kFilling, "Estouro"));
}

TEST(COperadorRptTest, NamesNoStepForAFailureBeforeTheDatabase) {
  CheckInputsNeeded(Report(), [](const std::string&, const std::string& cause) { return FailedStep("", cause); });
}

TEST(COperadorRptTest, NamesTheDatabaseForAFailureThere) {
  Scenario scenario(Report(), DatabaseOf(tbOracle), Having({kAna}));
  scenario.Prepare();
  scenario.around.ado.nativeErrors = {942};
  scenario.around.journal.FailOn(L"Recordset1.Open",
                                 Failure(Erro(-2147217865, L"OraOLEDB", L"A tabela ou view não existe")));
  EXPECT_EQ(RaisedBy([&] { scenario.Call(); }),
            FailedStep(kReading, "[OraOLEDB]: A tabela ou view não existe [N:942]"));
}

TEST(COperadorRptTest, NamesTheDatabaseForAMissingFile) {
  Scenario scenario(Report(), DatabaseOf(tbSQLite), Having({kAna}));
  scenario.Prepare();
  scenario.around.files.clear();
  EXPECT_EQ(RaisedBy([&] { scenario.Call(); }),
            FailedStep(kReading,
                       R"([modADO.AbreCn]: [modADO::PreAbreCn]: Banco de dados "/dados/arquivo.db" não encontrado.)"));
}

TEST(COperadorRptTest, NamesTheDatabaseForAMissingColumn) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), [](FakeSurroundings& around) {
    around.ado.results = {Rows{{L"DESCR_OPERADOR"}, {}}};
  });
  EXPECT_EQ(scenario.RunRaising(), FailedStep(kReading, "O item não foi encontrado na coleção"));
}

TEST(COperadorRptTest, NamesTheFillingForAMissingSibling) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), [](FakeSurroundings& around) {
    around.ado.results = {Rows{kColumns, {kAna}}};
  });
  EXPECT_EQ(scenario.RunRaising(), FailedStep(kFilling, "O componente ActiveX não pode criar o objeto"));
}

// The step of a call, by the calls before it.
std::string StepOf(const FailedCall& failed) {
  const auto passed = [&](std::string_view line) { return failed.before.find(line) != std::string::npos; };
  if (!passed("~Object1\n")) return "";
  if (!passed("~Recordset1\n")) return kReading;
  return passed("Recordset2.AppendField(\"ATIVO\", 11, 0, -1)\n") ? kFilling : kMaking;
}

TEST(COperadorRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  const Outcome outcome = [](const Scenario& scenario, const FailedCall& failed, const InjectedFailure& injected) {
    return IsIgnored(failed.call) ? recorder::Raised() : FailedStep(StepOf(failed), Caught(scenario, failed, injected));
  };
  CheckFailures(Report(), kEveryCode, Having({kAna, kBeto}), outcome);
  Scenario empty(Report(), DatabaseOf(tbSQLServer), Having({}));
  empty.hasRows = false;
  CheckEachCallFailing(empty, outcome);
}

TEST(OperadorObjTest, WritesEveryPropertyInOneLine) {
  const OperadorObj record = {
      .Descr_Operador = L"MARIA",
      .Nome_Completo = L"Maria da Conceição",
      .Tipo = L"2",
      .Descr_Depto = L"Jurídico",
      .Chapa = L"00017",
      .Ramal = L"4321",
      .Descr_Grupo_Op = L"Arquivistas",
      .Ativo = true,
      .Desabilitado_AD = L"N",
      .Existe_AD = L"S",
  };
  EXPECT_EQ(Utf8(record.ToString()),
            "Descr_Operador: MARIA, Nome_Completo: Maria da Conceição, Tipo: 2, Descr_Depto: Jurídico, Chapa: 00017, "
            "Ramal: 4321, Descr_Grupo_Op: Arquivistas, Ativo: Verdadeiro, Desabilitado_AD: N, Existe_AD: S");
}

TEST(OperadorObjTest, WritesTheNamesOfEmptyPropertiesToo) {
  EXPECT_EQ(Utf8(OperadorObj().ToString()),
            "Descr_Operador: , Nome_Completo: , Tipo: , Descr_Depto: , Chapa: , "
            "Ramal: , Descr_Grupo_Op: , Ativo: Falso, Desabilitado_AD: , Existe_AD: ");
}

TEST(EhVerdadeiroTest, TakesEachLetterOfYesInEitherCase) {
  for (const wchar_t* text : {L"1", L"Y", L"S", L"T", L"V", L"y", L"s", L"t", L"v"})
    EXPECT_TRUE(EhVerdadeiro(text)) << Utf8(text);
}

TEST(EhVerdadeiroTest, LooksAtTheFirstCharacterOnly) {
  for (const wchar_t* text : {L"Yes", L"Sim", L"True", L"Verdadeiro", L"sim", L"verdadeiro", L"100", L"1,5", L"S "})
    EXPECT_TRUE(EhVerdadeiro(text)) << Utf8(text);
  for (const wchar_t* text : {L"No", L"Não", L"False", L"Falso", L"0,1", L"21", L" S", L"-1", L"\tS"})
    EXPECT_FALSE(EhVerdadeiro(text)) << Utf8(text);
}

TEST(EhVerdadeiroTest, TakesACommaForYes) {
  EXPECT_TRUE(EhVerdadeiro(L","));
  EXPECT_TRUE(EhVerdadeiro(L",N"));
}

TEST(EhVerdadeiroTest, TakesEverythingElseForNo) {
  for (const wchar_t* text : {L"0", L"N", L"F", L"n", L"f", L"X", L"", L" ", L"2", L".", L";", L"ß", L"Ş"})
    EXPECT_FALSE(EhVerdadeiro(text)) << Utf8(text);
}

TEST(EhVerdadeiroTest, ReadsAnyValueAsItsText) {
  for (const Value& value : {Value(1), Value(true), Value(std::int64_t{1}), Value(1.5), Value(10)})
    EXPECT_TRUE(EhVerdadeiro(value)) << Utf8(Shown(value));
  for (const Value& value : {Value(), Value(Null{}), Value(0), Value(false), Value(-1), Value(2), Value(0.1)})
    EXPECT_FALSE(EhVerdadeiro(value)) << Utf8(Shown(value));
}

TEST(EhVerdadeiroTest, RefusesAnObject) {
  EXPECT_EQ(RaisedBy([] { EhVerdadeiro(ObjectRef{}); }), kObjectNotSet);
}

}  // namespace
}  // namespace kodra::reports
