// kodrarpt lista: every report with its purpose.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "console/command_line/columns.h"
#include "console/command_line/report_name.h"
#include "console/commands/commands.h"
#include "console/commands/report_description.h"
#include "console/reports/guide.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Com --json sai uma lista em uma linha, com um objeto por relatório: nome e finalidade.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt lista | grep -i etiqueta     os relatórios de etiquetas (no Windows, findstr /i)";

ExitCode Lista(std::ostream& out, bool asJson) {
  if (asJson) {
    out << ReportsAsJson();
    return ExitCode::kOk;
  }
  std::size_t width = 0;
  for (const reports::ReportMethod& method : reports::ReportMethods()) width = std::max(width, Width(NameOf(method)));
  for (const reports::ReportMethod& method : reports::ReportMethods())
    out << Padded(NameOf(method), width + 2) << guide::About(method).purpose << "\n";
  return ExitCode::kOk;
}

}  // namespace

void AddLista(Program& program) {
  const auto asJson = std::make_shared<bool>(false);
  CLI::App& command = program.Add({"lista", "Lista os 39 relatórios, cada um com a sua finalidade", kFooter},
                                  [&program, asJson] { return Lista(program.Out(), *asJson); });
  command.add_flag("--json", *asJson, "Uma lista JSON, para outros programas");
}

}  // namespace kodra::console
