// Lays a statement out for reading.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

// The statement with each clause and each condition of a WHERE on a line of its own, and also each column if the
// columns do not fit into one line. A line break with the indentation after it replaces exactly one blank between two
// words; nothing else changes. UTF-8 in, UTF-8 out.
std::string LaidOut(std::string_view statement);

}  // namespace kodra::console
