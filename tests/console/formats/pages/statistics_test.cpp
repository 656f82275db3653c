// Statistics from rows: groups, sums, order.
#include "console/formats/pages/statistics.h"

#include <gtest/gtest.h>

#include "console/formats/pages/number_text.h"

namespace kodra::console::pages {
namespace {

using Rows = std::vector<std::vector<Value>>;

Statistics Gathered(const wchar_t* className, const wchar_t* method, const std::vector<const wchar_t*>& names,
                    const Rows& rows) {
  std::vector<Column> columns;
  for (const wchar_t* name : names) columns.push_back({name});
  StatisticsGatherer gatherer({className, method, L"", {}}, columns);
  for (const std::vector<Value>& row : rows) gatherer.Add(RowReader(columns, row));
  return gatherer.Result();
}

// A statistic as lines of text: "block | line | sums".
std::vector<std::wstring> Lines(const Statistics& statistics) {
  std::vector<std::wstring> lines;
  const auto sums = [](const std::vector<double>& values) {
    std::wstring text;
    for (const double value : values) text += L" " + NumberForPeople(value);
    return text;
  };
  for (const StatisticsBlock& block : statistics.blocks) {
    for (const StatisticsLine& line : block.lines)
      lines.push_back(block.name + L"|" + line.name + L"|" + sums(line.sums));
    lines.push_back(block.name + L"||" + sums(block.sums));
  }
  lines.push_back(L"=" + sums(statistics.sums));
  return lines;
}

using Texts = std::vector<std::wstring>;

TEST(StatisticsTest, CountsImagedDocumentsByDayInTheOrderOfDays) {
  const Statistics result = Gathered(
      L"CEstatImgRpt", L"RelatorioEstatisticas",
      {L"TIT1", L"OPERADOR", L"DEPTO", L"DT_ARMAZ", L"FUNDO", L"OWNER", L"COD_DOCTO"},
      {{L"Período: 30/12/2023 a 01/02/2024", L"Todos os Operadores", L"Jurídico", Date{45323.5}, L"Fundo", L"Eu", L"3"},
       {L"Período: 30/12/2023 a 01/02/2024", L"Todos os Operadores", L"Jurídico", Date{45291.25}, L"Fundo", L"Eu",
        L"1"},
       {L"Período: 30/12/2023 a 01/02/2024", L"Todos os Operadores", L"Jurídico", Date{45291.75}, L"Fundo", L"Eu",
        L"2"}});
  EXPECT_EQ(result.title, L"Estatísticas de digitalização");
  EXPECT_EQ(result.subtitle, L"Período: 30/12/2023 a 01/02/2024");
  EXPECT_EQ(result.measures, (Texts{L"Documentos"}));
  EXPECT_EQ(result.facts, (std::vector<Fact>{{L"Fundo", L"Fundo"},
                                             {L"Operador", L"Todos os Operadores"},
                                             {L"Departamento", L"Jurídico"},
                                             {L"Responsável", L"Eu"}}));
  EXPECT_EQ(Lines(result), (Texts{L"|31/12/2023| 2", L"|01/02/2024| 1", L"|| 3", L"= 3"}));
}

TEST(StatisticsTest, LeavesOutAPeriodThatWasNotGiven) {
  const Statistics result = Gathered(L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave",
                                     {L"TIT1", L"OPERADOR", L"DEPTO", L"PC1", L"FUNDO"},
                                     {{L"Período: 30/12/1899 a 30/12/1899", L"Todos", L"Todos", 12, L"Fundo"}});
  EXPECT_EQ(result.subtitle, L"");
}

TEST(StatisticsTest, CountsTheDaysOfEveryYear) {
  // 31 December 0099 and 29 December 1899, each at midnight and at six in the morning, and 31 December 2023.
  const Statistics result = Gathered(
      L"CEstatImgRpt", L"RelatorioEstatisticas", {L"DT_ARMAZ", L"COD_DOCTO"},
      {{Date{45291}, L"1"}, {Date{-1}, L"2"}, {Date{-1.25}, L"3"}, {Date{-657435}, L"4"}, {Date{-657435.25}, L"5"}});
  EXPECT_EQ(Lines(result), (Texts{L"|0099-12-31| 2", L"|29/12/1899| 2", L"|31/12/2023| 1", L"|| 5", L"= 5"}));
}

TEST(StatisticsTest, AddsUpTheSheetsThatTheReportGives) {
  const Statistics result =
      Gathered(L"CEstatImgRpt", L"RelatorioEstatisticas", {L"DT_ARMAZ", L"FRENTE"},
               {{Date{45291}, std::int32_t(12)}, {Date{45291}, std::int32_t(3)}, {Date{45291}, Null()}});
  EXPECT_EQ(result.measures, (Texts{L"Documentos", L"Folhas"}));
  EXPECT_EQ(Lines(result), (Texts{L"|31/12/2023| 3 15", L"|| 3 15", L"= 3 15"}));
}

TEST(StatisticsTest, AddsUpNumbersOfEveryType) {
  const Statistics result = Gathered(L"CEstatImgRpt", L"RelatorioEstatisticas", {L"DT_ARMAZ", L"FRENTE"},
                                     {{Date{45291}, Decimal{.low = 1250, .scale = 2}},
                                      {Date{45291}, Currency{5000}},
                                      {Date{45291}, 0.1F},
                                      {Date{45291}, std::uint64_t{3}}});
  EXPECT_EQ(Lines(result), (Texts{L"|31/12/2023| 4 16,1", L"|| 4 16,1", L"= 4 16,1"}));
}

// Page counts that the database holds as text count as what they begin with.
TEST(StatisticsTest, AddsUpFrontsAndBacksToPages) {
  const Statistics result = Gathered(
      L"CEstatSuporteRpt", L"RelatorioEstatisticas", {L"TIT", L"COD_DOCTO", L"DESCR_SUPORTE", L"FRENTE", L"VERSO"},
      {{L"Período", L"1", L"Papel", L"10", L"4"}, {L"Período", L"2", L"Papel", L"1", L""}});
  EXPECT_EQ(result.measures, (Texts{L"Documentos", L"Frente", L"Verso", L"Páginas"}));
  EXPECT_EQ(Lines(result), (Texts{L"|Papel| 2 11 4 15", L"|| 2 11 4 15", L"= 2 11 4 15"}));
}

TEST(StatisticsTest, PutsNamesInAlphabeticalOrderWhateverTheirCaseAndAccents) {
  const Statistics result =
      Gathered(L"CEstatSubgrupoRpt", L"RelatorioEstatisticas", {L"TITULO", L"TIT1", L"DESCR_GRUPO", L"COD_DOCTO"},
               {{L"ESTATÍSTICAS POR SUBGRUPO", L"Período", L"Ética", L"1"},
                {L"ESTATÍSTICAS POR SUBGRUPO", L"Período", L"zelo", L"2"},
                {L"ESTATÍSTICAS POR SUBGRUPO", L"Período", L"Ensino", L"3"},
                {L"ESTATÍSTICAS POR SUBGRUPO", L"Período", L"Exame", L"4"}});
  EXPECT_EQ(result.title, L"ESTATÍSTICAS POR SUBGRUPO");
  EXPECT_EQ(Lines(result), (Texts{L"|Ensino| 1", L"|Ética| 1", L"|Exame| 1", L"|zelo| 1", L"|| 4", L"= 4"}));
}

// The series report comes in one alphabetical sequence; its subgroups are put together here.
TEST(StatisticsTest, PutsTheSeriesOfASubgroupTogether) {
  const Statistics result = Gathered(
      L"CEstatSerieRpt", L"RelatorioEstatisticas",
      {L"Titulo", L"Subtitulo", L"Periodo", L"Subgrupo", L"Serie", L"Total"},
      {{L"ESTATÍSTICAS POR SÉRIE", L"(por número de folhas)", L"Período: x", L"Subgrupo: B", L"Atas", std::int32_t(5)},
       {L"ESTATÍSTICAS POR SÉRIE", L"(por número de folhas)", L"Período: x", L"Subgrupo: A", L"Cartas", 2.0},
       {L"ESTATÍSTICAS POR SÉRIE", L"(por número de folhas)", L"Período: x", L"Subgrupo: B", L"Dossiês",
        std::int64_t(1)}});
  EXPECT_EQ(result.subtitle, L"(por número de folhas) · Período: x");
  EXPECT_EQ(Lines(result), (Texts{L"Subgrupo: A|Cartas| 2", L"Subgrupo: A|| 2", L"Subgrupo: B|Atas| 5",
                                  L"Subgrupo: B|Dossiês| 1", L"Subgrupo: B|| 6", L"= 8"}));
}

TEST(StatisticsTest, TakesTheCountsOfKeywordsForLines) {
  const Statistics result =
      Gathered(L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave",
               {L"TIT1", L"OPERADOR", L"DEPTO", L"PC1", L"PC2", L"PC3", L"PC4", L"PC5", L"OBS", L"FUNDO", L"OWNER"},
               {{L"Período", L"Ana", L"Jurídico", std::int32_t(10), std::int32_t(8), std::int32_t(6), std::int32_t(4),
                 std::int32_t(2), std::int32_t(1), L"Fundo", L"Eu"}});
  EXPECT_EQ(Lines(result), (Texts{L"|Chave 1| 10", L"|Chave 2| 8", L"|Chave 3| 6", L"|Chave 4| 4", L"|Chave 5| 2",
                                  L"|Observação| 1", L"|| 31", L"= 31"}));
}

TEST(StatisticsTest, HasItsOwnTitleAndNoLineWithoutRows) {
  const Statistics result = Gathered(L"CEstatSerieRpt", L"RelatorioEstatisticas", {L"Titulo", L"Total"}, {});
  EXPECT_EQ(result.title, L"Estatísticas por série");
  EXPECT_TRUE(result.blocks.empty());
}

TEST(NumberForPeople, HasPointsBetweenThousands) {
  EXPECT_EQ(NumberForPeople(0), L"0");
  EXPECT_EQ(NumberForPeople(999), L"999");
  EXPECT_EQ(NumberForPeople(1000), L"1.000");
  EXPECT_EQ(NumberForPeople(-1234567.5), L"-1.234.567,5");
  EXPECT_EQ(NumberForPeople(-123), L"-123");
}

}  // namespace
}  // namespace kodra::console::pages
