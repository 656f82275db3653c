// What the pages of listings and statistics say, block by block.
#include <gtest/gtest.h>

#include "console/formats/pages/number_text.h"
#include "console/formats/pages/report_layout.h"
#include "tests/console/formats/pages/recording_printout.h"

namespace kodra::console::pages {
namespace {

using Lines = std::vector<std::wstring>;
using Rows = std::vector<std::vector<Value>>;

Lines Printed(const Heading& heading, const std::vector<Column>& columns, const Rows& rows) {
  RecordingPrintout printout;
  const std::unique_ptr<RowWriter> layout = NewReportLayout(ReportOf(heading), printout);
  layout->Begin(heading, columns);
  for (const std::vector<Value>& row : rows) layout->Row(row);
  layout->End();
  return printout.Lines();
}

TEST(ReportPages, SayTheFiltersInWords) {
  EXPECT_EQ(
      Printed({L"CDocumentoRpt",
               L"RelatorioInventarios",
               L"",
               {{L"DataArmazenamento1", L"01/02/2024"}, {L"DataArmazenamento2", L"29/02/2024"}, {L"CodDepto", L"001"}}},
              {}, {})[2],
      L"linha: Armazenados desde 01/02/2024 · armazenados até 29/02/2024 · departamento 001");
}

TEST(ReportPages, HaveTheTimeInEveryRowOfAColumnOfMoments) {
  const Lines lines = Printed({L"CDocumentoRpt", L"RelatorioSintetico", L"", {}},
                              {{L"COD_DOCTO"}, {L"DT_ARMAZ", ColumnKind::kMoment}, {L"DT_VENC", ColumnKind::kDay}},
                              {{L"1", Date{45291.5}, Date{45291}}, {L"2", Date{45291}, Date{45291}}});
  EXPECT_EQ(lines[3], L"| 1 |  |  |  | 31/12/2023 12:00:00 | 31/12/2023 |  |  ");
  EXPECT_EQ(lines[4], L"| 2 |  |  |  | 31/12/2023 00:00:00 | 31/12/2023 |  |  ");
}

TEST(ReportPages, MentionAFlagOnlyIfItIsSet) {
  const auto line = [](const wchar_t* flag) {
    return Printed({L"CCaixaRpt", L"RelatoriosModulos", L"", {{L"CodDepto", L""}, {L"SomenteExistentes", flag}}}, {},
                   {})[2];
  };
  EXPECT_EQ(line(L"Sim"), L"linha: Só os existentes");
  EXPECT_TRUE(line(L"Não").starts_with(L"tabela:"));
}

TEST(ReportPages, ExplainTheCodesThatTheyShow) {
  EXPECT_EQ(
      Printed({L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal", L"", {}},
              {{L"TITULO"}, {L"COD_DOCTO"}, {L"DESCR_OPERADOR"}, {L"DEVOLVIDO"}}, {{L"Listagem", L"1", L"Ana", L"P"}}),
      (Lines{L"retrato: Listagem", L"título: Listagem",
             L"nota: Devolução: P permanente, I sem data, D com data, S já devolvido",
             L"tabela: [Documento] [Operador] [Retirada] [Devolução] [Data da devolução]", L"| 1 | Ana |  | P |  ",
             L"total| 1 registro ", L"fim da tabela", L"fim"}));
}

TEST(ReportPages, SayNothingAboutCodesWithoutRows) {
  EXPECT_EQ(Printed({L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal", L"", {}}, {}, {}),
            (Lines{L"retrato: Originais retirados", L"título: Originais retirados",
                   L"tabela: [Documento] [Operador] [Retirada] [Devolução] [Data da devolução]",
                   L"total| Nenhum registro ", L"fim da tabela", L"fim"}));
}

TEST(ReportPages, PutPointsBetweenThousandsInFiguresAndNotInCodes) {
  EXPECT_EQ(Printed({L"CTipo_CaixaRpt", L"RelatorioTiposModulo", L"", {}},
                    {{L"DESCR_TIPO_CX"}, {L"NUM_MAX_DOCS"}, {L"NUM_MAX_FOLHAS"}},
                    {{std::int32_t(1234), std::int32_t(1234), Decimal{.low = 123456789, .scale = 2}}})[3],
            L"| 1234 | 1.234 | 1.234.567,89 ");
}

TEST(ReportPages, SayTheFiltersOfAStatisticWithoutRows) {
  EXPECT_EQ(Printed({L"CEstatSuporteRpt",
                     L"RelatorioEstatisticas",
                     L"",
                     {{L"DataInicial", L"01/02/2024"}, {L"DataFinal", L"29/02/2024"}, {L"TipoRpt", L"F"}}},
                    {}, {}),
            (Lines{L"retrato: Estatísticas por suporte", L"título: Estatísticas por suporte",
                   L"linha: Desde 01/02/2024 · até 29/02/2024", L"parágrafo: Nenhum registro.", L"fim"}));
}

// The notes of the statistics by series, with that value of TipoRpt.
Lines SeriesNotes(const std::wstring& kind) {
  Heading heading = {L"CEstatSerieRpt", L"RelatorioEstatisticas", L"", {}};
  if (!kind.empty()) heading.parameters.emplace_back(L"TipoRpt", kind);
  const Lines lines = Printed(heading, {{L"Serie"}, {L"Total"}}, {{L"Atas", std::int32_t(1200)}});
  Lines notes;
  for (const std::wstring& line : lines)
    if (line.starts_with(L"nota: ")) notes.push_back(line);
  return notes;
}

TEST(ReportPages, WarnOfFiguresThatMislead) {
  const std::wstring midnight = L"nota: Nota: conta também o que foi armazenado à meia-noite depois do último dia";
  EXPECT_EQ(SeriesNotes(L"N"), Lines{midnight});
  EXPECT_EQ(SeriesNotes(L"F"), Lines{midnight});
  EXPECT_EQ(SeriesNotes(L"P"), (Lines{L"nota: Nota: os totais somam as folhas; o verso não conta", midnight}));
  EXPECT_EQ(SeriesNotes(L"D"), (Lines{L"nota: Nota: os totais somam as folhas, e não os documentos", midnight}));
  EXPECT_EQ(SeriesNotes(L""), SeriesNotes(L"D"));
}

TEST(ReportPages, ShowAStatisticWithItsSumsItsNotesAndItsChart) {
  const std::wstring overlap =
      L"nota: Nota: um documento com várias chaves conta em cada uma delas; o total geral não é o número de documentos";
  EXPECT_EQ(Printed({L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave", L"", {}},
                    {{L"TIT1"}, {L"OPERADOR"}, {L"PC1"}, {L"OBS"}},
                    {{L"Período: x", L"Ana", std::int32_t(1200), std::int32_t(7)}}),
            (Lines{L"retrato: Estatísticas de indexação por palavras-chave",
                   L"título: Estatísticas de indexação por palavras-chave", L"linha: Período: x", L"Operador: Ana",
                   overlap, L"tabela: [Chave] [Documentos]", L"| Chave 1 | 1.200 ", L"| Chave 2 | 0 ",
                   L"| Chave 3 | 0 ", L"| Chave 4 | 0 ", L"| Chave 5 | 0 ", L"| Observação | 7 ",
                   L"total| Total geral | 1.207 ", L"fim da tabela", L"gráfico: Documentos por Chave", L"fim"}));
}

// The caption of the chart of so many days in a row from 1 January 2024.
std::wstring ChartOfDays(int days) {
  Rows rows;
  for (int day = 0; day < days; ++day) rows.push_back({Date{45292.0 + day}, L"1"});
  const Lines lines = Printed({L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento", L"", {}},
                              {{L"DATA_INDEXACAO"}, {L"COD_DOCTO"}}, rows);
  return lines[lines.size() - 2];
}

TEST(ReportPages, DrawMonthsOrYearsInPlaceOfTooManyDays) {
  EXPECT_EQ(ChartOfDays(36), L"gráfico: Documentos por Dia");
  EXPECT_EQ(ChartOfDays(37), L"gráfico: Documentos por mês");
  // 36 months: the year 2024 has 366 days.
  EXPECT_EQ(ChartOfDays(366 + 2 * 365), L"gráfico: Documentos por mês");
  EXPECT_EQ(ChartOfDays(366 + 2 * 365 + 1), L"gráfico: Documentos por ano");
}

TEST(WithThousands, KeepsDecimalsAndSigns) {
  EXPECT_EQ(WithThousands(L"-1234567,5"), L"-1.234.567,5");
  EXPECT_EQ(WithThousands(L"1E+20"), L"1E+20");
  EXPECT_EQ(WithThousands(L""), L"");
}

}  // namespace
}  // namespace kodra::console::pages
