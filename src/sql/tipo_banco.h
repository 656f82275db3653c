// The codes of the database systems, as the connection component returns them (TipoBanco).
#pragma once

#include <cstdint>

namespace kodra::sql {

#define KODRA_DIALECT(NAME, CODE) inline constexpr std::int32_t tb##NAME = CODE;
#include "sql/dialects.def"
// A system that the translator has no dialect for.
inline constexpr std::int32_t tbOther4 = 4;

}  // namespace kodra::sql
