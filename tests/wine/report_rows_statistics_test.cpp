// The rows of the statistics from the sample archive, compared with rows worked out from its tables.
//
// In SQLite's dialect the bounds of a period come out as quotients of day, month and year, which are no dates: no
// document lies between them.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

// The first and the last day of a period, written "2024-05-31".
struct Period {
  std::wstring first, last;

  std::wstring Title() const { return L"Período: " + Brazilian(first) + L" a " + Brazilian(last); }
  // The first instant of the last day is the last one.
  bool Has(const Cell& moment) const {
    return moment && *moment >= first + L" 00:00:00" && *moment <= last + L" 00:00:00";
  }
  Properties With(Properties properties) const {
    properties.emplace_back(L"DataInicial", DayOf(first));
    properties.emplace_back(L"DataFinal", DayOf(last));
    return properties;
  }
};

constexpr const wchar_t* kImaging = L"CEstatImgRpt";
constexpr const wchar_t* kIndexing = L"CEstatIndexRpt";
constexpr const wchar_t* kBySupport = L"CEstatSuporteRpt";
constexpr const wchar_t* kBySubgroup = L"CEstatSubgrupoRpt";
constexpr const wchar_t* kBySeries = L"CEstatSerieRpt";
constexpr const wchar_t* kMethod = L"RelatorioEstatisticas";

using Columns = std::vector<const wchar_t*>;
// The columns that count, by TipoRpt.
const std::vector<std::pair<const wchar_t*, Columns>> kImagingCounts = {{L"Páginas", {L"FRENTE", L"VERSO"}},
                                                                        {L"p", {L"FRENTE", L"VERSO"}},
                                                                        {L"F", {L"FRENTE"}},
                                                                        {L"D", {L"COD_DOCTO"}},
                                                                        {L"", {L"COD_DOCTO"}}};

class StatisticsOnMariaDb : public OnMariaDb {
 protected:
  StatisticsOnMariaDb() {
    // Its last day has a document at midnight.
    const Cell last = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000301")[L"DT_ARMAZ"];
    EXPECT_TRUE(last->ends_with(L" 00:00:00"));
    period_ = {L"2011-01-01", last->substr(0, 10)};
  }

  // Who a row is of when a filter names one person; all of them otherwise.
  Cell OperatorTitle(const std::wstring& code) const {
    return code.empty() ? Cell(L"Todos os Operadores") : RowOf(L"OPERADOR", L"COD_OPERADOR", code)[L"DESCR_OPERADOR"];
  }
  Cell DepartmentTitle(const std::wstring& code) const {
    return code.empty() ? Cell(L"Todos os Departamentos") : RowOf(L"DEPTO", L"COD_DEPTO", code)[L"DESCR_DEPTO"];
  }
  static bool Passes(const std::wstring& filter, const Cell& code) { return filter.empty() || code == filter; }

  Rows Imaged(const std::wstring& person, const std::wstring& department, const Columns& counts) const {
    Rows expected{{L"TIT1", L"OPERADOR", L"DEPTO", L"DT_ARMAZ", L"FUNDO", L"OWNER"}, {}};
    expected.columns.insert(expected.columns.end(), counts.begin(), counts.end());
    for (const Row& d : All(L"DOCUMENTO")) {
      const auto support = Find(L"SUPORTE", L"COD_SUPORTE", d[L"COD_SUPORTE"]);
      if (!support || (*support)[L"DESCR_SUPORTE"] == L"DIGITAL" || !d[L"NUM_CAIXA"] || d[L"NUM_CAIXA"] == L"AA000")
        continue;
      if (!period_.Has(d[L"DT_ARMAZ"]) || !Passes(person, d[L"COD_OPERADOR"]) || !Passes(department, d[L"COD_DEPTO"]))
        continue;
      Cells cells = {period_.Title(), OperatorTitle(person), DepartmentTitle(department), d[L"DT_ARMAZ"], Company(),
                     L"Arquivo"};
      for (const wchar_t* count : counts) cells.push_back(d[count]);
      expected.rows.push_back(cells);
    }
    return expected;
  }

