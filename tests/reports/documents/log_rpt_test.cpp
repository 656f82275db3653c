// The event log.
#include "reports/reports.h"

#include <gtest/gtest.h>

#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Answers;
using recorder::FakeSurroundings;
using recorder::Framed;
using recorder::Utf8;

constexpr auto kName = "CLogRpt::RelatorioLog";
constexpr auto kNoRow = "BOF ou EOF é verdadeiro";
constexpr auto kNoField = "O item não foi encontrado na coleção";
constexpr Date k1March2024 = {45352};
constexpr Date k31March2024 = {45382};
constexpr Date kNoonOf1March2024 = {45352.5};

Subject Report(const Value& evento = L"Exclusão") {
  return SubjectOf(kName, &CLogRpt::RelatorioLog,
                   {{L"MaquinaOrigem", {L"PC-07"}},
                    {L"Operador", {L"ANA"}},
                    {L"Acao", {L"excluiu"}},
                    {L"Evento", {evento}},
                    {L"CodDocto", {L"D0001"}},
                    {L"DataInicial", {k1March2024}},
                    {L"DataFinal", {k31March2024}}});
}

// An event of the log, changed in some members.
Answers Event(const Answers& changes = {}) {
  Answers event = {{L"DataInicial", {kNoonOf1March2024}},
                   {L"Nome_Operador", {L"ANA"}},
                   {L"Maquina", {L"PC-07"}},
                   {L"Cod_Docto", {L"D0001"}},
                   {L"Tipo_Evento", {L"EXC"}},
                   {L"Acao", {L"Excluiu D0001"}}};
  for (const auto& [member, answers] : changes) event[member] = answers;
  return event;
}

// What the event-log component finds.
Preparation Finding(const Value& found) {
  return [found](FakeSurroundings& around) {
    around.Register(L"KodraRegEvt.RegEvtFind", {});
    around.Register(L"KodraRegEvt.RegEvtDAO", {{L"Localiza", {found}}});
  };
}

// A collection of those events, which are named Evento1, Evento2, …
Preparation Finding(const std::vector<Answers>& events) {
  return [events, held = std::vector<ObjectRef>()](FakeSurroundings& around) mutable {
    held.clear();
    for (const Answers& event : events)
      held.push_back(around.NewObject(L"Evento" + std::to_wstring(held.size() + 1), event));
    Answers collection = {{L"Count", {static_cast<std::int32_t>(held.size())}}};
    if (!held.empty()) collection[L"Item"].assign(held.begin(), held.end());
    Finding(around.NewObject(L"Eventos", collection))(around);
  };
}

// The calls that ask the event-log component, and its answer.
CallLines FindingLines(const Database& database, const std::string& answer) {
  CallLines lines = InitialisationLines(database);
  Append(lines, {
                    R"(CreateObject("KodraRegEvt.RegEvtFind") -> Object2)",
                    R"(Parametros.Get(Acao) -> "excluiu")",
                    R"(Object2.Let(Acao, "excluiu"))",
                    R"(Parametros.Get(CodDocto) -> "D0001")",
                    R"(Object2.Let(Cod_Docto, "D0001"))",
                    "Parametros.Get(DataFinal) -> Date(45382)",
                    "Object2.Let(DataFinal, Date(45382))",
                    "Parametros.Get(DataInicial) -> Date(45352)",
                    "Object2.Let(DataInicial, Date(45352))",
                    R"(Parametros.Get(MaquinaOrigem) -> "PC-07")",
                    R"(Object2.Let(Maquina, "PC-07"))",
                    R"(Parametros.Get(Operador) -> "ANA")",
                    R"(Object2.Let(Nome_Operador, "ANA"))",
                    R"(Parametros.Get(Evento) -> "Exclusão")",
                    R"(Object2.Let(Tipo_Evento, "EXC"))",
                    R"(CreateObject("KodraRegEvt.RegEvtDAO") -> Object3)",
                    "Object3.Let(StringConexao, " + Quoted(database.connectionString) + ")",
                    R"(Object3.Let(Caller, "KodraRpt.CLogRpt::RelatorioLog"))",
                    "Object3.Call(Localiza, ByRef Object2) -> " + answer,
                });
  return lines;
}

