// kodrarpt lista: every report with its purpose.
#include <algorithm>

#include "console/command_line/columns.h"
#include "console/command_line/report_name.h"
#include "console/commands/commands.h"
#include "console/reports/guide.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Exemplo:\n"
    "  kodrarpt lista | grep -i etiqueta     os relatórios de etiquetas";

ExitCode Lista(std::ostream& out) {
  std::size_t width = 0;
  for (const reports::ReportMethod& method : reports::ReportMethods()) width = std::max(width, Width(NameOf(method)));
  for (const reports::ReportMethod& method : reports::ReportMethods())
    out << Padded(NameOf(method), width + 2) << guide::About(method).purpose << "\n";
  return ExitCode::kOk;
}

}  // namespace

void AddLista(Program& program) {
  program.Add({"lista", "Lista os 39 relatórios, cada um com a sua finalidade", kFooter},
              [&program] { return Lista(program.Out()); });
}

}  // namespace kodra::console
