// The imaging statistics. SQLite takes the bounds of a period for divisions of numbers: no document lies between them.
#include <algorithm>

#include "reports/statistics/estat_img_rpt.h"
#include "tests/db/estat_rows.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class EstatImgOnMariaDb : public OnMariaDb {};
class EstatImgOnSqlite : public OnSqlite {};

struct Question {
  Period period;
  Text kind = {};
  Text keeper = {};
  Text department = {};
};

frame::ParameterObject Obj(const Question& q) {
  return Reports::Parameters(L"CEstatImgRptObj", {{L"Owner", L"Arquivo Geral"},
                                                  {L"DataInicial", DateOf(q.period.first)},
                                                  {L"DataFinal", DateOf(q.period.last)},
                                                  {L"CodOperador", q.keeper},
                                                  {L"CodDepto", q.department},
                                                  {L"TipoRpt", q.kind}});
}

Table Columns(const Text& kind) {
  Table table({L"TIT1", L"OPERADOR", L"DEPTO", L"DT_ARMAZ", L"FUNDO", L"OWNER"});
  if (kind == L"P" || kind == L"F") table.columns.emplace_back(L"FRENTE");
  if (kind == L"P") table.columns.emplace_back(L"VERSO");
  if (kind != L"P" && kind != L"F") table.columns.emplace_back(L"COD_DOCTO");
  return table;
}

Table Expected(const Question& q) {
  Table table = Columns(q.kind);
  for (const Documento& d : Reports::All<Documento>()) {
    const Suporte* support = Reports::Find(&Suporte::codSuporte, d.codSuporte);
    if (support == nullptr || support->descrSuporte == L"DIGITAL") continue;
    // A document of no module is not of another one than AA000.
    if (!d.numCaixa || *d.numCaixa == L"AA000" || !Within(d.dtArmaz, q.period)) continue;
    if (!q.keeper.empty() && d.codOperador != q.keeper) continue;
    if (!q.department.empty() && d.codDepto != q.department) continue;
    Table::Row row{Cell(Title(q.period)),
                   q.keeper.empty() ? Cell(L"Todos os Operadores")
                                    : Cell(Reports::Find(&Operador::codOperador, q.keeper)->descrOperador),
                   q.department.empty() ? Cell(L"Todos os Departamentos")
                                        : Cell(Reports::Find(&Depto::codDepto, q.department)->descrDepto),
                   Cell(d.dtArmaz),
                   Cell(Reports::Company()),
                   Cell(L"Arquivo Geral")};
    if (q.kind == L"P" || q.kind == L"F") row.push_back(Cell(d.frente));
    if (q.kind == L"P") row.push_back(Cell(d.verso));
    if (q.kind != L"P" && q.kind != L"F") row.push_back(Cell(d.codDocto));
    table.rows.push_back(row);
  }
  return table;
}

TEST_F(EstatImgOnMariaDb, EveryKindOfRow) {
  for (const wchar_t* kind : {L"P", L"F", L"D", L""}) {
    const Question q{StoredBetween(50, 300), kind};
    ExpectRows(RowsOf(&CEstatImgRpt::RelatorioEstatisticas, Obj(q)), Expected(q));
  }
}

TEST_F(EstatImgOnMariaDb, OfOneKeeperOneDepartmentOrBoth) {
  const Documento& some = All<Documento>()[100];
  const Period period = StoredBetween(0, 599);
  for (const Question& q : {Question{period, L"F", *some.codOperador}, Question{period, L"F", L"", *some.codDepto},
                            Question{period, L"F", *some.codOperador, *some.codDepto}}) {
    ExpectRows(RowsOf(&CEstatImgRpt::RelatorioEstatisticas, Obj(q)), Expected(q));
  }
}

TEST_F(EstatImgOnMariaDb, TheLastDayCountsUpToItsMidnight) {
  const auto has = [](const Table& table, std::size_t document) {
    const Value code = Cell(Reports::All<Documento>()[document].codDocto);
    return std::any_of(table.rows.begin(), table.rows.end(), [&](const Table::Row& row) { return row.back() == code; });
  };
  for (const std::size_t last : {300U, 301U}) {
    const Question q{StoredBetween(200, last)};
    const Table rows = RowsOf(&CEstatImgRpt::RelatorioEstatisticas, Obj(q));
    EXPECT_EQ(has(rows, last), last == 300U);
    ExpectRows(rows, Expected(q));
  }
}

TEST_F(EstatImgOnMariaDb, DigitalDocumentsAndThoseOfNoModuleAreNeverThere) {
  const Table rows = RowsOf(&CEstatImgRpt::RelatorioEstatisticas, Obj({StoredBetween(0, 599)}));
  ASSERT_FALSE(rows.rows.empty());
  for (const Table::Row& row : rows.rows) {
    const Documento& document = *Find(&Documento::codDocto, row.back().As<std::wstring>());
    EXPECT_NE(document.numCaixa, L"AA000");
    EXPECT_NE(document.codSuporte, L"3");
  }
}

TEST_F(EstatImgOnSqlite, NoDocumentLiesInAnyPeriod) {
  for (const wchar_t* kind : {L"P", L"F", L""}) {
    const Question q{StoredBetween(0, 599), kind, *All<Documento>()[100].codOperador, *All<Documento>()[100].codDepto};
    ExpectNoRows(RowsOf(&CEstatImgRpt::RelatorioEstatisticas, Obj(q)), Columns(kind).columns);
  }
}

}  // namespace
}  // namespace kodra::tests
