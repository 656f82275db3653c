// A report by the name that the user typed.
#pragma once

#include <string>
#include <string_view>

#include "console/reports/report_methods.h"

namespace kodra::console {

// "CDeptoRpt.RelatorioDeptos".
std::string NameOf(const reports::ReportMethod& method);

// The report named "Classe.Metodo", or by its class or its method alone where no other report has the same. Letter case
// and accents do not matter, and the source of an error ("KodraRpt.CDeptoRpt::RelatorioDeptos") is a name too. Raises
// UsageError with the candidates of an ambiguous name, or the nearest name of a wrong one.
const reports::ReportMethod& FindReport(std::string_view name);

}  // namespace kodra::console
