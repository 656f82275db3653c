// Codes that were asked for and that the archive does not have: why a report has no rows.
#pragma once

#include <string>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "platform/surroundings.h"

namespace kodra::console {

// A message for each code among the parameters that no row of its table has, in the order of the parameter class. Asks
// the database once for each code, so it is called only for a report without rows. What the database refuses to answer
// is no message: raises nothing.
std::vector<std::string> UnknownCodes(frame::ParameterObject& parameters, const reports::ReportMethod& method,
                                      const std::wstring& connection, platform::Surroundings& surroundings);

}  // namespace kodra::console
