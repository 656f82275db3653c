// A statement laid out for reading.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

// The statement with one clause a line, each condition of a WHERE on a line of its own, and so the columns where they
// do not fit into one line. Each line break, with the indentation behind it, stands in the place of exactly one blank
// between two words; nothing else is changed. UTF-8 in, UTF-8 out.
std::string LaidOut(std::string_view statement);

}  // namespace kodra::console
