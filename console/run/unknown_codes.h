// Codes that were asked for and that the archive does not have: why rows are missing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "platform/surroundings.h"

namespace kodra::console {

struct UnknownCode {
  std::string_view parameter;  // "CodDepto"
  std::string words;           // "nenhum departamento tem o código \"XYZ\""
};

// The codes among the parameters that no row of their tables has, in the order of the parameter class. Asks the
// database once for each code, on one connection, after the report, which returned that many rows. A code that the
// database refuses to look up is left out: raises nothing.
std::vector<UnknownCode> UnknownCodes(frame::ParameterObject& parameters, std::uint64_t rows,
                                      const reports::ReportMethod& method, const std::wstring& connection,
                                      platform::Surroundings& surroundings);

}  // namespace kodra::console