// The release of the reader and the filter, once nothing is read through them any more.
const CallLines kReleaseLines = {"~Object3", "~Object2"};

// The calls that fill the output.
CallLines OutputLines() {
  CallLines lines = {
      "NewRecordset() -> Recordset1",
      R"(Recordset1.AppendField("DATA", 135, 0, -1))",
      R"(Recordset1.AppendField("HORA", 200, 8, -1))",
      R"(Recordset1.AppendField("DESCR_OPERADOR", 200, 250, -1))",
      R"(Recordset1.AppendField("MAQUINA", 200, 250, -1))",
      R"(Recordset1.AppendField("COD_DOCTO", 200, 10, -1))",
      R"(Recordset1.AppendField("COD_ACAO", 200, 10, -1))",
  };
  for (int number = 1; number <= 32; ++number)
    lines.push_back("Recordset1.AppendField(\"ACAO" + std::to_string(number) + "\", 200, 250, -1)");
  Append(lines, {
                    "Recordset1.Open(missing, missing, -1, -1, -1)",
                    R"(Recordset1.FieldByName("DATA"))",
                    R"(Recordset1.FieldByName("HORA"))",
                    R"(Recordset1.FieldByName("DESCR_OPERADOR"))",
                    R"(Recordset1.FieldByName("MAQUINA"))",
                    R"(Recordset1.FieldByName("COD_DOCTO"))",
                    R"(Recordset1.FieldByName("COD_ACAO"))",
                });
  for (int number = 1; number <= 32; ++number)
    lines.push_back("Recordset1.FieldByName(\"ACAO" + std::to_string(number) + "\")");
  return lines;
}

std::string TwoEvents(const Database& database) {
  CallLines lines = FindingLines(database, "Eventos");
  Append(lines, OutputLines());
  Append(lines, {
                    "Eventos.Get(Count) -> 2",
                    "Eventos.Call(Item, 1) -> Evento1",
                    "Recordset1.AddNew()",
                    "Evento1.Get(DataInicial) -> Date(45352.5)",
                    "Recordset1.Field(DATA).Let(Date(45352.5))",
                    R"(Recordset1.Field(HORA).Let("12:00:00"))",
                    R"(Evento1.Get(Nome_Operador) -> "ANA")",
                    R"(Recordset1.Field(DESCR_OPERADOR).Let("ANA"))",
                    R"(Evento1.Get(Maquina) -> "PC-07")",
                    R"(Recordset1.Field(MAQUINA).Let("PC-07"))",
                    R"(Evento1.Get(Cod_Docto) -> "D0001")",
                    R"(Recordset1.Field(COD_DOCTO).Let("D0001"))",
                    R"(Evento1.Get(Tipo_Evento) -> "EXC")",
                    R"(Recordset1.Field(COD_ACAO).Let("EXC"))",
                    R"(Evento1.Get(Acao) -> "Excluiu D0001")",
                    R"(Recordset1.Field(ACAO1).Let("Excluiu D0001"))",
                    "Recordset1.Update()",
                    "Eventos.Call(Item, 2) -> Evento2",
                    "Recordset1.AddNew()",
                    "Evento2.Get(DataInicial) -> Date(45352.5)",
                    "Recordset1.Field(DATA).Let(Date(45352.5))",
                    R"(Recordset1.Field(HORA).Let("12:00:00"))",
                    R"(Evento2.Get(Nome_Operador) -> "BETO")",
                    R"(Recordset1.Field(DESCR_OPERADOR).Let("BETO"))",
                    R"(Evento2.Get(Maquina) -> "PC-07")",
                    R"(Recordset1.Field(MAQUINA).Let("PC-07"))",
                    "Evento2.Get(Cod_Docto) -> Null",
                    R"(Recordset1.Field(COD_DOCTO).Let(""))",
                    R"(Evento2.Get(Tipo_Evento) -> "EXC")",
                    R"(Recordset1.Field(COD_ACAO).Let("EXC"))",
                    R"(Evento2.Get(Acao) -> "")",
                    "Recordset1.Update()",
                    "Recordset1.MoveFirst()",
                });
  Append(lines, kReleaseLines);
  Append(lines, {"~Recordset1"});
  return All({lines});
}

