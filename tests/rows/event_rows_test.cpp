// The event log: the events that the event component finds, cut into fields.
#include <algorithm>

#include "testbed/archive/schema.h"
#include "tests/rows/cases.h"
#include "tests/rows/period.h"
#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kLog{L"CLogRpt", L"RelatorioLog"};
constexpr std::size_t kPieces = 32;
constexpr std::size_t kPieceLength = 250;

// The events that pass a filter, with the action in pieces; the pieces beyond its end are never assigned.
Table Events(const std::function<bool(const Evento&)>& filter) {
  Table table({L"DATA", L"HORA", L"DESCR_OPERADOR", L"MAQUINA", L"COD_DOCTO", L"COD_ACAO"});
  for (std::size_t piece = 1; piece <= kPieces; ++piece) table.columns.push_back(L"ACAO" + std::to_wstring(piece));
  for (const Evento& e : All<Evento>()) {
    if (!filter(e)) continue;
    const std::string time = IsoText(*e.dataInicial).substr(11);
    Table::Row row{Cell(e.dataInicial),
                   Cell(Text(time.begin(), time.end())),
                   Cell(e.nomeOperador->substr(0, 250)),
                   Cell(e.maquina->substr(0, 250)),
                   Cell(e.codDocto.value_or(L"")),
                   Cell(e.tipoEvento)};
    const Text action = e.acao.value_or(L"");
    for (std::size_t from = 0; from < kPieces * kPieceLength; from += kPieceLength) {
      row.push_back(from < action.size() ? Cell(action.substr(from, kPieceLength)) : Value(Empty{}));
    }
    table.rows.push_back(row);
  }
  return table;
}

// The archive has an action that fills every piece, and texts that are longer than their fields.
Table AllEvents() {
  Table events = Events([](const Evento&) { return true; });
  EXPECT_EQ(events.rows.size(), All<Evento>().size());
  const std::vector<Value> lastPieces = events.Column(L"ACAO32");
  EXPECT_TRUE(std::any_of(lastPieces.begin(), lastPieces.end(), [](const Value& v) { return !v.Is<Empty>(); }));
  EXPECT_TRUE(std::any_of(All<Evento>().begin(), All<Evento>().end(),
                          [](const Evento& e) { return e.nomeOperador->size() > 250; }));
  return events;
}

// The last day of a period counts as a whole.
const Period& SomePeriod() {
  static const Period period{DayOf(*All<Evento>()[10].dataInicial), DayOf(*All<Evento>()[30].dataInicial)};
  return period;
}
Table EventsOfThePeriod() {
  const Period& period = SomePeriod();
  Table events = Events([&](const Evento& e) {
    return *e.dataInicial >= period.first && *e.dataInicial < period.last + std::chrono::days(1);
  });
  EXPECT_EQ(events.rows.size(), 21U);
  return events;
}

Table Deletions() {
  return Events([](const Evento& e) { return e.tipoEvento == L"EXC"; });
}

std::vector<Case> Log() {
  // No two events have the same time.
  const std::vector<std::wstring> order{L"DATA"};
  std::vector<Case> cases{
      {"AllEventsWithLongActionsInPieces", kLog, {}, AllEvents, order},
      {"EventsOfAPeriodWithItsLastDayWhole",
       kLog,
       {{L"DataInicial", DateOf(SomePeriod().first)}, {L"DataFinal", DateOf(SomePeriod().last)}},
       EventsOfThePeriod,
       order},
      {"EventsOfAKind", kLog, {{L"Evento", L"exc"}}, Deletions, order},
      {"EventsOfAKindInSmallLettersAtLength", kLog, {{L"Evento", L"exclusão"}}, Deletions, order},
      {"EventsOfAKindAtLength", kLog, {{L"Evento", L"Exclusão"}}, Deletions, order},
  };
  const Evento first = All<Evento>()[0];
  const Evento third = All<Evento>()[2];
  const Evento fourth = All<Evento>()[3];
  cases.push_back(
      {"EventsOfOneDocumentAndOneAction",
       kLog,
       {{L"CodDocto", *first.codDocto}, {L"Acao", L"Inclusão do documento"}},
       [=] { return Events([&](const Evento& e) { return e.codDocto == first.codDocto && e.acao == first.acao; }); },
       order});
  cases.push_back({"EventsOfOneDocumentOnePersonOneMachineAndOneAction",
                   kLog,
                   {{L"CodDocto", *third.codDocto},
                    {L"Operador", *third.nomeOperador},
                    {L"MaquinaOrigem", *third.maquina},
                    {L"Acao", L"Exclusão da imagem"}},
                   [=] { return Events([&](const Evento& e) { return e.codEvento == third.codEvento; }); },
                   order});
  cases.push_back({"EventsOfOnePersonOnOneMachine",
                   kLog,
                   {{L"Operador", *fourth.nomeOperador}, {L"MaquinaOrigem", *fourth.maquina}},
                   [=] {
                     return Events([&](const Evento& e) {
                       return e.nomeOperador == fourth.nomeOperador && e.maquina == fourth.maquina;
                     });
                   },
                   order});
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Log, ReportRows, testing::Combine(testing::ValuesIn(Log()), BothEngines()), CaseName);

class EventRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, EventRows, BothEngines(), EngineName);

TEST_P(EventRows, WithoutAnEventAreNoRecordset) { ExpectNoRecordset(Sample(), kLog, {{L"Acao", L"nunca aconteceu"}}); }

TEST_P(EventRows, OfAKindOfFewerThanThreeLettersAreLookedForByThoseLetters) {
  ExpectNoRecordset(Sample(), kLog, {{L"Evento", L"ex"}});
}

TEST(EventRowsOfAChangedArchive, WithAnActionOfMoreThan32PiecesAreAnError) {
  const ChangedArchive archive({L"DELETE FROM EVENTO WHERE COD_EVENTO <> 12", L"UPDATE EVENTO SET ACAO = ACAO || 'z'"});
  EXPECT_EQ(ErrorAt(archive.ConnectionString(), kLog),
            Framed(L"CLogRpt::RelatorioLog",
                   L"Item cannot be found in the collection corresponding to the requested name or ordinal."));
}

}  // namespace
}  // namespace kodra::rows
