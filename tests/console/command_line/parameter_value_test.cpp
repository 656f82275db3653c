// The value of a parameter as typed on a command line.
#include "console/command_line/parameter_value.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"
#include "values/dates.h"

namespace kodra::console {
namespace {

using frame::PropertyRule;

Value Parsed(PropertyRule rule, std::string_view text) { return ParameterValue({L"DataFinal", rule}, text); }

Value DateTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return values::FromCalendar({year, month, day, hour, minute, second});
}

std::string UsageMessage(PropertyRule rule, std::string_view text) {
  return RefusalOf([&] { Parsed(rule, text); });
}

TEST(ParameterValueTest, ReadsBrazilianAndIsoDates) {
  EXPECT_EQ(Parsed(PropertyRule::kDate, "01/02/2024"), DateTime(2024, 2, 1));
  EXPECT_EQ(Parsed(PropertyRule::kDate, "1/2/2024"), DateTime(2024, 2, 1));
  EXPECT_EQ(Parsed(PropertyRule::kDate, "2024-02-01"), DateTime(2024, 2, 1));
}

TEST(ParameterValueTest, ReadsATimeOfDay) {
  EXPECT_EQ(Parsed(PropertyRule::kDate, "01/02/2024 9:05"), DateTime(2024, 2, 1, 9, 5));
  EXPECT_EQ(Parsed(PropertyRule::kDate, "2024-02-01T23:59:58"), DateTime(2024, 2, 1, 23, 59, 58));
}

TEST(ParameterValueTest, RefusesAnythingButAWholeDate) {
  for (const char* text : {"", "10", "02/2024", "31/02/2024", "12/31/2024", "01/02/24", "2024-2-1", "01/02/2024 24:00",
                           "01/02/2024 10", "10:20", " 01/02/2024"})
    EXPECT_EQ(UsageMessage(PropertyRule::kDate, text),
              "DataFinal: \"" + std::string(text) + "\" não é uma data (escreva 01/02/2024 ou 2024-02-01)");
}

TEST(ParameterValueTest, ReadsFlagsInAnyLetterCaseWithAndWithoutAccent) {
  for (const char* text : {"sim", "SIM", "s", "1", "Verdadeiro", "true"})
    EXPECT_EQ(Parsed(PropertyRule::kFlag, text), Value(true)) << text;
  for (const char* text : {"não", "NÃO", "nao", "n", "0", "Falso", "false"})
    EXPECT_EQ(Parsed(PropertyRule::kFlag, text), Value(false)) << text;
}

TEST(ParameterValueTest, RefusesAnUnclearFlag) {
  EXPECT_EQ(UsageMessage(PropertyRule::kFlag, "talvez"), "DataFinal: \"talvez\" não é válido (escreva sim ou não)");
  EXPECT_EQ(UsageMessage(PropertyRule::kFlag, ""), "DataFinal: \"\" não é válido (escreva sim ou não)");
}

TEST(ParameterValueTest, ReturnsATextAsTyped) {
  for (const PropertyRule rule : {PropertyRule::kText, PropertyRule::kInitial, PropertyRule::kTrimmed})
    EXPECT_EQ(Parsed(rule, " ação "), Value(L" ação "));
}

}  // namespace
}  // namespace kodra::console