  Rows Indexed(const std::wstring& person, const std::wstring& department) const {
    Rows expected{{L"TIT1", L"OPERADOR", L"DEPTO", L"DATA_INDEXACAO", L"COD_DOCTO", L"FUNDO", L"OWNER"}, {}};
    for (const Row& d : All(L"DOCUMENTO"))
      if (period_.Has(d[L"DATA_INDEXACAO"]) && Passes(person, d[L"COD_INDEXADOR"]) &&
          Passes(department, d[L"COD_DEPTO"]))
        expected.rows.push_back({period_.Title(), OperatorTitle(person), DepartmentTitle(department),
                                 d[L"DATA_INDEXACAO"], d[L"COD_DOCTO"], Company(), L"Arquivo"});
    return expected;
  }

  Period period_;
};

TEST_F(StatisticsOnMariaDb, OfImagingCountPagesSheetsOrDocuments) {
  for (const auto& [kind, counts] : kImagingCounts) {
    const Rows expected = Imaged(L"", L"", counts);
    EXPECT_FALSE(expected.rows.empty());
    ExpectRows(expected, RowsOf(kImaging, kMethod, period_.With({{L"TipoRpt", kind}, {L"Owner", L"Arquivo"}})), {});
  }
}

TEST_F(StatisticsOnMariaDb, OfImagingHaveTheLastDayUpToMidnight) {
  const Rows rows = RowsOf(kImaging, kMethod, period_.With({}));
  std::set<Cell> documents;
  for (const Cells& cells : rows.rows) documents.insert(cells.back());
  EXPECT_TRUE(documents.contains(L"0000000301"));
  const Row next = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000302");
  ASSERT_FALSE(next[L"DT_ARMAZ"]->ends_with(L" 00:00:00"));
  const Period shorter{period_.first, next[L"DT_ARMAZ"]->substr(0, 10)};
  for (const Cells& cells : RowsOf(kImaging, kMethod, shorter.With({})).rows) EXPECT_NE(L"0000000302", cells.back());
}

TEST_F(StatisticsOnMariaDb, OfImagingAreOfOnePersonAndOneDepartment) {
  const Row some = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000101");
  const std::wstring person = some[L"COD_OPERADOR"].value();
  const std::wstring department = some[L"COD_DEPTO"].value();
  for (const auto& [ofPerson, ofDepartment] :
       {std::pair(person, std::wstring()), std::pair(std::wstring(), department), std::pair(person, department)}) {
    const Rows expected = Imaged(ofPerson, ofDepartment, {L"FRENTE"});
    EXPECT_FALSE(expected.rows.empty());
    ExpectRows(expected,
               RowsOf(kImaging, kMethod,
                      period_.With({{L"TipoRpt", L"Folhas"},
                                    {L"Owner", L"Arquivo"},
                                    {L"CodOperador", L" " + ofPerson + L" "},
                                    {L"CodDepto", ofDepartment}})),
               {});
  }
}

TEST_F(StatisticsOnMariaDb, OfIndexingAreAllIndexedDocumentsWithoutExclusion) {
  const Rows expected = Indexed(L"", L"");
  std::set<Cell> modules;
  for (const Cells& cells : expected.rows) modules.insert(RowOf(L"DOCUMENTO", L"COD_DOCTO", cells[4])[L"NUM_CAIXA"]);
  EXPECT_TRUE(modules.contains(L"AA000"));
  ExpectRows(expected, RowsOf(kIndexing, L"RelatorioEstatisticasPorDocumento", period_.With({{L"Owner", L"Arquivo"}})),
             {});
}

