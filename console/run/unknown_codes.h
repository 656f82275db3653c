// Codes that were asked for and that the archive does not have: why rows are missing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "platform/surroundings.h"

namespace kodra::console {

// A message for each code among the parameters that no row of its table has, in the order of the parameter class. Asks
// the database once for each code, on one connection, after the report, which returned that many rows. What the
// database refuses to answer is no message: raises nothing.
std::vector<std::string> UnknownCodes(frame::ParameterObject& parameters, std::uint64_t rows,
                                      const reports::ReportMethod& method, const std::wstring& connection,
                                      platform::Surroundings& surroundings);

}  // namespace kodra::console
