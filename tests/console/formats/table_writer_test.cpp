#include "console/formats/table_writer.h"

#include <gtest/gtest.h>

#include "console/formats/display_width.h"
#include "tests/console/formats/writing.h"

namespace kodra::console {
namespace {

std::string Table(const std::vector<Column>& columns, std::initializer_list<Cells> rows) {
  return Written<TableWriter>(columns, rows);
}

TEST(TableWriter, AlignsColumnsByWhatTheTerminalShows) {
  const std::vector<Column> columns = {{L"SÉRIE"},
                                       {L"PÁGINAS", ColumnKind::kNumber},
                                       {L"ARMAZENADO", ColumnKind::kMoment},
                                       {L"ATIVA", ColumnKind::kFlag}};
  EXPECT_EQ(
      Table(columns,
            {{L"Admissões", 1234.5, kMoment, true}, {L"Férias", 7, kDay, false}, {Null{}, Null{}, Null{}, Null{}}}),
      "SÉRIE      PÁGINAS  ARMAZENADO           ATIVA\n"
      "─────────  ───────  ───────────────────  ─────\n"
      "Admissões   1234,5  31/12/2023 10:20:30  Sim\n"
      "Férias           7  31/12/2023 00:00:00  Não\n"
      "\n"
      "(3 linhas)\n");
}

TEST(TableWriter, WritesNumbersOfEveryTypeAsPeopleReadThem) {
  EXPECT_EQ(Table({{L"A"}, {L"B"}, {L"C"}}, {{0.1F, Currency{-1}, Decimal{.low = 1250, .scale = 2}}}),
            "A    B        C\n───  ───────  ────\n0,1  -0,0001  12,5\n(1 linha)\n");
}

TEST(TableWriter, WritesTheTimeInEveryRowOfAColumnOfMomentsAndOnlyWhereThereIsOneInOthers) {
  EXPECT_EQ(Table({{L"DIA", ColumnKind::kDay}, {L"MOMENTO", ColumnKind::kMoment}, {L"TEXTO"}},
                  {{kDay, kDay, kDay}, {kMoment, kMoment, kMoment}, {Date{0}, Date{0}, Date{0}}}),
            "DIA                  MOMENTO              TEXTO\n"
            "───────────────────  ───────────────────  ───────────────────\n"
            "31/12/2023           31/12/2023 00:00:00  31/12/2023\n"
            "31/12/2023 10:20:30  31/12/2023 10:20:30  31/12/2023 10:20:30\n"
            "30/12/1899           30/12/1899 00:00:00  30/12/1899\n"
            "(3 linhas)\n");
}

TEST(TableWriter, WritesADateBeforeTheYear100InIsoForm) {
  EXPECT_EQ(Table({{L"A", ColumnKind::kDay}}, {{Date{-657435}}, {Date{-657434}}}),
            "A\n──────────\n0099-12-31\n01/01/0100\n(2 linhas)\n");
}

TEST(TableWriter, CountsNoWidthForACombiningAccent) {
  // "é" as one character and as "e" with a combining accent.
  EXPECT_EQ(Table({{L"A"}, {L"B"}}, {{L"\u00e9t\u00e9", L"x"}, {L"e\u0301te\u0301", L"y"}}),
            "A    B\n───  ─\n\u00e9t\u00e9  x\ne\u0301te\u0301  y\n(2 linhas)\n");
}

TEST(TableWriter, SaysHowManyRowsThereAre) {
  EXPECT_EQ(Table({{L"A"}}, {}), "A\n─\n(0 linhas)\n");
  EXPECT_EQ(Table({{L"A"}}, {{L"x"}}), "A\n─\nx\n(1 linha)\n");
}

TEST(TableWriter, WritesACellOnOneLineWithoutControlCharacters) {
  EXPECT_EQ(Table({{L"A"}}, {{L"um\r\ndois\ntrês\tquatro"}, {L"\x1b[31mvermelho\x07\u009b"}}),
            "A\n───────────────────\num dois três quatro\n\uFFFD[31mvermelho\uFFFD\uFFFD\n(2 linhas)\n");
}

TEST(TableWriter, WritesLaterRowsWithTheWidthsOfTheFirst) {
  TextOutput output;
  TableWriter writer(output);
  const std::vector<Column> columns = {{L"A"}, {L"B"}};
  writer.Begin(ReportOfDepartments(), columns);
  for (std::size_t i = 0; i < TableWriter::kMeasured; ++i) {
    EXPECT_EQ(output.Text(), "") << "after " << i << " rows";
    writer.Row(Cells{L"abc", L"x"});
  }
  const std::string measured = output.Text();
  const std::string head = "A    B\n───  ─\nabc  x\n";
  EXPECT_EQ(measured.substr(0, head.size()), head);
  writer.Row(Cells{L"a", L"x"});
  writer.Row(Cells{L"abcdefg", L"x"});
  EXPECT_EQ(output.Text().substr(measured.size()), "a    x\nabcdefg  x\n");
  writer.End();
  EXPECT_EQ(output.Text().substr(measured.size()), "a    x\nabcdefg  x\n(1.002 linhas)\n");
}

TEST(TableWriter, LeavesOutTheColumnsThatDoNotFitTheTerminal) {
  const std::vector<Column> columns = {{L"CODIGO"}, {L"OBSERVAÇÃO"}, {L"UF"}, {L"PÁGINAS", ColumnKind::kNumber}};
  const std::initializer_list<Cells> rows = {{L"1", L"um texto bem longo", L"RJ", 12}, {L"2", L"outro", L"SP", 7}};
  EXPECT_EQ(Written<TableWriter>(columns, rows, std::optional<std::size_t>(19)),
            "CODIGO  UF  PÁGINAS\n"
            "──────  ──  ───────\n"
            "1       RJ       12\n"
            "2       SP        7\n"
            "(2 linhas)\n"
            "mais 1 coluna não cabe aqui (OBSERVAÇÃO): use --colunas, ou --saida ARQUIVO.csv\n");
  EXPECT_EQ(Written<TableWriter>(columns, rows, std::optional<std::size_t>(18)),
            "CODIGO  UF\n"
            "──────  ──\n"
            "1       RJ\n"
            "2       SP\n"
            "(2 linhas)\n"
            "mais 2 colunas não cabem aqui (OBSERVAÇÃO, PÁGINAS): use --colunas, ou --saida ARQUIVO.csv\n");
}

TEST(TableWriter, ShowsTheFirstColumnOnATerminalOfAnyWidth) {
  EXPECT_EQ(Written<TableWriter>({{L"CODIGO"}, {L"B"}}, {{L"AB001", L"x"}}, std::optional<std::size_t>(3)),
            "CODIGO\n──────\nAB001\n(1 linha)\n"
            "mais 1 coluna não cabe aqui (B): use --colunas, ou --saida ARQUIVO.csv\n");
}

TEST(TableWriter, ShowsAllColumnsOnATerminalThatIsWideEnough) {
  EXPECT_EQ(Written<TableWriter>({{L"A"}, {L"B"}}, {{L"x", L"y"}}, std::optional<std::size_t>(4)),
            "A  B\n─  ─\nx  y\n(1 linha)\n");
}

// What a terminal shows of a row that follows a thousand others.
std::string AfterAThousandRows(const std::vector<Column>& columns, const Cells& others, const Cells& last) {
  TextOutput output;
  TableWriter writer(output, std::optional<std::size_t>(80));
  writer.Begin(ReportOfDepartments(), columns);
  for (std::size_t i = 0; i < TableWriter::kMeasured; ++i) writer.Row(others);
  writer.Row(last);
  writer.End();
  const std::string before = output.Text().substr(0, output.Text().rfind('\n', output.Text().size() - 2));
  return before.substr(before.rfind('\n') + 1);
}

TEST(TableWriter, CutsOffATextOnATerminalThatIsWiderThanItsColumn) {
  EXPECT_EQ(AfterAThousandRows({{L"A"}, {L"B"}}, {L"abc", L"x"}, {L"abcdefg", L"y"}), "ab…  y");
  EXPECT_EQ(AfterAThousandRows({{L"A"}, {L"B"}}, {L"abc", L"x"}, {L"\u6587\u66f8\u6587", L"y"}), "\u6587…  y");
  EXPECT_EQ(AfterAThousandRows({{L""}, {L"B"}}, {L"", L"x"}, {L"abc", L"y"}), "…  y");
}

TEST(TableWriter, CutsOffNoNumber) {
  EXPECT_EQ(AfterAThousandRows({{L"A", ColumnKind::kNumber}, {L"B"}}, {1, L"x"}, {1234567, L"y"}), "1234567  y");
}

TEST(DisplayWidth, CountsEastAsianLettersAndPictogramsTwice) {
  EXPECT_EQ(DisplayWidth(L"caixa"), 5U);
  EXPECT_EQ(DisplayWidth(L"\u6587\u66f8"), 4U);
  EXPECT_EQ(DisplayWidth(L"\U0001F4E6"), 2U);
  EXPECT_EQ(DisplayWidth(L"\xD83D\xDCE6"), 2U);  // two halves, as Windows has a character
  EXPECT_EQ(DisplayWidth(L"\u2500\u20ac\u2014"), 3U);
  EXPECT_EQ(DisplayWidth(L"a\u200bb\ufeff"), 2U);
}

}  // namespace
}  // namespace kodra::console