TEST_F(StatisticsOnMariaDb, OfIndexingAreOfTheOneWhoIndexedNotOfTheOneWhoStored) {
  const Row some = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000101");
  const std::wstring person = some[L"COD_INDEXADOR"].value();
  const std::wstring department = some[L"COD_DEPTO"].value();
  EXPECT_NE(person, some[L"COD_OPERADOR"].value());
  for (const auto& [ofPerson, ofDepartment] :
       {std::pair(person, std::wstring()), std::pair(std::wstring(), department), std::pair(person, department)}) {
    const Rows expected = Indexed(ofPerson, ofDepartment);
    EXPECT_FALSE(expected.rows.empty());
    ExpectRows(expected,
               RowsOf(kIndexing, L"RelatorioEstatisticasPorDocumento",
                      period_.With({{L"Owner", L"Arquivo"}, {L"CodOperador", ofPerson}, {L"CodDepto", ofDepartment}})),
               {});
  }
}

TEST_F(StatisticsOnMariaDb, BySupportExcludeNothing) {
  for (const auto& [kind, columns] :
       {std::pair(L"", Columns{}), std::pair(L"N", Columns{}), std::pair(L"folhas", Columns{L"FRENTE", L"VERSO"}),
        std::pair(L"P", Columns{L"FRENTE", L"VERSO"})}) {
    Rows expected{{L"TIT", L"COD_DOCTO", L"DESCR_SUPORTE"}, {}};
    expected.columns.insert(expected.columns.end(), columns.begin(), columns.end());
    std::set<Cell> supports;
    for (const Row& d : All(L"DOCUMENTO")) {
      const auto support = Find(L"SUPORTE", L"COD_SUPORTE", d[L"COD_SUPORTE"]);
      if (!support || !period_.Has(d[L"DT_ARMAZ"])) continue;
      supports.insert((*support)[L"DESCR_SUPORTE"]);
      Cells cells = {period_.Title(), d[L"COD_DOCTO"], (*support)[L"DESCR_SUPORTE"]};
      // Sheets have no back: one layout serves sheets and pages.
      if (!columns.empty()) cells.insert(cells.end(), {d[L"FRENTE"], *kind == L'f' ? Cell(L"0") : d[L"VERSO"]});
      expected.rows.push_back(cells);
    }
    EXPECT_TRUE(supports.contains(L"DIGITAL"));
    ExpectRows(expected, RowsOf(kBySupport, kMethod, period_.With({{L"TipoRpt", kind}})), {});
  }
}

TEST_F(StatisticsOnMariaDb, BySubgroupHaveTheInstallationsNameInTheirTitle) {
  for (const auto& [kind, columns] :
       {std::pair(L"F", Columns{L"FRENTE"}), std::pair(L"p", Columns{L"FRENTE", L"VERSO"}),
        std::pair(L"", Columns{L"COD_DOCTO"})}) {
    Rows expected{{L"TITULO", L"TIT1", L"DESCR_GRUPO"}, {}};
    expected.columns.insert(expected.columns.end(), columns.begin(), columns.end());
    for (const Row& d : All(L"DOCUMENTO")) {
      const auto subgroup = Find(L"GRUPO", L"COD_GRUPO", d[L"COD_GRUPO"]);
      if (!subgroup || !period_.Has(d[L"DT_ARMAZ"])) continue;
      Cells cells = {L"ESTATÍSTICAS POR SUBGRUPO", period_.Title(), (*subgroup)[L"DESCR_GRUPO"]};
      for (const wchar_t* column : columns) cells.push_back(d[column]);
      expected.rows.push_back(cells);
    }
    EXPECT_FALSE(expected.rows.empty());
    ExpectRows(expected, RowsOf(kBySubgroup, kMethod, period_.With({{L"TipoRpt", kind}})), {});
  }
}

class SeriesStatisticsOnMariaDb : public StatisticsOnMariaDb {
 protected:
  // The day after the last one begins with a document at midnight, which counts still.
  SeriesStatisticsOnMariaDb() : years_{L"2010-01-01", L"2017-03-13"}, end_(L"2017-03-14 00:00:00") {
    EXPECT_EQ(end_, RowOf(L"DOCUMENTO", L"COD_DOCTO", kAtTheEnd)[L"DT_ARMAZ"]);
  }

