#include "console/routines/day_words.h"

#include <gtest/gtest.h>

#include "values/dates.h"

namespace kodra::console::routines {
namespace {

std::int32_t Day(int year, int month, int day) { return values::DayNumber({year, month, day}); }

// A Thursday in a leap year.
std::int32_t Today() { return Day(2024, 2, 29); }

// "2024-02-01 2024-02-29", or nothing.
std::string PeriodOf(const std::string& words, std::int32_t today = Today()) {
  const auto period = PeriodNamed(words, today);
  return period ? DayText(period->first) + " " + DayText(period->last) : "";
}

std::string DayOf(const std::string& words, std::int32_t today = Today()) {
  const auto day = DayNamed(words, today);
  return day ? DayText(*day) : "";
}

TEST(PeriodNamedTest, KnowsThePresentAndThePastOne) {
  EXPECT_EQ(PeriodOf("hoje"), "2024-02-29 2024-02-29");
  EXPECT_EQ(PeriodOf("ontem"), "2024-02-28 2024-02-28");
  EXPECT_EQ(PeriodOf("esta semana"), "2024-02-26 2024-03-03");
  EXPECT_EQ(PeriodOf("semana passada"), "2024-02-19 2024-02-25");
  EXPECT_EQ(PeriodOf("este mês"), "2024-02-01 2024-02-29");
  EXPECT_EQ(PeriodOf("mês passado"), "2024-01-01 2024-01-31");
  EXPECT_EQ(PeriodOf("este trimestre"), "2024-01-01 2024-03-31");
  EXPECT_EQ(PeriodOf("trimestre passado"), "2023-10-01 2023-12-31");
  EXPECT_EQ(PeriodOf("este semestre"), "2024-01-01 2024-06-30");
  EXPECT_EQ(PeriodOf("semestre passado"), "2023-07-01 2023-12-31");
  EXPECT_EQ(PeriodOf("este ano"), "2024-01-01 2024-12-31");
  EXPECT_EQ(PeriodOf("ano passado"), "2023-01-01 2023-12-31");
}

TEST(PeriodNamedTest, EndsTheLastDaysYesterday) {
  EXPECT_EQ(PeriodOf("últimos 7 dias"), "2024-02-22 2024-02-28");
  EXPECT_EQ(PeriodOf("últimos 0 dias"), "");
}

TEST(PeriodNamedTest, ChangesWithTheDay) {
  EXPECT_EQ(PeriodOf("mês passado", Day(2024, 1, 1)), "2023-12-01 2023-12-31");
  EXPECT_EQ(PeriodOf("mês passado", Day(2023, 3, 31)), "2023-02-01 2023-02-28");
  EXPECT_EQ(PeriodOf("esta semana", Day(2024, 2, 26)), "2024-02-26 2024-03-03");
  EXPECT_EQ(PeriodOf("esta semana", Day(2024, 3, 3)), "2024-02-26 2024-03-03");
  EXPECT_EQ(PeriodOf("este trimestre", Day(2024, 12, 31)), "2024-10-01 2024-12-31");
}

TEST(PeriodNamedTest, TakesNoOtherWords) {
  EXPECT_EQ(PeriodOf("MES  PASSADO"), "2024-01-01 2024-01-31");
  for (const char* const words : {"", "mês", "mês passada", "esta mês", "amanhã", "01/02/2024"})
    EXPECT_EQ(PeriodOf(words), "") << words;
}

TEST(DayNamedTest, CountsFromToday) {
  EXPECT_EQ(DayOf("hoje"), "2024-02-29");
  EXPECT_EQ(DayOf("ontem"), "2024-02-28");
  EXPECT_EQ(DayOf("Amanhã"), "2024-03-01");
  EXPECT_EQ(DayOf("há 1 dia"), "2024-02-28");
  EXPECT_EQ(DayOf("ha 60 dias"), "2023-12-31");
}

TEST(DayNamedTest, KnowsTheEndsOfEachPeriod) {
  EXPECT_EQ(DayOf("início da semana"), "2024-02-26");
  EXPECT_EQ(DayOf("fim da semana passada"), "2024-02-25");
  EXPECT_EQ(DayOf("início do mês"), "2024-02-01");
  EXPECT_EQ(DayOf("início deste mês"), "2024-02-01");
  EXPECT_EQ(DayOf("fim do mês"), "2024-02-29");
  EXPECT_EQ(DayOf("fim do mês passado"), "2024-01-31");
  EXPECT_EQ(DayOf("início do ano passado"), "2023-01-01");
  EXPECT_EQ(DayOf("fim deste trimestre"), "2024-03-31");
  for (const char* const words : {"", "início", "início da mês", "fim deste mês passado", "mês passado", "29/02/2024"})
    EXPECT_EQ(DayOf(words), "") << words;
}

TEST(PeriodTextTest, IsAsShortAsThePeriodAllows) {
  EXPECT_EQ(PeriodText({Today(), Today()}), "2024-02-29");
  EXPECT_EQ(PeriodText({Day(2024, 2, 1), Day(2024, 2, 29)}), "2024-02");
  EXPECT_EQ(PeriodText({Day(2023, 1, 1), Day(2023, 12, 31)}), "2023");
  EXPECT_EQ(PeriodText({Day(2024, 1, 1), Day(2024, 3, 31)}), "2024-01-01_2024-03-31");
  EXPECT_EQ(PeriodText({Day(2024, 2, 2), Day(2024, 3, 1)}), "2024-02-02_2024-03-01");
}

}  // namespace
}  // namespace kodra::console::routines
