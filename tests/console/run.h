// One run of the program: what it writes and how it ends.
#pragma once

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "console/commands/commands.h"

namespace kodra::console {

struct Ran {
  ExitCode code;
  std::string out;
  std::string err;
  bool operator==(const Ran&) const = default;
};

inline void PrintTo(const Ran& ran, std::ostream* out) {
  *out << "code " << static_cast<int>(ran.code) << "\n--- out\n" << ran.out << "--- err\n" << ran.err;
}

inline Ran RunOf(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  AddCommands(program);
  const ExitCode code = program.Run(arguments);
  return {code, out.str(), err.str()};
}

// A run that ends with a complaint about the command line.
inline Ran Misused(const std::string& complaint) { return {ExitCode::kUsage, "", "kodrarpt: " + complaint + "\n"}; }

}  // namespace kodra::console
