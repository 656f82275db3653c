// The codes that the translator's functions take.
#pragma once

#include <cstdint>

namespace kodra::sql {

// The layout of a date text (SQLToDate).
inline constexpr std::int32_t fdDDMMYYYY = 0;  // day/month/year
inline constexpr std::int32_t fdYYYYMMDD = 1;  // year/month/day
inline constexpr std::int32_t fdDateTime = 2;  // year/month/day with time

// The kind of a default value (SQLNVL). Every code but the first two is a date.
inline constexpr std::int32_t nvNumero = 0;
inline constexpr std::int32_t nvTexto = 1;
inline constexpr std::int32_t nvData = 2;

}  // namespace kodra::sql
