// The codes of the database systems, as the connection component hands them over (TipoBanco).
#pragma once

#include <cstdint>

namespace kodra::sql {

inline constexpr std::int32_t tbOracle = 1;
inline constexpr std::int32_t tbSQLServer = 2;
inline constexpr std::int32_t tbMySQL = 3;
inline constexpr std::int32_t tbOther4 = 4;     // a system that the translator has no dialect for
inline constexpr std::int32_t tbOracleAlt = 5;  // a second Oracle variant: the translator takes it as tbOracle
inline constexpr std::int32_t tbDB2 = 6;        // DB2 and iSeries
inline constexpr std::int32_t tbSQLite = 7;

}  // namespace kodra::sql