  static constexpr const wchar_t* kAtTheEnd = L"0000000301";
  const Period years_;
  const std::wstring end_;

  Rows Expected(const std::wstring& subgroupCode, const std::wstring& subtitle, bool countsDocuments) const {
    Rows expected{{L"Titulo", L"Subtitulo", L"Periodo", L"Subgrupo", L"Serie", L"Total"}, {}};
    const Row subgroup = RowOf(L"GRUPO", L"COD_GRUPO", subgroupCode);
    std::map<Cell, std::optional<int>> totals;  // by the description of the series
    for (const Row& series : TableOf(L"ASSUNTO").Where(L"COD_GRUPO", subgroupCode))
      for (const Row& d : TableOf(L"DOCUMENTO").Where(L"COD_ASSUNTO", series[L"COD_ASSUNTO"])) {
        if (*d[L"DT_ARMAZ"] < years_.first || *d[L"DT_ARMAZ"] > end_) continue;
        auto& total = totals[series[L"DESCR_ASSUNTO"]];
        if (countsDocuments) total = total.value_or(0);
        if (d[L"FRENTE"]) total = total.value_or(0) + (countsDocuments ? 1 : std::stoi(*d[L"FRENTE"]));
      }
    for (const auto& [series, total] : totals)
      expected.rows.push_back({L"ESTATÍSTICAS POR SÉRIE", subtitle, L"Período: 01/01/2010 a 13/03/2017",
                               L"Subgrupo: " + *subgroup[L"DESCR_GRUPO"], series,
                               total ? Cell(std::to_wstring(*total)) : Cell()});
    return expected;
  }
};

TEST_F(SeriesStatisticsOnMariaDb, CountDocumentsOrSumSheetsAsTheirKindSays) {
  const Cell subgroup = RowOf(L"DOCUMENTO", L"COD_DOCTO", kAtTheEnd)[L"COD_GRUPO"];
  for (const auto& [kind, subtitle, countsDocuments] :
       {std::tuple(L"N", L"(por número de documentos)", true), std::tuple(L"", L"(por número de documentos)", false),
        std::tuple(L"X", L"(por número de documentos)", false), std::tuple(L"F", L"(por número de folhas)", false),
        std::tuple(L"p", L"(por número de páginas)", false)}) {
    const Rows expected = Expected(subgroup.value(), subtitle, countsDocuments);
    EXPECT_FALSE(expected.rows.empty());
    ExpectRows(expected, RowsOf(kBySeries, kMethod, years_.With({{L"TipoRpt", kind}, {L"CodGrupo", subgroup.value()}})),
               {L"Serie"});
  }
}

TEST_F(SeriesStatisticsOnMariaDb, AreOfEverySubgroupThatIsAskedFor) {
  std::size_t total = 0;
  for (const Row& subgroup : All(L"GRUPO")) {
    const Rows expected = Expected(*subgroup[L"COD_GRUPO"], L"(por número de folhas)", false);
    total += expected.rows.size();
    ExpectRows(expected,
               RowsOf(kBySeries, kMethod, years_.With({{L"TipoRpt", L"F"}, {L"CodGrupo", *subgroup[L"COD_GRUPO"]}})),
               {L"Serie"});
  }
  EXPECT_LT(5U, total);
}

TEST_F(SeriesStatisticsOnMariaDb, AreNoneWithoutASubgroup) {
  ExpectNoRows({L"Titulo", L"Subtitulo", L"Periodo", L"Subgrupo", L"Serie", L"Total"},
               RowsOf(kBySeries, kMethod, years_.With({{L"TipoRpt", L"N"}})));
}

