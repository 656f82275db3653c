// Finds a report by the name that the user typed.
#pragma once

#include <string>
#include <string_view>

#include "console/reports/report_methods.h"

namespace kodra::console {

// "CDeptoRpt.RelatorioDeptos".
std::string NameOf(const reports::ReportMethod& method);

// The report named "Classe.Metodo". The class or the method alone is enough if no other report has it. Letter case and
// accents do not matter, and the source of an error ("KodraRpt.CDeptoRpt::RelatorioDeptos") is a name too. Raises
// UsageError, which lists the candidates for an ambiguous name and the nearest name for an unknown one.
const reports::ReportMethod& FindReport(std::string_view name);

}  // namespace kodra::console
