// kodrarpt etiquetas: prints the labels of modules and containers.
#include <CLI/CLI.hpp>

#include "console/command_line/console.h"
#include "console/command_line/input_file.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/labels/label_arguments.h"
#include "console/run/connection_options.h"
#include "console/run/label_print.h"
#include "console/run/output_run.h"
#include "console/run/time_limit.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;

constexpr const char* kFooter =
    "TIPO é abertura, fechamento, subordinadas (o fechamento dos módulos subordinados de cada módulo), divisoria (uma\n"
    "por documento de cada módulo) ou conteiner. As etiquetas saem na ordem dos códigos: os da linha de comando, os "
    "de\n"
    "--lista, os de --de e --ate. Um código sem etiqueta é citado no fim, e o código de saída é 1.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt etiquetas abertura AA001 AA002 AA00301 --conexao \"DSN=Acervo;UID=ana\" --folha a4-2x7 \\\n"
    "      --saida etiquetas.pdf";

constexpr std::size_t kLargestList = 16 << 20;

// The options of the command, as typed.
struct Options {
  std::string kind;
  std::vector<std::string> codes;
  std::string first, last, list, department;
  ConnectionOptions connection;
  labels::LabelArguments labels;
  bool withPlace = false;
  std::string organisation;
  std::string format = "pdf";
  std::string target;
  TimeLimit timeLimit;
};

// The codes that were given one by one.
std::vector<std::wstring> GivenCodes(const Options& options) {
  std::vector<std::wstring> codes;
  for (const std::string& code : options.codes) codes.push_back(FromUtf8(code));
  if (options.list.empty()) return codes;
  const std::vector<std::wstring> listed = CodesInList(
      options.list == "-" ? ReadStandardInput(kLargestList) : ReadInputFile(FromUtf8(options.list), kLargestList));
  if (listed.empty()) throw UsageError("a lista \"" + options.list + "\" não tem nenhum código");
  codes.insert(codes.end(), listed.begin(), listed.end());
  return codes;
}

LabelOrder OrderOf(const Options& options) {
  return {.kind = options.kind,
          .codes = GivenCodes(options),
          .range = {FromUtf8(options.first), FromUtf8(options.last), FromUtf8(options.department)},
          .withPlace = options.withPlace,
          .organisation = FromUtf8(options.organisation),
          .print = options.labels.Options(),
          .format = pages::PageFormatNamed(options.format)};
}

ExitCode Etiquetas(Program& program, const Options& options) {
  const LabelPrint print(OrderOf(options));
  const Destination destination = {FromUtf8(options.target), {.limit = options.timeLimit.Get()}};
  if (options.target.empty() && pages::PageFormatNamed(options.format) == pages::PageFormat::kPdf &&
      IsTerminal(program.Out()))
    throw UsageError("o PDF precisa de --saida, porque a saída é um terminal");
  // Last, because it may ask for a password.
  const std::wstring connection = options.connection.Text();
  LabelOutcome outcome;
  const ExitCode code = RunToOutput(program, destination, [&](OutputRun& run) {
    outcome = print.Write(run.machine.Around(), connection, run.output, [&] { return !run.stopping.Requested(); });
    return outcome.hasLabels;
  });
  if (code != ExitCode::kOk) return code;
  for (const std::string& warning : outcome.warnings) program.Say("aviso: " + warning);
  for (const std::string& problem : outcome.problems) program.Say(problem);
  return outcome.problems.empty() ? ExitCode::kOk : ExitCode::kReportError;
}

void ListStocks(std::ostream& out) {
  for (const labels::Stock& stock : labels::BuiltInStocks()) out << Described(stock) << "\n";
}

}  // namespace

void AddEtiquetas(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add({"etiquetas", "Imprime etiquetas de módulos e de contêineres", kFooter},
                                  [&program, options] { return Etiquetas(program, *options); });
  command.add_option("TIPO", options->kind, "abertura, fechamento, subordinadas, divisoria ou conteiner")
      ->option_text(" ")
      ->required();
  command.add_option("CÓDIGO", options->codes, "Os códigos dos módulos ou contêineres")->option_text("...");
  command.add_option("--de", options->first, "O primeiro código de um intervalo; vêm os que existem")
      ->option_text("CÓDIGO");
  command.add_option("--ate", options->last, "O último código do intervalo")->option_text("CÓDIGO");
  command.add_option("--CodDepto", options->department, "Só módulos deste departamento, no intervalo")
      ->ignore_case()
      ->option_text("CÓDIGO");
  command.add_option("--lista", options->list, "Um arquivo com um código por linha; - é a entrada padrão")
      ->option_text("ARQUIVO");
  options->connection.AddTo(command);
  options->timeLimit.AddTo(command);
  command.add_option("--formato", options->format, "pdf ou html (sem esta opção, pdf)")->option_text("FORMATO");
  command.add_option("--saida", options->target, "O arquivo a gravar (sem esta opção, a saída padrão)")
      ->option_text("ARQUIVO");
  options->labels.AddAllTo(command);
  command.add_flag_callback(
      "--folhas",
      [&program] {
        ListStocks(program.Out());
        throw CLI::Success();
      },
      "Lista as folhas que têm nome, com as suas medidas");
  command.add_flag("--com-lugar", options->withPlace, "Acrescenta fileira, estante, prateleira e depósito do módulo");
  command.add_option("--orgao", options->organisation, "O nome do órgão (sem esta opção, o do banco de dados)")
      ->option_text("TEXTO");
}

}  // namespace kodra::console
