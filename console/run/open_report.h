// Calls a report method for a command.
#pragma once

#include <string>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"

namespace kodra::console {

// Returns the rows of a report. Raises ConnectionError if the method fails and the database cannot be reached;
// otherwise what the method raises.
frame::ReportRows OpenReport(const reports::ReportMethod& method, const std::wstring& connection,
                             frame::ParameterObject& parameters, platform::Surroundings& surroundings);

}  // namespace kodra::console
