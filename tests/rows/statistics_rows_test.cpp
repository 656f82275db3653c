// The statistics by support, by subgroup and by series.
#include <map>
#include <set>

#include "tests/rows/statistics.h"

namespace kodra::rows {
namespace {

using namespace testbed;

const Report kBySupport{L"CEstatSuporteRpt", L"RelatorioEstatisticas"};
const Report kBySubgroup{L"CEstatSubgrupoRpt", L"RelatorioEstatisticas"};
const Report kBySeries{L"CEstatSerieRpt", L"RelatorioEstatisticas"};

// The text that a client sets for a kind, and its meaning: F (sheets), P (pages), N (documents) or another letter.
struct Kind {
  const char* name;
  const wchar_t* sent;
  wchar_t meaning;
};

// Digital documents and those without a module are included. Sheets have a column for the back too, which is 0.
Table BySupport(const Period& period, wchar_t kind) {
  Table table({L"TIT", L"COD_DOCTO", L"DESCR_SUPORTE"});
  const bool pages = kind == L'F' || kind == L'P';
  if (pages) table.columns.insert(table.columns.end(), {L"FRENTE", L"VERSO"});
  std::set<MaybeText> supports;
  for (const Documento& d : All<Documento>()) {
    const Suporte* support = Find(&Suporte::codSuporte, d.codSuporte);
    if (support == nullptr || !Within(d.dtArmaz, period)) continue;
    supports.insert(support->descrSuporte);
    Table::Row row{Cell(TitleOf(period)), Cell(d.codDocto), Cell(support->descrSuporte)};
    if (pages) row.push_back(Cell(d.frente));
    if (pages) row.push_back(kind == L'F' ? Cell(std::int64_t{0}) : Cell(d.verso));
    table.rows.push_back(row);
  }
  EXPECT_TRUE(supports.contains(L"DIGITAL"));
  return table;
}

// The title is the installation's own name for subgroups.
Table BySubgroup(const Period& period, wchar_t kind) {
  Table table({L"TITULO", L"TIT1", L"DESCR_GRUPO"});
  if (kind == L'F' || kind == L'P') table.columns.emplace_back(L"FRENTE");
  if (kind == L'P') table.columns.emplace_back(L"VERSO");
  if (kind != L'F' && kind != L'P') table.columns.emplace_back(L"COD_DOCTO");
  for (const Documento& d : All<Documento>()) {
    const Grupo* subgroup = Find(&Grupo::codGrupo, d.codGrupo);
    if (subgroup == nullptr || !Within(d.dtArmaz, period)) continue;
    Table::Row row{Cell(L"ESTATÍSTICAS POR SUBGRUPO"), Cell(TitleOf(period)), Cell(subgroup->descrGrupo)};
    if (kind == L'F' || kind == L'P') row.push_back(Cell(d.frente));
    if (kind == L'P') row.push_back(Cell(d.verso));
    if (kind != L'F' && kind != L'P') row.push_back(Cell(d.codDocto));
    table.rows.push_back(row);
  }
  return table;
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  const Kind kinds[] = {{"Sheets", L"F", L'F'},          {"SheetsAtLength", L"folhas", L'F'},
                        {"Pages", L"P", L'P'},           {"PagesInASmallLetter", L"p", L'P'},
                        {"Documents", L"D", L'D'},       {"DocumentsByNumber", L"N", L'N'},
                        {"DocumentsOfNoKind", L"", L'D'}};
  for (const auto& [name, sent, meaning] : kinds) {
    for (const auto& [of, period] : Periods()) {
      const Properties properties = In(period, {{L"TipoRpt", sent}});
      const auto bySupport = [period = period, meaning = meaning] { return BySupport(period, meaning); };
      const auto bySubgroup = [period = period, meaning = meaning] { return BySubgroup(period, meaning); };
      cases.push_back({std::string(name) + "BySupport" + of, kBySupport, properties, bySupport, {}, HasNoPeriods});
      cases.push_back({std::string(name) + "BySubgroup" + of, kBySubgroup, properties, bySubgroup, {}, HasNoPeriods});
    }
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Statistics, ReportRows, testing::Combine(testing::ValuesIn(Cases()), BothEngines()), CaseName);

const std::vector<std::wstring> kSeriesColumns{L"Titulo", L"Subtitulo", L"Periodo", L"Subgrupo", L"Serie", L"Total"};

// For kind N the documents with front pages are counted; for any other kind the front pages are summed. The period ends
// with the midnight after its last day.
Table BySeries(const Period& period, wchar_t kind, const Text& subgroup) {
  const Period stored{period.first, period.last + std::chrono::days(1)};
  struct Total {
    std::int64_t documents = 0;
    MaybeNumber pages;
  };
  std::map<std::pair<Text, Text>, Total> totals;
  for (const Documento& d : All<Documento>()) {
    const Assunto* series = Find(&Assunto::codAssunto, d.codAssunto);
    if (series == nullptr || series->codGrupo != subgroup || !Within(d.dtArmaz, stored)) continue;
    Total& total = totals[{*Find(&Grupo::codGrupo, series->codGrupo)->descrGrupo, *series->descrAssunto}];
    if (!d.frente) continue;
    ++total.documents;
    total.pages = total.pages.value_or(0) + *d.frente;
  }
  Table table(kSeriesColumns);
  const wchar_t* const subtitle = kind == L'F'   ? L"(por número de folhas)"
                                  : kind == L'P' ? L"(por número de páginas)"
                                                 : L"(por número de documentos)";
  for (const auto& [names, total] : totals) {
    table.Add(L"ESTATÍSTICAS POR SÉRIE", subtitle, TitleOf(period), L"Subgrupo: " + names.first, names.second,
              kind == L'N' ? MaybeNumber(total.documents) : total.pages);
  }
  return table;
}

// A period whose last day is the day before a document stored at midnight: the document still counts.
Period EndingBeforeAMidnight() {
  return {std::chrono::year(2010) / 1 / 1, StoredBetween(0, kStoredAtMidnight).last - std::chrono::days(1)};
}

TEST(SeriesArchive, HasADocumentStoredAtTheMidnightAfterThePeriod) {
  EXPECT_EQ(All<Documento>()[kStoredAtMidnight].dtArmaz, Moment(EndingBeforeAMidnight().last + std::chrono::days(1)));
}

std::vector<Case> SeriesCases() {
  std::vector<Case> cases;
  const Kind kinds[] = {{"DocumentsBySeries", L"N", L'N'},
                        {"SheetsBySeries", L"F", L'F'},
                        {"PagesBySeries", L"P", L'P'},
                        {"PagesBySeriesInASmallLetter", L"p", L'P'},
                        {"FrontPagesBySeriesOfNoKind", L"", L' '},
                        {"FrontPagesBySeriesOfAnotherKind", L"X", L'X'}};
  const NamedPeriod periods[] = {{"OfTheWholeArchive", WholeArchive()},
                                 {"UpToTheDayBeforeAMidnight", EndingBeforeAMidnight()}};
  const std::set<Text> subgroups{L"001", L"003", *All<Documento>()[kStoredAtMidnight].codGrupo};
  for (const auto& [name, sent, meaning] : kinds) {
    for (const auto& [of, period] : periods) {
      for (const Text& code : subgroups) {
        cases.push_back({std::string(name) + of + "OfSubgroup" + std::string(code.begin(), code.end()),
                         kBySeries,
                         In(period, {{L"TipoRpt", sent}, {L"CodGrupo", code}}),
                         [=, period = period, meaning = meaning] { return BySeries(period, meaning, code); },
                         {L"Serie"},
                         HasNoPeriods});
      }
    }
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(Series, ReportRows, testing::Combine(testing::ValuesIn(SeriesCases()), BothEngines()),
                         CaseName);

// The rows of each subgroup, some of which have none.
std::vector<Table> OfEverySubgroup(const Period& period, wchar_t kind) {
  std::vector<Table> tables;
  for (const Grupo& subgroup : All<Grupo>()) {
    const Properties properties = In(period, {{L"TipoRpt", std::wstring(1, kind)}, {L"CodGrupo", subgroup.codGrupo}});
    const Table& rows = tables.emplace_back(RowsAt(SampleOn(Engine::kMariaDb), kBySeries, properties));
    const Table expected = BySeries(period, kind, subgroup.codGrupo);
    if (expected.rows.empty()) {
      ExpectNoRows(rows, kSeriesColumns);
    } else {
      ExpectRows(rows, expected, {L"Serie"});
    }
  }
  return tables;
}

TEST(SeriesOnMariaDb, AreThoseOfEverySubgroup) {
  std::size_t series = 0;
  for (const Table& table : OfEverySubgroup(EndingBeforeAMidnight(), L'F')) series += table.rows.size();
  EXPECT_GT(series, 5U);
}

TEST(SeriesOnMariaDb, HaveTheLastDayWholeAndTheMidnightAfterIt) {
  // The number of documents of all subgroups: with the document stored at midnight, and without.
  const auto documents = [](const Period& period) {
    double total = 0;
    for (const Table& table : OfEverySubgroup(period, L'N')) {
      for (const Value& count : table.Column(L"Total")) total += count.As<double>();
    }
    return total;
  };
  const Documento& last = All<Documento>()[kStoredAtMidnight];
  ASSERT_TRUE(last.codAssunto && last.frente);
  const Period onTheDay = StoredBetween(200, kStoredAtMidnight);
  const Period dayBefore{onTheDay.first, onTheDay.last - std::chrono::days(1)};
  const Period twoBefore{onTheDay.first, onTheDay.last - std::chrono::days(2)};
  EXPECT_EQ(documents(onTheDay), documents(dayBefore));
  EXPECT_EQ(documents(dayBefore), documents(twoBefore) + 1);
}

class SeriesRows : public OnBothEngines {};
INSTANTIATE_TEST_SUITE_P(, SeriesRows, BothEngines(), EngineName);

TEST_P(SeriesRows, OfNoSubgroupAreNone) {
  ExpectNoRows(RowsOf(kBySeries, In(WholeArchive(), {{L"TipoRpt", L"N"}, {L"CodGrupo", L""}})), kSeriesColumns);
  ExpectNoRows(RowsOf(kBySeries, In(WholeArchive(), {{L"TipoRpt", L"N"}})), kSeriesColumns);
}

}  // namespace
}  // namespace kodra::rows
