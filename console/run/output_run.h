// What the commands share that run reports and write a file: the file appears only when it is complete, and a request
// to stop, or the time limit, ends the run.
//
//   return RunToOutput(program, {.target = L"acervo.csv"}, [&](OutputRun& run) {
//     frame::ReportRows rows = OpenReport(method, connection, parameters, run.machine.Around());
//     while (rows are left && !run.stopping.Requested()) run.output.Write(…);
//     return true;
//   });
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "console/command_line/program.h"
#include "console/formats/output.h"
#include "console/run/machine.h"
#include "console/run/stopping.h"

namespace kodra::console {

struct Destination {
  std::wstring target;  // the file; empty for the standard output
  StopRules stop;       // of the whole run
  bool isJson = false;  // how a terminal gets control characters: escaped, or else replaced
};

// What the work of a run gets.
struct OutputRun {
  Machine& machine;
  Output& output;     // without control characters if it is a terminal
  std::wstring path;  // of the unfinished file, for a library that opens it by its path; empty for the standard output
  std::optional<std::size_t> terminalWidth;  // if the output is a terminal
  const Stopping& stopping;
};

// Runs `work`, which returns whether there is something to keep; the file then gets its name. A run that was asked to
// stop keeps nothing: the work may return early then, and what it raises is no error. Returns the exit code of the run.
// Raises what the work raises, and FileError before the work starts if the file cannot be written.
ExitCode RunToOutput(Program& program, const Destination& destination, const std::function<bool(OutputRun&)>& work);

}  // namespace kodra::console
