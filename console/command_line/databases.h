// The databases by their names on the command line.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console {

struct Database {
  std::string_view name;   // as the value of an option
  std::string_view title;  // as people write it
  std::int32_t code;
};

// The five databases for which the reports have a dialect.
std::span<const Database> Databases();

// What DatabasesNamed takes, for messages: "oracle, sqlserver, … ou todos".
std::string DatabaseChoices();

// The database with that name, or all of them for "todos"; letter case does not matter. Raises UsageError for an
// unknown name.
std::vector<Database> DatabasesNamed(std::string_view name);

}  // namespace kodra::console
