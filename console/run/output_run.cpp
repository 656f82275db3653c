#include "console/run/output_run.h"

#include <iostream>
#include <optional>

#include "console/run/standard_streams.h"
#include "console/run/stream_output.h"
#include "console/run/target_file.h"

namespace kodra::console {

ExitCode RunToOutput(Program& program, const Destination& destination, const std::function<bool(OutputRun&)>& work) {
  // Created before the reports run: an error in the path must show now and not an hour later.
  std::optional<TargetFile> file;
  if (!destination.target.empty()) file.emplace(destination.target);
  StreamOutput standard(program.Out());
  const std::unique_ptr<Machine> machine = NewMachine();
  const Stopping stopping(*machine, destination.limit, program.Err());
  // A program within another process, as in a test, has its own stream.
  const bool isProcess = &program.Out() == &std::cout;
  OutputRun run = {*machine, file ? static_cast<Output&>(*file) : standard, file ? file->PathText() : std::wstring(),
                   file || !isProcess ? std::nullopt : TerminalWidth(), stopping};
  bool keeps = false;
  try {
    keeps = work(run);
  } catch (...) {
    if (!stopping.Requested()) throw;
  }
  if (stopping.Requested()) return stopping.Outcome();
  if (file && keeps) file->Commit();
  standard.Flush();
  return ExitCode::kOk;
}

}  // namespace kodra::console
