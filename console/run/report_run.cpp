#include "console/run/report_run.h"

#include <CLI/CLI.hpp>

#include "console/command_line/console.h"
#include "console/command_line/report_name.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/reports/guide.h"
#include "console/run/open_report.h"
#include "console/run/report_task.h"
#include "console/run/row_source.h"
#include "console/run/stream_output.h"
#include "console/run/unknown_codes.h"
#include "console/run/waiting.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

FormatOptions FormatOptionsOf(const ReportOptions& options) {
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

}  // namespace

void ReportOptions::AddTo(CLI::App& command) {
  output.AddTo(command);
  letterhead.AddTo(command);
  labels.AddTo(command, "etiquetas: ");
  timeLimit.AddTo(command);
  command.add_option("--progresso", progress, "sempre, nunca ou auto (o padrão: só em um terminal)")
      ->option_text("QUANDO");
  parameters.AddTo(command);
}

ReportRun::ReportRun(Program& program, const ReportOptions& options)
    : program_(program),
      origin_(options.origin),
      method_(FindReport(options.report)),
      parameters_(options.parameters.For(method_)),
      format_(options.output.ChosenFormat()),
      formatOptions_(FormatOptionsOf(options)),
      mostRows_(options.output.MostRows()),
      progressStyle_(ProgressStyle(options.progress)),
      destination_{options.output.Target(), {.limit = options.timeLimit.Get()}, format_ == Format::kJson} {
  destination_.stop.message = origin_ + destination_.stop.message;
  options.parameters.RefuseUnread(method_);
  if (options.progress == "sempre" && format_ == Format::kTable && destination_.target.empty() &&
      IsTerminal(program.Out()))
    throw UsageError("--progresso sempre não vale com uma tabela em um terminal, que já mostra as linhas");
  const guide::Report& about = guide::About(method_);
  if (!about.page.IsOfLabels()) options.labels.RefuseFor(NameOf(method_));
  heading_ = {std::wstring(method_.className), std::wstring(method_.method), values::FromUtf8(about.purpose),
              options.parameters.Given()};
  // As the report reads them: "1/2/2024" is 01/02/2024, and "s" is Sim.
  for (auto& [name, text] : heading_.parameters) text = BrazilianText(parameters_.Get(name), ColumnKind::kText);
  formatOptions_.html.labels.print.warn = [this](const std::string& warning) { Warn(warning); };
}

ExitCode ReportRun::Execute(const std::wstring& connection, std::function<void(ExitCode)> beforeEnd) {
  destination_.stop.beforeEnd = std::move(beforeEnd);
  return RunToOutput(program_, destination_, [&](OutputRun& run) { return Write(run, connection); });
}

bool ReportRun::Write(OutputRun& run, const std::wstring& connection) {
  if (const std::string warning = ReportParameters::PeriodWarning(parameters_, method_); !warning.empty())
    Warn(warning);
  platform::Surroundings& surroundings = run.machine.Around();
  formatOptions_.html.labels.containerModules = [&] {
    return ModulesOfContainers(parameters_, surroundings, connection);
  };
  formatOptions_.terminalWidth = run.terminalWidth;
  const auto writer = NewWriter(format_, formatOptions_, run.output, run.path);
  StreamOutput errors(program_.Err());
  // On a terminal, the rows of a table are their own progress.
  const bool rowsAreSeen = format_ == Format::kTable && run.terminalWidth;
  Progress progress(errors, rowsAreSeen ? Progress::Style::kNone : progressStyle_, SteadySeconds);
  Waiting waiting(errors, progressStyle_);
  RowSource source(OpenReport(method_, connection, parameters_, surroundings), method_);
  waiting.End();
  writer->Begin(heading_, source.Columns());
  std::vector<Value> values;
  while (progress.Rows() < mostRows_ && source.Next(values)) {
    if (run.stopping.Requested()) return false;
    writer->Row(values);
    progress.Row();
  }
  writer->End();
  rows_ = progress.Rows();
  if (run.stopping.Requested()) return true;
  progress.End();
  for (const UnknownCode& code : UnknownCodes(parameters_, rows_, method_, connection, surroundings))
    Warn(code.words + ", de --" + std::string(code.parameter));
  return true;
}

void ReportRun::Warn(const std::string& warning) const { program_.Say(origin_ + "aviso: " + warning); }

}  // namespace kodra::console
