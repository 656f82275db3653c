// One run of a report, from its options to the written rows: what `executa` does once, and `rotina` for each output.
//
//   ReportOptions options;
//   options.AddTo(command);                        // before the command line is read
//   ReportRun run(program, options);               // in the command
//   const ExitCode code = run.Execute(connectionString);
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "console/command_line/parameters.h"
#include "console/command_line/program.h"
#include "console/formats/labels/label_arguments.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/run/output_options.h"
#include "console/run/output_run.h"
#include "console/run/progress.h"
#include "console/run/time_limit.h"

namespace kodra::console {

// The options as typed.
struct ReportOptions {
  // Adds all options but the report.
  void AddTo(CLI::App& command);

  std::string report;
  ReportParameters parameters;
  OutputOptions output;
  labels::LabelArguments labels;
  pages::LetterheadOptions letterhead;
  TimeLimit timeLimit;
  std::string progress = "auto";
  // Begins the messages, if there are several runs: "[documentos] ".
  std::string origin;
};

class ReportRun {
 public:
  // Raises UsageError for options that are wrong, and FileError for a file of theirs that cannot be read, before
  // anything is connected or written. REQUIRES: the program outlives the object.
  ReportRun(Program& program, const ReportOptions& options);
  ReportRun(const ReportRun&) = delete;
  ReportRun& operator=(const ReportRun&) = delete;

  // Runs the report and writes its rows. `beforeEnd` is that of StopRules. Raises what RunToOutput and the report
  // raise.
  ExitCode Execute(const std::wstring& connection, std::function<void(ExitCode)> beforeEnd = {});

  // The rows that Execute has written.
  std::uint64_t Rows() const { return rows_; }

 private:
  bool Write(OutputRun& run, const std::wstring& connection);
  void Warn(const std::string& warning) const;

  Program& program_;
  std::string origin_;
  const reports::ReportMethod& method_;
  frame::ParameterObject parameters_;
  Format format_;
  FormatOptions formatOptions_;
  std::uint64_t mostRows_;
  Progress::Style progressStyle_;
  Destination destination_;
  Heading heading_;
  std::uint64_t rows_ = 0;
};

}  // namespace kodra::console