const std::vector<Answers> kTwoEvents = {
    Event(), Event({{L"Nome_Operador", {L"BETO"}}, {L"Cod_Docto", {Null{}}}, {L"Acao", {L""}}})};

// A field of the only row that the report makes of an event.
Value FieldOf(const std::wstring& field, const Answers& changes) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(std::vector{Event(changes)}));
  scenario.Prepare();
  return scenario.Call()->FieldByName(field)->Get();
}

TEST(CLogRptTest, CopiesWhatTheEventLogFindsOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Scenario(Report(), database, Finding(kTwoEvents)).Run(), TwoEvents(database));
}

// A collection of one event that is read through the component's reader and its filter, so that it needs both.
class ReadingCollection final : public AutomationObject {
 public:
  ReadingCollection(std::weak_ptr<AutomationObject> filter, std::weak_ptr<AutomationObject> reader, ObjectRef event)
      : filter_(std::move(filter)), reader_(std::move(reader)), event_(std::move(event)) {}

  Value Get(std::wstring_view) override { return std::int32_t{filter_.expired() || reader_.expired() ? 0 : 1}; }
  Value Call(std::wstring_view, std::span<const Value>) override {
    return filter_.expired() || reader_.expired() ? ObjectRef() : event_;
  }
  void Let(std::wstring_view, const Value&) override { FAIL() << "a collection is only read"; }
  void Set(std::wstring_view, const ObjectRef&) override { FAIL() << "a collection is only read"; }

 private:
  std::weak_ptr<AutomationObject> filter_;
  std::weak_ptr<AutomationObject> reader_;
  ObjectRef event_;
};

// A reader that finds such a collection.
class Reader final : public AutomationObject, public std::enable_shared_from_this<Reader> {
 public:
  explicit Reader(ObjectRef event) : event_(std::move(event)) {}

  Value Call(std::wstring_view, std::span<const Value> arguments) override {
    return ObjectRef(std::make_shared<ReadingCollection>(ObjectIn(arguments[0]), weak_from_this(), event_));
  }
  Value Get(std::wstring_view) override { return {}; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}

 private:
  ObjectRef event_;
};

TEST(CLogRptTest, CopiesEventsThatAreReadThroughTheFilterAndTheReader) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), [](FakeSurroundings& around) {
    around.Register(L"KodraRegEvt.RegEvtFind", {});
    around.RegisterMaker(L"KodraRegEvt.RegEvtDAO", L"Leitor", [&around](const std::wstring&) {
      return std::make_shared<Reader>(around.NewObject(L"Evento", Event()));
    });
  });
  scenario.Prepare();
  EXPECT_EQ(scenario.Call()->FieldByName(L"DESCR_OPERADOR")->Get(), Value(L"ANA"));
}

TEST(CLogRptTest, IsOnTheFirstEvent) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(kTwoEvents));
  scenario.Prepare();
  const frame::ReportRows rows = scenario.Call();
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->FieldByName(L"DESCR_OPERADOR")->Get(), Value(L"ANA"));
  rows->MoveNext();
  EXPECT_EQ(rows->FieldByName(L"DESCR_OPERADOR")->Get(), Value(L"BETO"));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

TEST(CLogRptTest, ReturnsNothingWithoutACollection) {
  const std::pair<Value, std::string> kAnswers[] = {{ObjectRef{}, "Nothing"}, {Empty{}, "Empty"}, {Null{}, "Null"}};
  for (const auto& [answer, shown] : kAnswers) {
    Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(answer));
    scenario.hasRows = false;
    CallLines lines = FindingLines(DatabaseOf(tbSQLServer), shown);
    Append(lines, kReleaseLines);
    EXPECT_EQ(scenario.Run(), All({lines}));
  }
}

TEST(CLogRptTest, RefusesACollectionThatIsNotAnObject) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Finding(Value(L"nada"))).RunRaising(),
            Framed(kName, "O objeto é obrigatório"));
}

