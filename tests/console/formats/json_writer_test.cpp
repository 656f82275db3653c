#include "console/formats/json_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "tests/console/formats/writing.h"

namespace kodra::console {
namespace {

std::string Json(const std::vector<Column>& columns, std::initializer_list<Cells> rows,
                 JsonShape shape = JsonShape::kArray) {
  return Written<JsonWriter>(columns, rows, shape);
}

TEST(JsonWriter, WritesAnArrayWithEachRowOnItsOwnLine) {
  EXPECT_EQ(Json({{L"COD"}, {L"DESCRIÇÃO"}}, {{L"1", L"Finanças"}, {L"2", L"Jurídico"}}),
            "[\n"
            "{\"COD\":\"1\",\"DESCRIÇÃO\":\"Finanças\"},\n"
            "{\"COD\":\"2\",\"DESCRIÇÃO\":\"Jurídico\"}\n"
            "]\n");
}

TEST(JsonWriter, WritesAnEmptyArrayWithoutRows) {
  EXPECT_EQ(Json({{L"A"}}, {}), "[]\n");
  EXPECT_EQ(Json({}, {}), "[]\n");
}

TEST(JsonWriter, WritesLinesWithoutAnArray) {
  EXPECT_EQ(Json({{L"A"}}, {{L"x"}, {L"y"}}, JsonShape::kLines), "{\"A\":\"x\"}\n{\"A\":\"y\"}\n");
  EXPECT_EQ(Json({{L"A"}}, {}, JsonShape::kLines), "");
}

TEST(JsonWriter, WritesEachKindOfValueInItsJsonForm) {
  const std::vector<Column> columns = {{L"A", ColumnKind::kNumber}, {L"B", ColumnKind::kNumber},
                                       {L"C", ColumnKind::kFlag},   {L"D", ColumnKind::kDay},
                                       {L"E", ColumnKind::kMoment}, {L"F"}};
  EXPECT_EQ(Json(columns, {{-7, 1234.5, true, kDay, kMoment, Null{}}}),
            "[\n{\"A\":-7,\"B\":1234.5,\"C\":true,\"D\":\"2023-12-31\",\"E\":\"2023-12-31T10:20:30\",\"F\":null}\n]\n");
}

TEST(JsonWriter, WritesNumbersOfEveryTypeWithTheirDigits) {
  const std::vector<Column> columns = {{L"A"}, {L"B"}, {L"C"}, {L"D"}};
  EXPECT_EQ(
      Json(columns, {{0.1F, Currency{9223372036854775807}, Decimal{.low = 12345678901234567890U, .high = 1, .scale = 3},
                      std::uint64_t{18446744073709551615U}}}),
      "[\n{\"A\":0.1,\"B\":922337203685477.5807,\"C\":30792422974944119.506,\"D\":18446744073709551615}\n]\n");
}

TEST(JsonWriter, WritesNullForNumbersThatJsonCannotExpress) {
  EXPECT_EQ(Json({{L"A", ColumnKind::kNumber}}, {{INFINITY}, {NAN}}), "[\n{\"A\":null},\n{\"A\":null}\n]\n");
  EXPECT_EQ(Json({{L"A"}}, {{-std::numeric_limits<float>::infinity()}}), "[\n{\"A\":null}\n]\n");
}

TEST(JsonWriter, EscapesQuotesBackslashesAndControlCharacters) {
  EXPECT_EQ(Json({{L"A \"a\""}}, {{L"C:\\x \"y\"\n\t\x01"}}),
            "[\n{\"A \\\"a\\\"\":\"C:\\\\x \\\"y\\\"\\n\\t\\u0001\"}\n]\n");
}

TEST(JsonWriter, AddsANumberToTheNameOfARepeatedColumn) {
  EXPECT_EQ(Json({{L"T"}, {L"T_2"}, {L"T"}, {L"T"}}, {{1, 2, 3, 4}}),
            "[\n{\"T\":1,\"T_2\":2,\"T_3\":3,\"T_4\":4}\n]\n");
}

TEST(JsonWriter, IsReadBackUnchanged) {
  const std::wstring text = L"Acentuação, \"aspas\", \\, \u20ac, \u2028, fim";
  const auto read = nlohmann::json::parse(Json({{L"A"}, {L"B"}}, {{text, 0.1}, {L"", -0.0}}));
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0]["A"], "Acentuação, \"aspas\", \\, \xE2\x82\xAC, \xE2\x80\xA8, fim");
  EXPECT_EQ(read[0]["B"], 0.1);
  EXPECT_EQ(read[1]["A"], "");
}

}  // namespace
}  // namespace kodra::console
