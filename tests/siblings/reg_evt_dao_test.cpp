#include "siblings/reg_evt_dao.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "tests/siblings/archive_on_sqlite.h"
#include "values/format_date.h"

namespace kodra::siblings {
namespace {

using recorder::kObjectNotSet;
using recorder::Raised;
using recorder::RaisedBy;
using testbed::Evento;

using Settings = std::vector<std::pair<const wchar_t*, Value>>;

Date ToDate(testbed::Moment moment) {
  constexpr auto kDayZero = std::chrono::sys_days(std::chrono::year(1899) / 12 / 30);
  const auto seconds = (moment - kDayZero).count();
  const auto days = seconds / 86400;
  return {static_cast<double>(days) + static_cast<double>(seconds % 86400) / 86400};
}

// The content of an event object, in one line.
std::wstring Line(const Date& moment, const std::wstring& rest) {
  return values::FormatDate(moment, L"yyyy-mm-dd hh:nn:ss|") + rest;
}
std::wstring Line(const Evento& event) {
  return Line(ToDate(event.dataInicial.value()), event.nomeOperador.value_or(L"") + L"|" + event.maquina.value_or(L"") +
                                                     L"|" + event.codDocto.value_or(L"") + L"|" +
                                                     event.tipoEvento.value_or(L"") + L"|" + event.acao.value_or(L""));
}
std::wstring Line(AutomationObject& event) {
  std::wstring rest;
  for (const wchar_t* member : {L"Nome_Operador", L"Maquina", L"Cod_Docto", L"Tipo_Evento", L"Acao"}) {
    rest += (rest.empty() && member == std::wstring_view(L"Nome_Operador") ? L"" : L"|") +
            values::ToText(event.Get(member));
  }
  return Line(event.Get(L"DataInicial").As<Date>(), rest);
}

class RegEvtDaoTest : public ArchiveOnSqlite {
 protected:
  Value Find(const Settings& settings) {
    const ObjectRef filter = Create(L"KodraRegEvt.RegEvtFind");
    for (const auto& [member, value] : settings) filter->Let(member, value);
    const ObjectRef reader = CreateReader(L"KodraRegEvt.RegEvtDAO");
    reader->Let(L"Caller", L"KodraRpt.CLogRpt::RelatorioLog");
    return CallOf(reader, L"Localiza", {filter});
  }
  std::vector<std::wstring> Found(const Settings& settings) {
    std::vector<std::wstring> lines;
    const Value events = Find(settings);
    if (const ObjectRef collection = ObjectIn(events)) {
      collection->ForEach([&](const Value& event) { lines.push_back(Line(RequiredObject(event))); });
    }
    return lines;
  }
  // The archive's events that satisfy a predicate, in the order of time and code.
  static std::vector<std::wstring> Expected(const std::function<bool(const Evento&)>& isSo) {
    std::vector<Evento> events = archive->Of<Evento>();
    std::stable_sort(events.begin(), events.end(),
                     [](const Evento& a, const Evento& b) { return a.dataInicial < b.dataInicial; });
    std::vector<std::wstring> lines;
    for (const Evento& event : events) {
      if (isSo(event)) lines.push_back(Line(event));
    }
    return lines;
  }
  static std::size_t All() { return archive->Of<Evento>().size(); }
  // The moment of an event in the middle of the log.
  static testbed::Moment Middle() { return archive->Of<Evento>()[All() / 2].dataInicial.value(); }
};

TEST_F(RegEvtDaoTest, ReturnsTheWholeLogInTheOrderOfTimeForAnEmptyFilter) {
  const auto found = Found({});
  EXPECT_EQ(found, Expected([](const Evento&) { return true; }));
  EXPECT_EQ(found.size(), All());
}

TEST_F(RegEvtDaoTest, FiltersByEachText) {
  const Evento& sample = archive->Of<Evento>()[20];
  const auto check = [&](const wchar_t* member, const std::wstring& text, const testbed::MaybeText Evento::*column) {
    const auto expected = Expected([&](const Evento& event) { return event.*column == text; });
    EXPECT_EQ(Found({{member, text}}), expected);
    EXPECT_GT(expected.size(), 0U);
    EXPECT_LT(expected.size(), All());
  };
  check(L"Cod_Docto", sample.codDocto.value(), &Evento::codDocto);
  check(L"Maquina", sample.maquina.value(), &Evento::maquina);
  check(L"Nome_Operador", sample.nomeOperador.value(), &Evento::nomeOperador);
  check(L"Tipo_Evento", L"EXC", &Evento::tipoEvento);
}

TEST_F(RegEvtDaoTest, FiltersByAPartOfTheAction) {
  const auto expected = Expected(
      [](const Evento& event) { return event.acao && event.acao->find(L"imagem do documento") != std::wstring::npos; });
  EXPECT_EQ(Found({{L"Acao", L"imagem do documento"}}), expected);
  EXPECT_GT(expected.size(), 0U);
  EXPECT_LT(expected.size(), All());
}

TEST_F(RegEvtDaoTest, TakesTheActionLiterally) {
  EXPECT_EQ(Find({{L"Acao", L"%"}}), Value(ObjectRef()));
  EXPECT_EQ(Find({{L"Acao", L"Consulta_ao"}}), Value(ObjectRef()));
  EXPECT_EQ(Find({{L"Acao", L"'"}}), Value(ObjectRef()));
}

TEST_F(RegEvtDaoTest, IncludesTheMomentsOfBothBounds) {
  const testbed::Moment middle = Middle();
  const auto expected = Expected([&](const Evento& event) { return event.dataInicial == middle; });
  EXPECT_EQ(Found({{L"DataInicial", ToDate(middle)}, {L"DataFinal", ToDate(middle)}}), expected);
  EXPECT_GT(expected.size(), 0U);
}

TEST_F(RegEvtDaoTest, TakesOneBoundWithoutTheOther) {
  const testbed::Moment middle = Middle();
  EXPECT_EQ(Found({{L"DataInicial", ToDate(middle)}}),
            Expected([&](const Evento& event) { return event.dataInicial >= middle; }));
  EXPECT_EQ(Found({{L"DataFinal", ToDate(middle)}}),
            Expected([&](const Evento& event) { return event.dataInicial <= middle; }));
}

TEST_F(RegEvtDaoTest, IncludesTheWholeDayOfAFinalDateWithoutTime) {
  const testbed::Day day = std::chrono::floor<std::chrono::days>(Middle());
  const Date date = ToDate(day);
  const auto expected =
      Expected([&](const Evento& event) { return std::chrono::floor<std::chrono::days>(*event.dataInicial) == day; });
  EXPECT_EQ(Found({{L"DataInicial", date}, {L"DataFinal", date}}), expected);
  EXPECT_GT(expected.size(), 0U);
}

TEST_F(RegEvtDaoTest, TreatsTheZeroDateAsNoBound) {
  EXPECT_EQ(Found({{L"DataInicial", Date{}}, {L"DataFinal", Date{}}}).size(), All());
}

TEST_F(RegEvtDaoTest, CombinesAllConditionsOfTheFilter) {
  const testbed::Moment middle = Middle();
  const auto expected = Expected([&](const Evento& event) {
    return event.tipoEvento == L"CON" && event.acao && event.acao->find(L"0") != std::wstring::npos &&
           event.dataInicial >= middle;
  });
  EXPECT_EQ(Found({{L"Tipo_Evento", L"CON"}, {L"Acao", L"0"}, {L"DataInicial", ToDate(middle)}}), expected);
  EXPECT_GT(expected.size(), 0U);
}

TEST_F(RegEvtDaoTest, ReturnsNothingWhenNoEventMatches) {
  EXPECT_EQ(Find({{L"Tipo_Evento", L"XXX"}}), Value(ObjectRef()));
}

TEST_F(RegEvtDaoTest, ReturnsTextsForNulls) {
  const auto events = Find({{L"Tipo_Evento", L"INC"}});
  bool isEmpty = false;
  RequiredObject(events).ForEach(
      [&](const Value& event) { isEmpty = isEmpty || RequiredObject(event).Get(L"Acao") == Value(L""); });
  EXPECT_TRUE(isEmpty);  // row 12 of the log has no action
}

TEST_F(RegEvtDaoTest, NeedsAConnectionStringAndAFilter) {
  const ObjectRef reader = Create(L"KodraRegEvt.RegEvtDAO");
  const ObjectRef filter = Create(L"KodraRegEvt.RegEvtFind");
  EXPECT_EQ(RaisedBy([&] { CallOf(reader, L"Localiza", {filter}); }),
            (Raised{kErrBase + 1, "KodraRegEvt.RegEvtDAO::Localiza", "É preciso definir \"StringConexao\"."}));
  reader->Let(L"StringConexao", ConnectionString());
  EXPECT_EQ(RaisedBy([&] { CallOf(reader, L"Localiza", {ObjectRef()}); }), kObjectNotSet);
}

// The whole statement for a filter, on MySQL, whose literals differ.
std::string StatementFor(const Settings& settings) {
  recorder::FakeSurroundings around;
  around.ado.results = {{{L"DATA_INICIAL", L"NOME_OPERADOR", L"MAQUINA", L"COD_DOCTO", L"TIPO_EVENTO", L"ACAO"}, {}}};
  recorder::Answers answers{{L"Acao", {L""}},          {L"Cod_Docto", {L""}},   {L"Maquina", {L""}},
                            {L"Nome_Operador", {L""}}, {L"Tipo_Evento", {L""}}, {L"DataInicial", {Date{}}},
                            {L"DataFinal", {Date{}}}};
  for (const auto& [member, value] : settings) answers[member] = {value};
  RegEvtDao reader(around);
  reader.Let(L"StringConexao", L"Driver={MariaDB Unicode};Database=arq");
  const Value filter = around.NewObject(L"Filter", answers);
  reader.Call(L"Localiza", {&filter, 1});
  const std::string calls = around.journal.Calls();
  const std::size_t start = calls.find("Recordset1.Open(\"") + 17;
  return calls.substr(start, calls.find("\", Connection1", start) - start);
}

const std::string kSelect =
    "SELECT e.DATA_INICIAL, e.NOME_OPERADOR, e.MAQUINA, e.COD_DOCTO, e.TIPO_EVENTO, e.ACAO FROM EVENTO e ";

TEST(RegEvtDaoStatement, HasNoConditionForAnEmptyFilter) {
  EXPECT_EQ(StatementFor({}), kSelect + "ORDER BY e.DATA_INICIAL, e.COD_EVENTO");
}

TEST(RegEvtDaoStatement, HasAConditionForEveryMemberThatIsSet) {
  EXPECT_EQ(StatementFor({{L"Acao", L"50%_!"},
                          {L"Cod_Docto", L"0000000012"},
                          {L"Maquina", L"\\\\PC"},
                          {L"Nome_Operador", L"d'avila"},
                          {L"Tipo_Evento", L"INC"},
                          {L"DataInicial", Date{45291}},
                          {L"DataFinal", Date{45291.5}}}),
            kSelect +
                "WHERE e.ACAO LIKE '%50!%!_!!%' ESCAPE '!' AND e.COD_DOCTO = '0000000012' AND e.MAQUINA = "
                "'\\\\\\\\PC' AND e.NOME_OPERADOR = 'd''avila' AND e.TIPO_EVENTO = 'INC' AND e.DATA_INICIAL >= "
                "'2023-12-31 00:00:00' AND e.DATA_INICIAL <= '2023-12-31 12:00:00.999' "
                "ORDER BY e.DATA_INICIAL, e.COD_EVENTO");
}

TEST(RegEvtDaoStatement, EndsAFinalDateWithoutTimeAtTheEndOfItsDay) {
  EXPECT_EQ(StatementFor({{L"DataFinal", Date{45291}}}),
            kSelect + "WHERE e.DATA_INICIAL <= '2023-12-31 23:59:59.999' ORDER BY e.DATA_INICIAL, e.COD_EVENTO");
}

}  // namespace
}  // namespace kodra::siblings