TEST(CLogRptTest, RefusesEventsThatAreNotObjects) {
  const auto collectionOf = [](const Value& item) -> Preparation {
    return [item](FakeSurroundings& around) {
      Finding(around.NewObject(L"Eventos", {{L"Count", {1}}, {L"Item", {item}}}))(around);
    };
  };
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), collectionOf(5)).RunRaising(),
            Framed(kName, "O objeto é obrigatório"));
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), collectionOf(ObjectRef{})).RunRaising(),
            Framed(kName, "A variável do objeto ou a variável do bloco 'With' não foi definida"));
}

TEST(CLogRptTest, FailsOnTheFirstRowOfAnEmptyCollection) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(std::vector<Answers>{}));
  EXPECT_EQ(scenario.RunRaising(), Framed(kName, kNoRow));
  CallLines lines = FindingLines(DatabaseOf(tbSQLServer), "Eventos");
  Append(lines, OutputLines());
  Append(lines, {"Eventos.Get(Count) -> 0", "Recordset1.MoveFirst() raises", "~Recordset1"});
  Append(lines, kReleaseLines);
  EXPECT_EQ(scenario.around.journal.Calls(), All({lines}));
}

struct Kind {
  std::wstring given;
  std::wstring sought;
};

class CLogRptKindTest : public testing::TestWithParam<Kind> {};

TEST_P(CLogRptKindTest, SeeksTheFirstThreeCharactersOfTheEventInUpperCase) {
  const std::string calls = Scenario(Report(GetParam().given), DatabaseOf(tbSQLServer), Finding(kTwoEvents)).Run();
  EXPECT_NE(calls.find("\nObject2.Let(Tipo_Evento, \"" + Utf8(GetParam().sought) + "\")\n"), std::string::npos)
      << calls;
}

INSTANTIATE_TEST_SUITE_P(Kinds, CLogRptKindTest,
                         testing::Values(Kind{L"exclusão", L"EXC"}, Kind{L"EXC", L"EXC"}, Kind{L"ex", L"EX"},
                                         Kind{L"e", L"E"}, Kind{L"", L""}, Kind{L"ação", L"AÇÃ"},
                                         Kind{L" ex", L" EX"}));

TEST(CLogRptTest, PassesAnEmptyFilterForANewParameterObject) {
  const std::string calls = Scenario(Report(), DatabaseOf(tbSQLServer), Finding(kTwoEvents)).RunWithOwn({});
  const std::string filter = All({{
      R"(CreateObject("KodraRegEvt.RegEvtFind") -> Object2)",
      R"(Object2.Let(Acao, ""))",
      R"(Object2.Let(Cod_Docto, ""))",
      "Object2.Let(DataFinal, Date(0))",
      "Object2.Let(DataInicial, Date(0))",
      R"(Object2.Let(Maquina, ""))",
      R"(Object2.Let(Nome_Operador, ""))",
      R"(Object2.Let(Tipo_Evento, ""))",
      R"(CreateObject("KodraRegEvt.RegEvtDAO") -> Object3)",
  }});
  EXPECT_NE(calls.find(filter), std::string::npos) << calls;
}

TEST(CLogRptTest, NamesTheHourMinuteAndSecondOfTheEvent) {
  EXPECT_EQ(FieldOf(L"HORA", {{L"DataInicial", {Date{45352 + 36630.0 / 86400}}}}), Value(L"10:10:30"));
  EXPECT_EQ(FieldOf(L"HORA", {{L"DataInicial", {k1March2024}}}), Value(L"00:00:00"));
  EXPECT_EQ(FieldOf(L"HORA", {{L"DataInicial", {L"01/03/2024 23:59:58"}}}), Value(L"23:59:58"));
  EXPECT_EQ(FieldOf(L"HORA", {{L"DataInicial", {Null{}}}}), Value(L""));
  EXPECT_EQ(FieldOf(L"DATA", {{L"DataInicial", {Null{}}}}), Value(Null{}));
}

