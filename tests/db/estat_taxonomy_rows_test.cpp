// The statistics by support, by subgroup and by series. On SQLite no document lies in a period, for the reason of the
// imaging statistics.
#include <map>

#include "reports/statistics/estat_serie_rpt.h"
#include "reports/statistics/estat_subgrupo_rpt.h"
#include "reports/statistics/estat_suporte_rpt.h"
#include "tests/db/estat_rows.h"

namespace kodra::tests {
namespace {

using namespace reports;
using namespace testbed;

class EstatOnMariaDb : public OnMariaDb {};
class EstatOnSqlite : public OnSqlite {};

frame::ParameterObject Obj(const wchar_t* className, const Period& period, const Text& kind) {
  return Reports::Parameters(
      className, {{L"DataInicial", DateOf(period.first)}, {L"DataFinal", DateOf(period.last)}, {L"TipoRpt", kind}});
}

frame::ParameterObject SeriesObj(const Period& period, const Text& kind, const Text& subgroup) {
  return Reports::Parameters(L"CEstatSerieRptObj", {{L"DataInicial", DateOf(period.first)},
                                                    {L"DataFinal", DateOf(period.last)},
                                                    {L"TipoRpt", kind},
                                                    {L"CodGrupo", subgroup}});
}

Table BySupport(const Period& period, const Text& kind) {
  Table table({L"TIT", L"COD_DOCTO", L"DESCR_SUPORTE"});
  const bool pages = kind == L"F" || kind == L"P";
  if (pages) table.columns.insert(table.columns.end(), {L"FRENTE", L"VERSO"});
  for (const Documento& d : Reports::All<Documento>()) {
    const Suporte* support = Reports::Find(&Suporte::codSuporte, d.codSuporte);
    if (support == nullptr || !Within(d.dtArmaz, period)) continue;
    Table::Row row{Cell(Title(period)), Cell(d.codDocto), Cell(support->descrSuporte)};
    if (pages) row.push_back(Cell(d.frente));
    if (pages) row.push_back(kind == L"F" ? Cell(std::int64_t{0}) : Cell(d.verso));
    table.rows.push_back(row);
  }
  return table;
}

Table BySubgroup(const Period& period, const Text& kind) {
  Table table({L"TITULO", L"TIT1", L"DESCR_GRUPO"});
  if (kind == L"F" || kind == L"P") table.columns.emplace_back(L"FRENTE");
  if (kind == L"P") table.columns.emplace_back(L"VERSO");
  if (table.columns.size() == 3) table.columns.emplace_back(L"COD_DOCTO");
  for (const Documento& d : Reports::All<Documento>()) {
    const Grupo* subgroup = Reports::Find(&Grupo::codGrupo, d.codGrupo);
    if (subgroup == nullptr || !Within(d.dtArmaz, period)) continue;
    Table::Row row{Cell(L"ESTATÍSTICAS POR SUBGRUPO"), Cell(Title(period)), Cell(subgroup->descrGrupo)};
    if (kind == L"F" || kind == L"P") row.push_back(Cell(d.frente));
    if (kind == L"P") row.push_back(Cell(d.verso));
    if (row.size() == 3) row.push_back(Cell(d.codDocto));
    table.rows.push_back(row);
  }
  return table;
}

const std::vector<std::wstring> kSeriesColumns{L"Titulo", L"Subtitulo", L"Periodo", L"Subgrupo", L"Serie", L"Total"};

// The period ends with the midnight after its last day.
Table BySeries(const Period& period, const Text& kind, const Text& subgroup) {
  const Period stored{period.first, period.last + std::chrono::days(1)};
  struct Total {
    std::int64_t documents = 0;  // those whose front pages are counted
    MaybeNumber pages;
  };
  std::map<std::pair<Text, Text>, Total> totals;
  for (const Documento& d : Reports::All<Documento>()) {
    const Assunto* series = Reports::Find(&Assunto::codAssunto, d.codAssunto);
    if (series == nullptr || series->codGrupo != subgroup || !Within(d.dtArmaz, stored)) continue;
    Total& total = totals[{*Reports::Find(&Grupo::codGrupo, series->codGrupo)->descrGrupo, *series->descrAssunto}];
    if (!d.frente) continue;
    ++total.documents;
    total.pages = total.pages.value_or(0) + *d.frente;
  }
  Table table(kSeriesColumns);
  const wchar_t* const subtitle = kind == L"F"   ? L"(por número de folhas)"
                                  : kind == L"P" ? L"(por número de páginas)"
                                                 : L"(por número de documentos)";
  for (const auto& [names, total] : totals) {
    table.Add(L"ESTATÍSTICAS POR SÉRIE", subtitle, Title(period), L"Subgrupo: " + names.first, names.second,
              kind == L"N" ? MaybeNumber(total.documents) : total.pages);
  }
  return table;
}

Period WholeArchive() { return StoredBetween(0, 599); }

TEST_F(EstatOnMariaDb, BySupportDigitalOnesAndThoseOfNoModuleCount) {
  for (const wchar_t* kind : {L"F", L"P", L""}) {
    for (const Period& period : {WholeArchive(), StoredBetween(200, 300), StoredBetween(200, 301)}) {
      ExpectRows(RowsOf(&CEstatSuporteRpt::RelatorioEstatisticas, Obj(L"CEstatSuporteRptObj", period, kind)),
                 BySupport(period, kind));
    }
  }
}

TEST_F(EstatOnMariaDb, BySubgroupTheTitleIsTheInstallationsOwnName) {
  for (const wchar_t* kind : {L"F", L"P", L"D"}) {
    for (const Period& period : {WholeArchive(), StoredBetween(200, 300), StoredBetween(200, 301)}) {
      ExpectRows(RowsOf(&CEstatSubgrupoRpt::RelatorioEstatisticas, Obj(L"CEstatSubgrupoRptObj", period, kind)),
                 BySubgroup(period, kind));
    }
  }
}

TEST_F(EstatOnMariaDb, BySeriesDocumentsAreCountedOrFrontPagesSummed) {
  for (const wchar_t* kind : {L"N", L"F", L"P", L""}) {
    for (const wchar_t* subgroup : {L"001", L"003"}) {
      ExpectRows(RowsOf(&CEstatSerieRpt::RelatorioEstatisticas, SeriesObj(WholeArchive(), kind, subgroup)),
                 BySeries(WholeArchive(), kind, subgroup), {L"Serie"});
    }
  }
}

TEST_F(EstatOnMariaDb, BySeriesThePeriodHasItsLastDayWholeAndTheMidnightAfterIt) {
  // The number of documents of all subgroups: with document 300, stored at midnight, and without.
  const auto documents = [&](const Period& period) {
    double total = 0;
    for (const Grupo& subgroup : All<Grupo>()) {
      const Table expected = BySeries(period, L"N", subgroup.codGrupo);
      const auto rows = RowsOf(&CEstatSerieRpt::RelatorioEstatisticas, SeriesObj(period, L"N", subgroup.codGrupo));
      if (!expected.rows.empty()) ExpectRows(rows, expected, {L"Serie"});
      for (const Table::Row& row : rows.rows) total += row.back().As<double>();
    }
    return total;
  };
  const Period onTheDay = StoredBetween(200, 300);
  ASSERT_TRUE(All<Documento>()[300].codAssunto && All<Documento>()[300].frente);
  const Period dayBefore{onTheDay.first, onTheDay.last - std::chrono::days(1)};
  const Period twoBefore{onTheDay.first, onTheDay.last - std::chrono::days(2)};
  EXPECT_EQ(documents(onTheDay), documents(dayBefore));
  EXPECT_EQ(documents(dayBefore), documents(twoBefore) + 1);
}

TEST_F(EstatOnMariaDb, BySeriesOfNoSubgroupIsNoRow) {
  ExpectNoRows(RowsOf(&CEstatSerieRpt::RelatorioEstatisticas, SeriesObj(WholeArchive(), L"N", L"")), kSeriesColumns);
}

TEST_F(EstatOnSqlite, NoDocumentLiesInAnyPeriod) {
  for (const wchar_t* kind : {L"F", L"P", L"N"}) {
    const Period period = WholeArchive();
    ExpectNoRows(RowsOf(&CEstatSuporteRpt::RelatorioEstatisticas, Obj(L"CEstatSuporteRptObj", period, kind)),
                 BySupport(period, kind).columns);
    ExpectNoRows(RowsOf(&CEstatSubgrupoRpt::RelatorioEstatisticas, Obj(L"CEstatSubgrupoRptObj", period, kind)),
                 BySubgroup(period, kind).columns);
    ExpectNoRows(RowsOf(&CEstatSerieRpt::RelatorioEstatisticas, SeriesObj(period, kind, L"001")), kSeriesColumns);
  }
}

}  // namespace
}  // namespace kodra::tests