class KeywordStatistics : public OnBothDatabases {
 protected:
  static Properties Counts() {
    const Period period{L"2010-01-01", L"2021-12-31"};
    return period.With({{L"DescrOperador", L"João d’Ávila"},
                        {L"DescrDepto", L"Expedição"},
                        {L"NumeroPC1", L"11"},
                        {L"NumeroPC2", L"22"},
                        {L"NumeroPC3", L"3+30"},
                        {L"NumeroPC4", L"0"},
                        {L"NumeroPC5", L"-5"},
                        {L"NumeroObs", L"66"},
                        {L"Owner", L"Arquivo"}});
  }
};
KODRA_ON_BOTH_DATABASES(KeywordStatistics);

TEST_P(KeywordStatistics, AreOneRowOfWhatTheClientCounted) {
  ExpectExactly({{L"TIT1", L"OPERADOR", L"DEPTO", L"PC1", L"PC2", L"PC3", L"PC4", L"PC5", L"OBS", L"FUNDO", L"OWNER"},
                 {{L"Período: 01/01/2010 a 31/12/2021", L"João d’Ávila", L"Expedição", L"11", L"22", L"33", L"0", L"-5",
                   L"66", Company(), L"Arquivo"}}},
                RowsOf(kIndexing, L"RelatorioEstatisticasPorPalavrasChave", Counts()));
}

class StatisticsOnSQLite : public OnSQLite {};

TEST_F(StatisticsOnSQLite, OfAPeriodAreNone) {
  const Period period{L"2000-01-01", L"2030-12-31"};
  const Properties properties = period.With({});
  ExpectNoRows({L"TIT1", L"OPERADOR", L"DEPTO", L"DT_ARMAZ", L"FUNDO", L"OWNER", L"COD_DOCTO"},
               RowsOf(kImaging, kMethod, properties));
  ExpectNoRows({L"TIT1", L"OPERADOR", L"DEPTO", L"DATA_INDEXACAO", L"COD_DOCTO", L"FUNDO", L"OWNER"},
               RowsOf(kIndexing, L"RelatorioEstatisticasPorDocumento", properties));
  ExpectNoRows({L"TIT", L"COD_DOCTO", L"DESCR_SUPORTE"}, RowsOf(kBySupport, kMethod, properties));
  ExpectNoRows({L"TITULO", L"TIT1", L"DESCR_GRUPO", L"COD_DOCTO"}, RowsOf(kBySubgroup, kMethod, properties));
  const Cell subgroup = RowOf(L"DOCUMENTO", L"COD_DOCTO", L"0000000001")[L"COD_GRUPO"];
  ExpectNoRows({L"Titulo", L"Subtitulo", L"Periodo", L"Subgrupo", L"Serie", L"Total"},
               RowsOf(kBySeries, kMethod, period.With({{L"CodGrupo", subgroup.value()}})));
}

TEST_F(StatisticsOnSQLite, OfKeywordsWithoutACountAreRefusedByTheDatabase) {
  const Period period{L"2010-01-01", L"2021-12-31"};
  EXPECT_EQ(
      Framed(L"CEstatIndexRpt::RelatorioEstatisticasPorPalavrasChave", RefusedBySQLite(L"near \"AS\": syntax error")),
      ErrorOf(kIndexing, L"RelatorioEstatisticasPorPalavrasChave",
              period.With({{L"NumeroPC1", L"1"}, {L"NumeroPC2", L"2"}})));
}

TEST(StatisticsOfOwnArchive, OfKeywordsAreNoneWithoutTheInstallationsRow) {
  const OwnArchive archive({L"DELETE FROM PARAMETRO WHERE CODIGO = '1'"});
  Properties counts = Period{L"2010-01-01", L"2021-12-31"}.With({});
  for (const wchar_t* count : {L"NumeroPC1", L"NumeroPC2", L"NumeroPC3", L"NumeroPC4", L"NumeroPC5", L"NumeroObs"})
    counts.emplace_back(count, L"1");
  const auto parameters = ParametersOf(kIndexing, counts);
  EXPECT_TRUE(ReadAll(Got(RunReport(kIndexing, L"RelatorioEstatisticasPorPalavrasChave", Var(parameters.get()),
                                    archive.Connection()))
                          .object())
                  .rows.empty());
}

}  // namespace
}  // namespace kodra::face
