// The time of a report on a database, from the call to its last row, in a process of its own that is ended at a limit.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"

namespace kodra::bench {

// A property of the parameter object, and its value as a user types it.
struct Setting {
  std::string_view property;
  std::string_view value;
};

// Sets those properties that an object of the class has.
void Let(frame::ParameterObject& object, const frame::ParameterClass& parameterClass,
         std::span<const Setting> settings);

enum class Ending { kDone, kTooLong, kFailed };

struct ReportTime {
  Ending ending = Ending::kFailed;
  double seconds = 0;  // the best of three runs, or of those within the limit
  std::int64_t rows = 0;
};

// REQUIRES: `limit` seconds is at least 1.
ReportTime TimeOf(const reports::ReportMethod& method, const frame::ParameterObject& parameters,
                  const std::wstring& connectionString, unsigned limit);

// "0.012 s", "> 30 s" or "erro".
std::string Text(const ReportTime& time, unsigned limit);

}  // namespace kodra::bench
