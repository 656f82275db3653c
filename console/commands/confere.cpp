// kodrarpt confere: compares the codes that were read on the shelf with what the archive says is there.
#include <CLI/CLI.hpp>

#include "console/command_line/input_file.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/inventory/inventory.h"
#include "console/inventory/scanned_codes.h"
#include "console/run/connection_options.h"
#include "console/run/output_options.h"
#include "console/run/output_run.h"
#include "console/run/time_limit.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using inventory::Inventory;
using values::FromUtf8;
using values::ToUtf8;

constexpr const char* kFooter =
    "Com --modulo, os códigos lidos são os dos documentos; com --conteiner, os dos módulos. A lista tem um código por\n"
    "linha, como o leitor de código de barras os digita; linhas vazias e códigos repetidos não contam, nem o código "
    "do\n"
    "próprio módulo ou contêiner. Ela tem no máximo 8 MB.\n"
    "\n"
    "Cada código sai com a sua situação segundo o acervo: presente, emprestado (com quem e desde quando), ausente, em\n"
    "outro lugar (e onde) ou desconhecido. Os totais vão para a saída de erros. O código de saída é 0 se está tudo no\n"
    "lugar ou emprestado, e 4 se algo está ausente, em outro lugar ou é desconhecido. Nada é gravado no banco.\n"
    "\n"
    "Exemplo:\n"
    "  KODRARPT_SENHA=… kodrarpt confere --modulo AA001 --modulo AA002 --conexao \"DSN=Acervo;UID=ana\" \\\n"
    "      --lista lidos.txt --formato csv --saida conferencia.csv";

// The options of the command, as typed.
struct Options {
  std::vector<std::string> modules;
  std::vector<std::string> containers;
  ConnectionOptions connection;
  std::string list = "-";
  OutputOptions output;
  pages::LetterheadOptions letterhead;
  TimeLimit timeLimit;
};

std::vector<std::wstring> Wide(const std::vector<std::string>& codes) {
  std::vector<std::wstring> wide;
  wide.reserve(codes.size());
  for (const std::string& code : codes) wide.push_back(FromUtf8(code));
  return wide;
}

std::vector<std::wstring> ReadList(const std::string& name) {
  if (name == "-") return inventory::ScannedCodes(ReadStandardInput(inventory::kLongestList), "a entrada padrão");
  return inventory::ScannedCodes(ReadInputFile(FromUtf8(name), inventory::kLongestList), "\"" + name + "\"");
}

ExitCode Confere(Program& program, const Options& options) {
  const Format format = options.output.ChosenFormat();
  FormatOptions formatOptions = options.output.ForFormats();
  const std::uint64_t mostRows = options.output.MostRows();
  const Destination destination = {
      options.output.Target(), {.limit = options.timeLimit.Get()}, format == Format::kJson};
  if (options.modules.empty() && options.containers.empty())
    throw UsageError("falta --modulo, para conferir documentos, ou --conteiner, para conferir módulos");
  if (!options.modules.empty() && !options.containers.empty())
    throw UsageError("--modulo e --conteiner não podem ser usados juntos");
  formatOptions.html.letterhead = options.letterhead.Get();
  // After the checks, because it may ask for a password, and before a list that the user types.
  const std::wstring connection = options.connection.Text();
  Inventory inventory = options.containers.empty()
                            ? Inventory(Inventory::Of::kDocuments, Wide(options.modules), ReadList(options.list))
                            : Inventory(Inventory::Of::kModules, Wide(options.containers), ReadList(options.list));
  const ExitCode code = RunToOutput(program, destination, [&](OutputRun& run) {
    inventory.Compare(run.machine.Around(), connection, [&] { return !run.stopping.Requested(); });
    if (run.stopping.Requested()) return false;
    formatOptions.terminalWidth = run.terminalWidth;
    inventory.Write(*NewWriter(format, formatOptions, run.output, run.path), mostRows);
    return true;
  });
  if (code != ExitCode::kOk) return code;
  if (!inventory.Warning().empty()) program.Say("aviso: " + inventory.Warning());
  program.Err() << ToUtf8(inventory::Summary(inventory.Findings())) << "\n";
  return AllInPlace(inventory.Findings()) ? ExitCode::kOk : ExitCode::kMismatch;
}

}  // namespace

void AddConfere(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"confere", "Compara os códigos lidos nas estantes com o que o acervo registra", kFooter},
                  [&program, options] { return Confere(program, *options); });
  command
      .add_option("--modulo", options->modules, "Um módulo, cujos documentos foram lidos; pode aparecer várias vezes")
      ->option_text("CÓDIGO")
      ->allow_extra_args(false);
  command
      .add_option("--conteiner", options->containers,
                  "Um contêiner, cujos módulos foram lidos; pode aparecer várias vezes")
      ->option_text("CÓDIGO")
      ->allow_extra_args(false);
  command
      .add_option("--lista", options->list,
                  "O arquivo com os códigos lidos (sem esta opção, ou com -, a entrada padrão)")
      ->option_text("ARQUIVO");
  options->connection.AddTo(command);
  options->output.AddTo(command);
  options->letterhead.AddTo(command);
  options->timeLimit.AddTo(command);
}

}  // namespace kodra::console
