#include "console/formats/chosen_columns.h"

#include <gtest/gtest.h>

#include "console/command_line/usage_error.h"
#include "console/formats/csv_writer.h"
#include "tests/console/formats/writing.h"

namespace kodra::console {
namespace {

const std::vector<Column> kColumns = {
    {L"COD", ColumnKind::kNumber}, {L"DIA", ColumnKind::kDay}, {L"TOTAL"}, {L"descrição"}, {L"TOTAL"}};

// The CSV of two rows with these columns.
std::string Csv(const std::vector<std::string>& names) {
  TextOutput output;
  ChosenColumns writer(std::make_unique<CsvWriter>(output, CsvOptions{}), names);
  WriteTo(writer, kColumns, {{1, kDay, L"a", L"um", L"b"}, {2, Null{}, L"c", L"dois", L"d"}});
  return output.Text();
}

TEST(ChosenColumns, WriteOnlyTheNamedOnesInTheOrderOfTheNames) {
  EXPECT_EQ(Csv({"DIA", "COD"}), "DIA,COD\r\n2023-12-31,1\r\n,2\r\n");
}

TEST(ChosenColumns, AreNamedInAnyLetterCase) {
  EXPECT_EQ(Csv({"cod", "DESCRIÇÃO"}), "COD,descrição\r\n1,um\r\n2,dois\r\n");
}

TEST(ChosenColumns, AreAllThatShareAName) { EXPECT_EQ(Csv({"total"}), "TOTAL,TOTAL\r\na,b\r\nc,d\r\n"); }

TEST(ChosenColumns, MayRepeat) { EXPECT_EQ(Csv({"COD", "COD"}), "COD,COD\r\n1,1\r\n2,2\r\n"); }

TEST(ChosenColumns, RefuseAnUnknownNameBeforeAnythingIsWritten) {
  TextOutput output;
  ChosenColumns writer(std::make_unique<CsvWriter>(output, kCsvForExcel), {"COD", "DIAS"});
  try {
    writer.Begin(ReportOfDepartments(), kColumns);
    FAIL() << "nothing was raised";
  } catch (const UsageError& error) {
    EXPECT_STREQ(error.what(),
                 "não há a coluna \"DIAS\" (quis dizer \"DIA\"?); as colunas são COD, DIA, TOTAL, descrição, TOTAL");
  }
  EXPECT_EQ(output.Text(), "");
}

}  // namespace
}  // namespace kodra::console
