#include "console/routines/day_words.h"

#include <fmt/format.h>
#include <array>
#include <regex>

#include "console/command_line/suggest.h"
#include "values/dates.h"

namespace kodra::console::routines {
namespace {

// A stretch of the calendar, with its names as Folded() returns them.
struct Unit {
  std::string_view name, present, past;
  const char* article;
  int months;  // zero for the week
};

constexpr auto kUnits = std::to_array<Unit>({
    {"semana", "esta semana", "semana passada", "a", 0},
    {"mes", "este mes", "mes passado", "o", 1},
    {"trimestre", "este trimestre", "trimestre passado", "o", 3},
    {"semestre", "este semestre", "semestre passado", "o", 6},
    {"ano", "este ano", "ano passado", "o", 12},
});

constexpr int kDaysInWeek = 7;
constexpr int kMonthsInYear = 12;

// The first day of a month; month 0 is January of the year zero.
std::int32_t FirstOfMonth(int month) {
  return values::DayNumber({month / kMonthsInYear, month % kMonthsInYear + 1, 1});
}

// The unit that contains today, or the one before it.
Period PeriodOf(const Unit& unit, bool isPast, std::int32_t today) {
  if (unit.months == 0) {
    // Day 2 was a Monday.
    const std::int32_t monday = today - (today - 2) % kDaysInWeek - (isPast ? kDaysInWeek : 0);
    return {monday, monday + kDaysInWeek - 1};
  }
  const values::CivilDay day = values::DayOfNumber(today);
  const int month = day.year * kMonthsInYear + day.month - 1;
  const int first = month - month % unit.months - (isPast ? unit.months : 0);
  return {FirstOfMonth(first), FirstOfMonth(first + unit.months) - 1};
}

// The number in "ultimos 7 dias", by a pattern with one group.
std::optional<int> NumberIn(const std::string& words, const char* pattern) {
  std::smatch match;
  if (!std::regex_match(words, match, std::regex(pattern))) return std::nullopt;
  return std::stoi(match[1].str());
}

// In lower case, without accents, and with one blank between words.
std::string Normal(std::string_view words) { return std::regex_replace(Folded(words), std::regex(" +"), " "); }

}  // namespace

const char* const kPeriodExamples =
    "hoje, ontem, últimos 7 dias, esta semana, semana passada, e o mesmo com mês, trimestre, semestre e ano";
const char* const kDayExamples = "hoje, ontem, há 7 dias, início do mês, fim do mês passado";

std::optional<Period> PeriodNamed(std::string_view words, std::int32_t today) {
  const std::string normal = Normal(words);
  if (normal == "hoje") return Period{today, today};
  if (normal == "ontem") return Period{today - 1, today - 1};
  if (const auto days = NumberIn(normal, "ultimos ([1-9][0-9]{0,4}) dias")) return Period{today - *days, today - 1};
  for (const Unit& unit : kUnits) {
    if (normal == unit.present) return PeriodOf(unit, false, today);
    if (normal == unit.past) return PeriodOf(unit, true, today);
  }
  return std::nullopt;
}

std::optional<std::int32_t> DayNamed(std::string_view words, std::int32_t today) {
  const std::string normal = Normal(words);
  if (normal == "hoje") return today;
  if (normal == "ontem") return today - 1;
  if (normal == "amanha") return today + 1;
  if (const auto days = NumberIn(normal, "ha ([1-9][0-9]{0,4}) dias?")) return today - *days;
  for (const std::string_view end : {"inicio", "fim"}) {
    for (const Unit& unit : kUnits) {
      for (const bool isPast : {false, true}) {
        const std::string bound = fmt::format("{} d{} {}", end, unit.article, isPast ? unit.past : unit.name);
        const std::string thisOne = fmt::format("{} d{}", end, unit.present);  // "inicio deste mes"
        if (normal != bound && (isPast || normal != thisOne)) continue;
        const Period period = PeriodOf(unit, isPast, today);
        return end == "fim" ? period.last : period.first;
      }
    }
  }
  return std::nullopt;
}

std::string DayText(std::int32_t day) {
  const values::CivilDay civil = values::DayOfNumber(day);
  return fmt::format("{:04}-{:02}-{:02}", civil.year, civil.month, civil.day);
}

std::string PeriodText(const Period& period) {
  std::string first = DayText(period.first);
  if (period.first == period.last) return first;
  constexpr std::size_t kYear = 4;
  constexpr std::size_t kMonth = 7;
  for (const Unit& unit : kUnits) {
    const bool isWhole = PeriodOf(unit, false, period.first) == period;
    if (isWhole && unit.name == "mes") return first.substr(0, kMonth);
    if (isWhole && unit.name == "ano") return first.substr(0, kYear);
  }
  return first + "_" + DayText(period.last);
}

}  // namespace kodra::console::routines
