// What the guide says about a report, for the commands that show it.
#pragma once

#include <ostream>
#include <string>

#include "console/reports/report_methods.h"

namespace kodra::console {

// Prints the report's purpose, parameters, columns, oddities, own errors and an example, in lines for people.
void PrintDescription(std::ostream& out, const reports::ReportMethod& method);

// The same as one JSON object on one line.
std::string DescriptionAsJson(const reports::ReportMethod& method);

// The names and purposes of all reports as one JSON array on one line.
std::string ReportsAsJson();

}  // namespace kodra::console
