// kodrarpt papel: prints a paper for the counter or the shelves.
#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "console/command_line/parameters.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/formats/html/html_printout.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/formats/pages/paged_printout.h"
#include "console/formats/pages/pdf_canvas.h"
#include "console/papers/papers.h"
#include "console/run/connection_options.h"
#include "console/run/open_report.h"
#include "console/run/output_run.h"
#include "console/run/row_source.h"
#include "console/run/time_limit.h"
#include "values/dates.h"
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
         "guia.pdf";
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

// The paper's main parameter as typed. Raises UsageError if it is missing.
std::wstring SubjectOf(const Paper& paper, const ReportParameters& parameters) {
  for (const auto& [name, value] : parameters.Given()) {
    if (name == paper.subject && !value.empty()) return value;
  }
  if (paper.subject.empty()) return {};
  throw UsageError(fmt::format("o papel {} precisa de --{}", paper.name, ToUtf8(paper.subject)));
}

bool IsPdf(const std::string& format) {
  const std::string folded = Folded(format);
  if (folded != "pdf" && folded != "html")
    throw UsageError(fmt::format("um papel não sai no formato \"{}\"{}; escolha entre pdf, html", format,
                                 DidYouMean(folded, {"pdf", "html"})));
  return folded == "pdf";
}

// One paper, from its options to the written file.
class Run {
 public:
  Run(Program& program, const Options& options)
      : program_(program),
        options_(options),
        paper_(papers::PaperNamed(options.paper)),
        isPdf_(IsPdf(options.format)),
        subject_(SubjectOf(paper_, options.parameters)),
        destination_{FromUtf8(options.target), {.limit = options.timeLimit.Get()}},
        letterhead_(options.letterhead.Get()) {
    // Checks the parameters before a file is made.
    const reports::ReportMethod& method = *reports::FindReportMethod(paper_.className, paper_.method);
    options.parameters.For(method);
    options.parameters.RefuseUnread(method);
    if (isPdf_ && options.target.empty()) throw UsageError("o formato pdf precisa de --saida");
    // Last, because it may ask for a password.
    connection_ = options.connection.Text();
  }

  ExitCode Execute() {
    return RunToOutput(program_, destination_, [this](OutputRun& run) {
      Print(run);
      return true;
    });
  }

 private:
  void Print(OutputRun& run) {
    const papers::Source source = {[&](std::wstring_view className, std::wstring_view method) {
                                     return Read(*reports::FindReportMethod(className, method), run);
                                   },
                                   subject_, values::Today()};
    if (isPdf_) {
      pages::PdfCanvas canvas(run.output, FromUtf8(paper_.purpose));
      pages::PagedPrintout printout(canvas, letterhead_);
      paper_.print(source, printout);
    } else {
      html::HtmlPrintout printout(run.output, letterhead_);
      paper_.print(source, printout);
    }
  }

  papers::ReportTable Read(const reports::ReportMethod& method, OutputRun& run) {
    frame::ParameterObject parameters = options_.parameters.For(method);
    RowSource source(OpenReport(method, connection_, parameters, run.machine.Around()), method);
    papers::ReportTable table = {source.Columns(), {}};
    for (std::vector<Value> values; source.Next(values);) table.rows.push_back(values);
    return table;
  }

  Program& program_;
  const Options& options_;
  const Paper& paper_;
  bool isPdf_;
  std::wstring subject_, connection_;
  Destination destination_;
  pages::Letterhead letterhead_;
};

}  // namespace

void AddPapel(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add({"papel", "Imprime um papel do arquivo, como o comprovante de retirada", Footer()},
                                  [&program, options] { return Run(program, *options).Execute(); });
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
