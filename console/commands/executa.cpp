// kodrarpt executa: runs a report and writes its rows.
#include <CLI/CLI.hpp>

#include "console/command_line/console.h"
#include "console/command_line/parameters.h"
#include "console/command_line/report_name.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/commands/report_description.h"
#include "console/formats/labels/label_arguments.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/reports/guide.h"
#include "console/run/connection_options.h"
#include "console/run/open_report.h"
#include "console/run/output_options.h"
#include "console/run/output_run.h"
#include "console/run/progress.h"
#include "console/run/row_source.h"
#include "console/run/stream_output.h"
#include "console/run/time_limit.h"
#include "console/run/unknown_codes.h"
#include "console/run/waiting.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;

constexpr const char* kFooter =
    "Em csv e json, as datas são ISO (2023-12-31T10:20:30) e os números têm ponto decimal; em tabela, são como as\n"
    "pessoas os escrevem (31/12/2023 10:20:30 e 1234,5); em xlsx, são datas e números da planilha; html e pdf\n"
    "são páginas A4 para imprimir. O arquivo de --saida só aparece quando está completo; com Ctrl-C ou com um erro, "
    "fica\n"
    "o arquivo que havia antes.\n"
    "\n"
    "\"kodrarpt executa RELATÓRIO --help\" mostra os parâmetros e as colunas do relatório.\n"
    "\n"
    "Exemplo:\n"
    "  KODRARPT_SENHA=… kodrarpt executa CDocumentoRpt.RelatorioSintetico --conexao \"DSN=Acervo;UID=ana\" \\\n"
    "      --DataArmazenamento1 01/01/2024 --DataArmazenamento2 31/12/2024 --formato csv --saida documentos.csv";

// The options of the command, as typed.
struct Options {
  std::string report;
  ConnectionOptions connection;
  ReportParameters parameters;
  OutputOptions output;
  labels::LabelArguments labels;
  pages::LetterheadOptions letterhead;
  TimeLimit timeLimit;
  std::string progress = "auto";
};

FormatOptions FormatOptionsOf(const Options& options) {
  FormatOptions formatOptions = options.output.ForFormats();
  pages::Letterhead& letterhead = formatOptions.html.letterhead = options.letterhead.Get();
  labels::LabelOptions& labels = formatOptions.html.labels;
  labels.print = options.labels.Options();
  labels.print.logo = letterhead.logo;
  labels.organisation = letterhead.organisation;
  return formatOptions;
}

Progress::Style ProgressStyle(const std::string& when) {
  const bool isTerminal = StandardErrorIsTerminal();
  const Progress::Style shown = isTerminal ? Progress::Style::kOneLine : Progress::Style::kOwnLines;
  if (when == "sempre") return shown;
  if (when == "nunca") return Progress::Style::kNone;
  if (when == "auto") return isTerminal ? shown : Progress::Style::kNone;
  throw UsageError("--progresso deve ser sempre, nunca ou auto" + DidYouMean(when, {"sempre", "nunca", "auto"}));
}

void PrintHelpOn(std::ostream& out, const std::string& report) {
  PrintDescription(out, FindReport(report));
  out << "\n\"kodrarpt executa --help\" mostra as outras opções: a conexão, os formatos, as páginas e as etiquetas.\n";
}

// One run of a report, from its options to the written rows.
class Run {
 public:
  Run(Program& program, const Options& options)
      : program_(program),
        method_(FindReport(options.report)),
        parameters_(options.parameters.For(method_)),
        format_(options.output.ChosenFormat()),
        formatOptions_(FormatOptionsOf(options)),
        mostRows_(options.output.MostRows()),
        progressStyle_(ProgressStyle(options.progress)),
        connection_(options.connection.Text()),
        destination_{options.output.Target(), options.timeLimit.Get()} {
    options.parameters.RefuseUnread(method_);
    const guide::Report& about = guide::About(method_);
    if (!about.page.IsOfLabels()) options.labels.RefuseFor(NameOf(method_));
    heading_ = {std::wstring(method_.className), std::wstring(method_.method), FromUtf8(about.purpose),
                options.parameters.Given()};
    // As the report reads them: "1/2/2024" is 01/02/2024, and "s" is Sim.
    for (auto& [name, text] : heading_.parameters) text = BrazilianText(parameters_.Get(name), ColumnKind::kText);
    formatOptions_.html.labels.print.warn = [this](const std::string& warning) {
      program_.Err() << "kodrarpt: aviso: " << warning << "\n";
    };
  }

