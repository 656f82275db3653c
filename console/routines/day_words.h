// Days and periods in words, counted from today: "hoje", "início do mês", "ano passado".
//
// A day is its number, as values::DayNumber counts. Letter case and accents of the words do not matter.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kodra::console::routines {

struct Period {
  std::int32_t first, last;
  bool operator==(const Period&) const = default;
};

// "hoje", "ontem", "este mês", "mês passado" (and semana, trimestre, semestre, ano), or "últimos 7 dias", which end
// yesterday. A period is whole, even if it has not ended; a week begins on Monday. Nothing for other words.
std::optional<Period> PeriodNamed(std::string_view words, std::int32_t today);

// "hoje", "ontem", "amanhã", "há 7 dias", or "início do mês" and "fim do mês passado" (and the other periods). Nothing
// for other words.
std::optional<std::int32_t> DayNamed(std::string_view words, std::int32_t today);

// The words above for a message: "hoje, ontem, este mês, …".
extern const char* const kPeriodExamples;
extern const char* const kDayExamples;

// The day as 2024-03-01.
std::string DayText(std::int32_t day);
// The period as short as it can be written: 2024 for a year, 2024-03 for a month, 2024-03-01 for a day, and
// 2024-03-01_2024-03-07 for another.
std::string PeriodText(const Period& period);

}  // namespace kodra::console::routines
