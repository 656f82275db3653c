// What reports cannot do on a database although nothing is wrong with it: required behaviours, which docs/behaviours.md
// describes. `verifica` tells them apart from what is wrong.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kodra::console::schema {

enum class Extent {
  kAlwaysFails,  // whatever the parameters are
  kFailsWith,    // with some parameters
  kFindsNothing  // with some parameters it returns no rows, without an error
};

struct Limit {
  std::int32_t databaseCode;
  // "Class.Method" of the reports that have it.
  std::vector<std::string_view> reports;
  Extent extent;
  // One sentence in Brazilian Portuguese without a full stop, which continues the report's name and a colon.
  std::string_view text;
  // The beginning of its entry in docs/behaviours.md.
  std::string_view entry;
  // What every statement contains that the database refuses for this reason. A database that refuses none has not got
  // the limit.
  std::wstring_view inStatement = {};
};

const std::vector<Limit>& Limits();

// The limits of a report on a database.
std::vector<const Limit*> LimitsOf(std::string_view report, std::int32_t databaseCode);

}  // namespace kodra::console::schema
