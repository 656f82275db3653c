#include "console/routines/routine_run.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/columns.h"
#include "console/command_line/console.h"
#include "console/command_line/file_error.h"
#include "console/command_line/path_text.h"
#include "console/command_line/system_reason.h"
#include "console/command_line/terminal_text.h"
#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console::routines {
namespace {

namespace fs = std::filesystem;
using values::FromUtf8;
using values::ToUtf8;

// A failure in a few words; the whole message is shown when it happens.
std::string ShortWords(const Failure& failure) {
  if (failure.code == ExitCode::kConnection) return "não foi possível conectar ao banco de dados";
  if (failure.code == ExitCode::kReportError) return "o relatório deu erro";
  return failure.message;
}

// Why an output was stopped, from the exit code of its run.
std::string StoppedWords(ExitCode code) {
  return code == ExitCode::kReportError ? "passou do tempo limite" : "interrompida";
}

void MakeFolderOf(const fs::path& file) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (error)
    throw FileError(L"não foi possível criar a pasta \"" + FromUtf8(TextOf(file.parent_path())) + L"\": " +
                    SystemReason(error) + L".");
}

// "12,3".
std::string SecondsText(double seconds) {
  std::string text = fmt::format("{:.1f}", seconds);
  std::ranges::replace(text, '.', ',');
  return text;
}

std::string PaddedLeft(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, Width(text)), ' ') + text;
}

}  // namespace

ExitCode RoutineRun::Execute() {
  ExitCode code = ExitCode::kOk;
  for (const auto& output : routine_.outputs) {
    const ExitCode ofOutput = Write(*output, outcomes_[output->name]);
    if (ofOutput == ExitCode::kInterrupted || ofOutput == ExitCode::kTerminated) {
      code = ofOutput;
      break;
    }
    if (ofOutput != ExitCode::kOk) code = ExitCode::kReportError;
  }
  ShowSummary();
  return code;
}

ExitCode RoutineRun::Write(const RoutineOutput& output, Outcome& outcome) {
  if (StandardErrorIsTerminal())
    program_.Err() << fmt::format("kodrarpt: [{}] {} de {}\n", output.name, outcomes_.size(), routine_.outputs.size());
  const double start = SteadySeconds();
  ExitCode code = ExitCode::kOk;
  try {
    MakeFolderOf(output.file);
    ReportRun run(program_, output.options);
    // Another thread calls this, while Execute waits: nothing else writes the outcomes then.
    code = run.Execute(connections_.at(output.profile), [&](ExitCode ending) {
      outcome.words = StoppedWords(ending);
      outcome.seconds = SecondsText(SteadySeconds() - start);
      ShowSummary();
    });
    if (code == ExitCode::kOk) {
      outcome.isWritten = true;
      outcome.rows = ToUtf8(CountText(run.Rows()));
      outcome.words = TextOf(output.file);
    } else {
      outcome.words = StoppedWords(code);
    }
  } catch (...) {
    const Failure failure = CurrentFailure(program_.WantsDetails());
    program_.Err() << ForTerminal(fmt::format("kodrarpt: [{}] {}\n", output.name, failure.message));
    outcome.words = ShortWords(failure);
    code = failure.code;
  }
  outcome.seconds = SecondsText(SteadySeconds() - start);
  return code;
}

void RoutineRun::ShowSummary() {
  std::size_t width = Width("saída");
  for (const auto& output : routine_.outputs) width = std::max(width, Width(output->name));
  const auto line = [&](const std::string& name, const std::string& rows, const std::string& seconds,
                        const std::string& words) {
    constexpr std::size_t kRows = 10;
    constexpr std::size_t kSeconds = 8;
    return Padded(name, width) + "  " + PaddedLeft(rows, kRows) + "  " + PaddedLeft(seconds, kSeconds) + "  " + words +
           "\n";
  };
  std::string text = line("saída", "linhas", "segundos", "resultado");
  std::size_t written = 0;
  for (const auto& output : routine_.outputs) {
    const Outcome& outcome = outcomes_[output->name];
    text += line(output->name, outcome.rows, outcome.seconds, outcome.words);
    if (outcome.isWritten) ++written;
  }
  program_.Out() << ForTerminal(text) << fmt::format("{} de {} gravadas\n", written, routine_.outputs.size())
                 << std::flush;
}

}  // namespace kodra::console::routines
