#include "console/run/output_run.h"

#include <optional>

#include "console/command_line/console.h"
#include "console/run/standard_streams.h"
#include "console/run/stream_output.h"
#include "console/run/target_file.h"
#include "console/run/terminal_output.h"

namespace kodra::console {

ExitCode RunToOutput(Program& program, const Destination& destination, const std::function<bool(OutputRun&)>& work) {
  // Created before the reports run: an error in the path must show now and not an hour later.
  std::optional<TargetFile> file;
  if (!destination.target.empty()) file.emplace(destination.target);
  StreamOutput standard(program.Out());
  TerminalOutput terminal(standard, destination.isJson);
  const bool isTerminal = !file && IsTerminal(program.Out());
  Output* output = &standard;
  if (file) output = &*file;
  if (isTerminal) output = &terminal;
  const std::unique_ptr<Machine> machine = NewMachine();
  const Stopping stopping(*machine, destination.stop, program.Err());
  OutputRun run = {*machine, *output, file ? file->PathText() : std::wstring(),
                   isTerminal ? TerminalWidth() : std::nullopt, stopping};
  bool keeps = false;
  if (!stopping.Completes([&] { keeps = work(run); })) return stopping.Outcome();
  if (file && keeps) file->Commit();
  standard.Flush();
  return ExitCode::kOk;
}

}  // namespace kodra::console
