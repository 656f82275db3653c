// Whether an engine has the reference's rows, and whether they are in the order that the statement asks for.
//
// The comparison ignores these differences, for these reasons:
//   letter case of column names  engines fold the names of columns differently, and clients look fields up without it
//   type of a number, zeros      12, 12.0 and the text of a DECIMAL are one number
//   a date without a time        is its midnight: Oracle's DATE always has a time
//   an empty text on Oracle      is a null there
//   the order of rows            matters only where the statement has an ORDER BY, and not among equal rows; nulls
//                                come where the engine sorts them
#pragma once

#include <optional>
#include <string>

#include "tests/engines/run.h"

namespace kodra::engines {

// The reference's answer to the same statement.
const Answer& ReferenceAnswer(const Statement& statement);

// The first difference between an engine's rows and the reference's; nothing when they are the same.
// REQUIRES: both executed.
std::optional<std::string> Difference(const Engine& engine, const Asked& asked);

// The first pair of rows out of the order that the statement asks for; nothing when it asks for none.
// REQUIRES: the statement executed.
std::optional<std::string> Disorder(const Engine& engine, const Asked& asked);

}  // namespace kodra::engines
