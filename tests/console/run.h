// Runs the program and returns what it writes and its exit code.
#pragma once

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "console/commands/commands.h"

namespace kodra::console {

struct RunResult {
  ExitCode code;
  std::string out;
  std::string err;
  bool operator==(const RunResult&) const = default;
};

inline void PrintTo(const RunResult& result, std::ostream* out) {
  *out << "code " << static_cast<int>(result.code) << "\n--- out\n" << result.out << "--- err\n" << result.err;
}

inline RunResult RunProgram(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  const ExitCode code = program.Run(arguments);
  return {code, out.str(), err.str()};
}

// The result of a run that succeeds.
inline RunResult Success(const std::string& out, const std::string& err = "") { return {ExitCode::kOk, out, err}; }

// The result of a run that cannot read or write a file.
inline RunResult FileFailure(const std::string& message) {
  return {ExitCode::kFile, "", "kodrarpt: " + message + "\n"};
}

// The result of a run whose command line is wrong.
inline RunResult UsageFailure(const std::string& message) {
  return {ExitCode::kUsage, "", "kodrarpt: " + message + "\n"};
}

}  // namespace kodra::console
