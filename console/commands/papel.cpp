// kodrarpt papel: prints a paper for the counter or the shelves.
#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "console/command_line/parameters.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/papers/paper_print.h"
#include "console/run/connection_options.h"
#include "console/run/output_run.h"
#include "console/run/time_limit.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using papers::Paper;
using values::FromUtf8;
using values::ToUtf8;

std::string Footer() {
  std::string footer = "Os papéis e o que informar:\n";
  for (const Paper& paper : papers::Papers())
    footer += fmt::format("  {:<10} {:<13} {}\n", paper.name, paper.subject.empty() ? "" : "--" + ToUtf8(paper.subject),
                          paper.purpose);
  return footer +
         "Em originais, --ListarJaDevolvidos sim inclui os devolvidos.\n"
         "\n"
         "Exemplo:\n"
         "  kodrarpt papel retirada --conexao \"DSN=Acervo\" --CodSolicit 17 --orgao \"Arquivo Público\" --saida "
         "comprovante.pdf";
}

struct Options {
  std::string paper;
  ConnectionOptions connection;
  ReportParameters parameters;
  std::string format = "pdf";
  std::string target;
  pages::LetterheadOptions letterhead;
  TimeLimit timeLimit;
};

ExitCode Papel(Program& program, const Options& options) {
  const Paper& paper = papers::PaperNamed(options.paper);
  const pages::PageFormat format = pages::PageFormatNamed(options.format);
  const papers::PaperPrint print(paper, options.parameters.Given(),
                                 [&](const reports::ReportMethod& method) { return options.parameters.For(method); });
  options.parameters.RefuseUnread(*reports::FindReportMethod(paper.className, paper.method));
  const pages::Letterhead letterhead = options.letterhead.Get();
  if (format == pages::PageFormat::kPdf && options.target.empty()) throw UsageError("o formato pdf precisa de --saida");
  // Last, because it may ask for a password.
  const std::wstring connection = options.connection.Text();
  return RunToOutput(program, {FromUtf8(options.target), {.limit = options.timeLimit.Get()}}, [&](OutputRun& run) {
    print.Write(run.machine.Around(), connection, letterhead, format, run.output);
    return true;
  });
}

}  // namespace

void AddPapel(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add({"papel", "Imprime um papel do arquivo, como o comprovante de retirada", Footer()},
                                  [&program, options] { return Papel(program, *options); });
  std::string names;
  for (const Paper& paper : papers::Papers()) names.append(names.empty() ? "" : ", ").append(paper.name);
  command.add_option("PAPEL", options->paper, names)->option_text(" ")->required();
  options->connection.AddTo(command);
  command.add_option("--formato", options->format, "pdf ou html (sem esta opção, pdf)")->option_text("FORMATO");
  command.add_option("--saida", options->target, "O arquivo a gravar; em html, sem esta opção, a saída padrão")
      ->option_text("ARQUIVO");
  options->letterhead.AddTo(command);
  options->timeLimit.AddTo(command);
  options->parameters.AddTo(command);
}

}  // namespace kodra::console