TEST(CLogRptTest, CutsTextsToTheirFields) {
  const std::wstring text(300, L'x');
  const std::pair<std::wstring, std::wstring> kMembers[] = {{L"DESCR_OPERADOR", L"Nome_Operador"},
                                                            {L"MAQUINA", L"Maquina"}};
  for (const auto& [field, member] : kMembers) {
    EXPECT_EQ(FieldOf(field, {{member, {text}}}), Value(text.substr(0, 250)));
    EXPECT_EQ(FieldOf(field, {{member, {text.substr(0, 250)}}}), Value(text.substr(0, 250)));
    EXPECT_EQ(FieldOf(field, {{member, {Null{}}}}), Value(Null{}));
  }
  EXPECT_EQ(FieldOf(L"COD_DOCTO", {{L"Cod_Docto", {L"D0123456789"}}}), Value(L"D012345678"));
  EXPECT_EQ(FieldOf(L"COD_DOCTO", {{L"Cod_Docto", {12}}}), Value(L"12"));
  EXPECT_EQ(FieldOf(L"COD_DOCTO", {{L"Cod_Docto", {Null{}}}}), Value(L""));
  EXPECT_EQ(FieldOf(L"COD_ACAO", {{L"Tipo_Evento", {L"EXCLUSÃO_01"}}}), Value(L"EXCLUSÃO_0"));
  EXPECT_EQ(FieldOf(L"COD_ACAO", {{L"Tipo_Evento", {Null{}}}}), Value(Null{}));
}

// An action text in which every piece of 250 characters has a letter of its own.
std::wstring Action(std::size_t length) {
  std::wstring action;
  for (std::size_t at = 0; at < length; ++at) action += static_cast<wchar_t>(L'A' + at / 250);
  return action;
}

struct Length {
  std::size_t characters;
  // The last field with text, and how much of it.
  std::size_t fields;
  std::size_t inLast;
};

class CLogRptActionTest : public testing::TestWithParam<Length> {};

TEST_P(CLogRptActionTest, CutsTheActionIntoFieldsOf250Characters) {
  const auto& [characters, fields, inLast] = GetParam();
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(std::vector{Event({{L"Acao", {Action(characters)}}})}));
  scenario.Prepare();
  const frame::ReportRows rows = scenario.Call();
  for (std::size_t number = 1; number <= 32; ++number) {
    Value expected;  // as the new row has it
    if (number <= fields)
      expected = std::wstring(number < fields ? 250 : inLast, static_cast<wchar_t>(L'A' + number - 1));
    EXPECT_EQ(rows->FieldByName(L"ACAO" + std::to_wstring(number))->Get(), expected) << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Lengths, CLogRptActionTest,
                         testing::Values(Length{0, 0, 0}, Length{1, 1, 1}, Length{250, 1, 250}, Length{251, 2, 1},
                                         Length{500, 2, 250}, Length{7751, 32, 1}, Length{8000, 32, 250}));

TEST(CLogRptTest, FailsForAnActionLongerThanAllItsFields) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(std::vector{Event({{L"Acao", {Action(8001)}}})}));
  EXPECT_EQ(scenario.RunRaising(), Framed(kName, kNoField));
  const std::string calls = scenario.around.journal.Calls();
  EXPECT_TRUE(calls.ends_with("\nRecordset1.FieldByName(\"ACAO33\") raises\n~Recordset1\n~Object3\n~Object2\n"))
      << calls;
}

TEST(CLogRptTest, RefusesANullAction) {
  EXPECT_EQ(
      Scenario(Report(), DatabaseOf(tbSQLServer), Finding(std::vector{Event({{L"Acao", {Null{}}}})})).RunRaising(),
      Framed(kName, "Uso de 'Null' inválido"));
}

TEST(CLogRptTest, NeedsTheEventLogComponent) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer)).RunRaising(),
            Framed(kName, "O componente ActiveX não pode criar o objeto"));
}

TEST(CLogRptTest, RaisesEveryErrorInItsFrame) { CheckInputsNeeded(Report()); }

TEST(CLogRptTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  CheckPropertiesNeeded(Report(), Finding(kTwoEvents));
}

TEST(CLogRptTest, WorksAgainAfterTheFailureOfAnyCall) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Finding(kTwoEvents));
  CheckEachCallFailing(scenario, FramedOutcome);
  Scenario nothing(Report(), DatabaseOf(tbSQLite), Finding(Value(ObjectRef{})));
  nothing.hasRows = false;
  CheckEachCallFailing(nothing, FramedOutcome);
}

}  // namespace
}  // namespace kodra::reports
