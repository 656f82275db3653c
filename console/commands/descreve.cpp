// kodrarpt descreve: the guide to one report.
#include <CLI/CLI.hpp>
#include <memory>

#include "console/command_line/report_name.h"
#include "console/commands/commands.h"
#include "console/commands/report_description.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Com --json sai um objeto em uma linha: nome, finalidade, parametros (nome, tipo, efeito, exemplo), colunas "
    "(nome,\n"
    "tipo, significado, titulo), particularidades, erros (causa, o_que_houve, o_que_fazer) e exemplo.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt descreve CDocumentoRpt.RelatorioSintetico     o que ele pede e o que devolve";

struct Options {
  std::string report;
  bool asJson = false;
};

ExitCode Descreve(std::ostream& out, const Options& options) {
  const reports::ReportMethod& method = FindReport(options.report);
  if (options.asJson)
    out << DescriptionAsJson(method);
  else
    PrintDescription(out, method);
  return ExitCode::kOk;
}

}  // namespace

void AddDescreve(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"descreve", "Descreve um relatório: parâmetros, colunas e particularidades", kFooter},
                  [&program, options] { return Descreve(program.Out(), *options); });
  command.add_option("RELATÓRIO", options->report, "Classe.Metodo, ou só a classe ou o método")
      ->option_text(" ")
      ->required();
  command.add_flag("--json", options->asJson, "Um objeto JSON, para outros programas");
}

}  // namespace kodra::console
