#include "console/formats/csv_writer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/console/formats/writing.h"

namespace kodra::console {
namespace {

std::string Csv(const std::vector<Column>& columns, std::initializer_list<Cells> rows, CsvOptions options = {}) {
  return Written<CsvWriter>(columns, rows, options);
}

TEST(CsvWriter, WritesNamesThenRowsEachEndedByCarriageReturnAndLineFeed) {
  EXPECT_EQ(Csv({{L"COD"}, {L"DESCRIÇÃO"}}, {{L"1", L"Finanças"}, {L"2", L"Jurídico"}}),
            "COD,DESCRIÇÃO\r\n1,Finanças\r\n2,Jurídico\r\n");
}

TEST(CsvWriter, WritesNamesWithoutRows) { EXPECT_EQ(Csv({{L"A"}, {L"B"}}, {}), "A,B\r\n"); }

TEST(CsvWriter, QuotesSeparatorsQuotesAndLineEnds) {
  EXPECT_EQ(Csv({{L"A,B"}, {L"C"}}, {{L"um, dois", L"diz \"sim\""}, {L"linha\nfeita", L"de\rduas"}}),
            "\"A,B\",C\r\n\"um, dois\",\"diz \"\"sim\"\"\"\r\n\"linha\nfeita\",\"de\rduas\"\r\n");
}

TEST(CsvWriter, QuotesOnlyTheChosenSeparator) {
  EXPECT_EQ(Csv({{L"A"}, {L"B"}}, {{L"um, dois", L"três; quatro"}}, {.separator = ';'}),
            "A;B\r\num, dois;\"três; quatro\"\r\n");
}

TEST(CsvWriter, WritesTextsThatLookLikeFormulasAsTheyAre) {
  EXPECT_EQ(Csv({{L"A"}, {L"B"}}, {{L"=1+1", L"@soma"}, {L"+1", L"-1"}}), "A,B\r\n=1+1,@soma\r\n+1,-1\r\n");
}

TEST(CsvWriter, DistinguishesTheEmptyTextFromNull) {
  EXPECT_EQ(Csv({{L"A"}, {L"B"}, {L"C"}}, {{L"", Null{}, Empty{}}}), "A,B,C\r\n\"\",,\r\n");
}

TEST(CsvWriter, WritesNoBlankLine) { EXPECT_EQ(Csv({{L"A"}}, {{Null{}}, {L"x"}}), "A\r\n\"\"\r\nx\r\n"); }

TEST(CsvWriter, WritesNumbersWithAPointAndFlagsAsWords) {
  const std::vector<Column> columns = {
      {L"A", ColumnKind::kNumber}, {L"B", ColumnKind::kNumber}, {L"C", ColumnKind::kNumber}, {L"D", ColumnKind::kFlag}};
  EXPECT_EQ(Csv(columns, {{-7, std::int64_t{9007199254740993}, 1234.5, true}, {0, std::int64_t{-1}, 0.1, false}}),
            "A,B,C,D\r\n-7,9007199254740993,1234.5,true\r\n0,-1,0.1,false\r\n");
}

TEST(CsvWriter, WritesDatesWithOrWithoutTimeAsTheirColumnIsDeclared) {
  const std::vector<Column> columns = {{L"DIA", ColumnKind::kDay}, {L"HORA", ColumnKind::kMoment}, {L"TEXTO"}};
  EXPECT_EQ(Csv(columns, {{kDay, kMoment, kDay}, {kMoment, kDay, kMoment}}),
            "DIA,HORA,TEXTO\r\n2023-12-31,2023-12-31T10:20:30,2023-12-31\r\n"
            "2023-12-31T10:20:30,2023-12-31T00:00:00,2023-12-31T10:20:30\r\n");
}

TEST(CsvWriter, PadsYearsOfFewerDigits) {
  // 1 January 0100, the first day of the calendar.
  EXPECT_EQ(Csv({{L"DIA", ColumnKind::kDay}}, {{Date{-657434}}}), "DIA\r\n0100-01-01\r\n");
}

TEST(CsvWriter, WritesDatesOutsideTheCalendar) {
  constexpr double kSecond = 1.0 / 86400;
  EXPECT_EQ(Csv({{L"DIA", ColumnKind::kDay}, {L"HORA", ColumnKind::kMoment}},
                {{Date{-657435}, Date{-657435.25}},                  // 31 December 0099
                 {Date{-693959}, Date{2958465 + 1 - kSecond / 10}},  // 1 January 0000, the end of 9999
                 {Date{1e300}, Date{NAN}}}),
            "DIA,HORA\r\n0099-12-31,0099-12-31T06:00:00\r\n0000-01-01,9999-12-31T23:59:59.900\r\n1e+300,nan\r\n");
}

TEST(CsvWriter, BeginsWithTheByteOrderMarkWhenAsked) {
  EXPECT_EQ(Csv({{L"É"}}, {{L"ã"}}, {.byteOrderMark = true}), "\xEF\xBB\xBFÉ\r\nã\r\n");
}

TEST(CsvWriter, WritesNumbersDatesAndFlagsForExcelAsBraziliansDo) {
  const std::vector<Column> columns = {{L"NÚMERO", ColumnKind::kNumber},
                                       {L"DIA", ColumnKind::kDay},
                                       {L"HORA", ColumnKind::kMoment},
                                       {L"ATIVA", ColumnKind::kFlag},
                                       {L"TEXTO"}};
  EXPECT_EQ(Csv(columns, {{1234.5, kDay, kMoment, true, L"um; dois, \"três\""}, {-5, kMoment, kDay, false, L""}},
                kCsvForExcel),
            "\xEF\xBB\xBFNÚMERO;DIA;HORA;ATIVA;TEXTO\r\n"
            "1234,5;31/12/2023;31/12/2023 10:20:30;Sim;\"um; dois, \"\"três\"\"\"\r\n"
            "-5;31/12/2023 10:20:30;31/12/2023 00:00:00;Não;\"\"\r\n");
}

TEST(CsvWriter, LeavesNoTextThatExcelTakesForAFormula) {
  // The carriage return is quoted, too.
  EXPECT_EQ(Csv({{L"A"}, {L"B"}, {L"C"}},
                {{L"=1+1", L"+55 11", L"-1"}, {L"@soma", L"\t=1", L"\r=1"}, {L"a=1", L"'x", L" =1"}}, kCsvForExcel),
            "\xEF\xBB\xBF"
            "A;B;C\r\n'=1+1;'+55 11;'-1\r\n'@soma;'\t=1;\"'\r=1\"\r\na=1;'x; =1\r\n");
}

TEST(CsvWriter, LeavesNegativeNumbersOfEveryTypeNumbersForExcel) {
  EXPECT_EQ(Csv({{L"A"}, {L"B"}, {L"C"}, {L"D"}},
                {{std::int64_t{-7}, -0.5, Currency{-12500}, Decimal{.low = 125, .scale = 1, .negative = true}}},
                kCsvForExcel),
            "\xEF\xBB\xBF"
            "A;B;C;D\r\n-7;-0,5;-1,25;-12,5\r\n");
}

}  // namespace
}  // namespace kodra::console
