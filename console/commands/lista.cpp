// kodrarpt lista: every report with its purpose.
#include <algorithm>

#include "console/command_line/columns.h"
#include "console/commands/commands.h"
#include "console/reports/guide.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Exemplo:\n"
    "  kodrarpt lista | grep -i etiqueta     os relatórios que fazem etiquetas";

ExitCode Lista(std::ostream& out) {
  std::size_t width = 0;
  for (const guide::Report& report : guide::Reports()) width = std::max(width, Width(guide::NameOf(report)));
  for (const guide::Report& report : guide::Reports())
    out << Padded(guide::NameOf(report), width + 2) << report.purpose << "\n";
  return ExitCode::kOk;
}

}  // namespace

void AddLista(Program& program) {
  program.Add({"lista", "Os 39 relatórios, cada um com a sua finalidade", kFooter},
              [&program] { return Lista(program.Out()); });
}

}  // namespace kodra::console
