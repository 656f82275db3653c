// The databases by their names on the command line.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kodra::console {

struct Database {
  std::string_view name;   // as an option's value
  std::string_view title;  // as a reader knows it
  std::int32_t code;
};

// The five databases that the reports have a dialect for.
std::span<const Database> Databases();

// The database of that name, or all of them for "todos"; letter case does not matter. Raises UsageError.
std::vector<Database> DatabasesNamed(std::string_view name);

}  // namespace kodra::console
