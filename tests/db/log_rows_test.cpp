// The event log: what the event component finds, cut into fields.
#include <functional>

#include "reports/documents/log_rpt.h"
#include "testbed/archive/schema.h"
#include "tests/db/reports_on.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class LogRows : public OnBoth {};
KODRA_ON_BOTH_DATABASES(LogRows);

constexpr std::size_t kPieces = 32;
constexpr std::size_t kPieceLength = 250;

Table Events(const std::function<bool(const Evento&)>& filter) {
  Table table({L"DATA", L"HORA", L"DESCR_OPERADOR", L"MAQUINA", L"COD_DOCTO", L"COD_ACAO"});
  for (std::size_t piece = 1; piece <= kPieces; ++piece) table.columns.push_back(L"ACAO" + std::to_wstring(piece));
  for (const Evento& e : Reports::All<Evento>()) {
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

frame::ParameterObject Obj(Reports::Properties properties = {}) {
  return Reports::Parameters(L"CLogRptObj", properties);
}

TEST_P(LogRows, AllEventsByTheirMomentWithLongActionsInPieces) {
  ExpectRows(RowsOf(&CLogRpt::RelatorioLog, Obj()), Events([](const Evento&) { return true; }), {L"DATA"});
}

TEST_P(LogRows, APeriodHasItsLastDayWhole) {
  const Evento& first = All<Evento>()[10];
  const Evento& last = All<Evento>()[30];
  const Period period{std::chrono::floor<std::chrono::days>(*first.dataInicial),
                      std::chrono::floor<std::chrono::days>(*last.dataInicial)};
  const Table expected = Events([&](const Evento& e) {
    return *e.dataInicial >= period.first && *e.dataInicial < period.last + std::chrono::days(1);
  });
  ASSERT_EQ(expected.rows.size(), 21U);
  ExpectRows(RowsOf(&CLogRpt::RelatorioLog,
                    Obj({{L"DataInicial", DateOf(period.first)}, {L"DataFinal", DateOf(period.last)}})),
             expected, {L"DATA"});
}

TEST_P(LogRows, OfOneKindWrittenInSmallLettersAndAtLength) {
  const Table expected = Events([](const Evento& e) { return e.tipoEvento == L"EXC"; });
  ExpectRows(RowsOf(&CLogRpt::RelatorioLog, Obj({{L"Evento", L"exclusão"}})), expected, {L"DATA"});
}

TEST_P(LogRows, OfOneOperatorOnOneMachine) {
  const Evento& some = All<Evento>()[3];
  const Table expected =
      Events([&](const Evento& e) { return e.nomeOperador == some.nomeOperador && e.maquina == some.maquina; });
  ExpectRows(
      RowsOf(&CLogRpt::RelatorioLog, Obj({{L"Operador", *some.nomeOperador}, {L"MaquinaOrigem", *some.maquina}})),
      expected, {L"DATA"});
}

TEST_P(LogRows, OfOneDocumentAndOneAction) {
  const Evento& some = All<Evento>()[0];
  const Table expected = Events([&](const Evento& e) { return e.codDocto == some.codDocto && e.acao == some.acao; });
  ExpectRows(RowsOf(&CLogRpt::RelatorioLog, Obj({{L"CodDocto", *some.codDocto}, {L"Acao", L"Inclusão do documento"}})),
             expected, {L"DATA"});
}

TEST_P(LogRows, ASearchThatFindsNothingGivesNoRecordset) {
  EXPECT_EQ(Open(&CLogRpt::RelatorioLog, Obj({{L"Acao", L"nunca aconteceu"}})), nullptr);
}

}  // namespace
}  // namespace kodra::tests