  ExitCode Execute() {
    return RunToOutput(program_, destination_, [this](OutputRun& run) { return Write(run); });
  }

 private:
  bool Write(OutputRun& run) {
    if (const std::string warning = ReportParameters::PeriodWarning(parameters_, method_); !warning.empty())
      program_.Err() << "kodrarpt: aviso: " << warning << "\n";
    formatOptions_.html.labels.containerModules = [&] { return ModulesOfContainers(run.machine.Around()); };
    formatOptions_.terminalWidth = run.terminalWidth;
    const auto writer = NewWriter(format_, formatOptions_, run.output, run.path);
    StreamOutput errors(program_.Err());
    // On a terminal, the rows of a table are their own progress.
    const bool rowsAreSeen = format_ == Format::kTable && run.terminalWidth;
    Progress progress(errors, rowsAreSeen ? Progress::Style::kNone : progressStyle_, SteadySeconds);
    Waiting waiting(errors, progressStyle_);
    RowSource source(OpenReport(method_, connection_, parameters_, run.machine.Around()), method_);
    waiting.End();
    writer->Begin(heading_, source.Columns());
    std::vector<Value> values;
    while (progress.Rows() < mostRows_ && source.Next(values)) {
      if (run.stopping.Requested()) return false;
      writer->Row(values);
      progress.Row();
    }
    writer->End();
    if (progress.Rows() == 0 && !run.stopping.Requested()) WarnOfUnknownCodes(run);
    if (!run.stopping.Requested()) progress.End();
    return true;
  }

  void WarnOfUnknownCodes(OutputRun& run) {
    for (const std::string& message : UnknownCodes(parameters_, method_, connection_, run.machine.Around()))
      program_.Err() << "kodrarpt: aviso: " << message << "\n";
  }

  // The modules of each requested container, for its label.
  labels::ContainerModules ModulesOfContainers(platform::Surroundings& surroundings) {
    const reports::ReportMethod& modules = *reports::FindReportMethod(L"CContainerRpt", L"EtiquetaAberturaSubRpt");
    RowSource source(modules.call(surroundings, connection_, &parameters_), modules);
    labels::ContainerModules found;
    std::vector<Value> values;
    while (source.Next(values)) {
      const RowReader row(source.Columns(), values);
      found[row.Text("CONTAINER")].push_back(row.Text("NUM_CAIXA"));
    }
    return found;
  }

  Program& program_;
  const reports::ReportMethod& method_;
  frame::ParameterObject parameters_;
  Format format_;
  FormatOptions formatOptions_;
  std::uint64_t mostRows_;
  Progress::Style progressStyle_;
  std::wstring connection_;
  Destination destination_;
  Heading heading_;
};

}  // namespace

void AddExecuta(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add({"executa", "Executa um relatório e grava as suas linhas", kFooter, PrintHelpOn},
                                  [&program, options] { return Run(program, *options).Execute(); });
  command.add_option("RELATÓRIO", options->report, "Classe.Metodo, ou só a classe ou o método")
      ->option_text(" ")
      ->required();
  options->connection.AddTo(command);
  options->output.AddTo(command);
  options->letterhead.AddTo(command);
  options->labels.AddTo(command, "etiquetas: ");
  options->timeLimit.AddTo(command);
  command.add_option("--progresso", options->progress, "sempre, nunca ou auto (o padrão: só em um terminal)")
      ->option_text("QUANDO");
  options->parameters.AddTo(command);
}

}  // namespace kodra::console
