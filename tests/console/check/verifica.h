// Runs kodrarpt verifica, for its tests.
#pragma once

#include <map>
#include <sstream>
#include <string>

#include "tests/console/run.h"
#include "values/utf8.h"

namespace kodra::console {

inline RunResult Verifica(const std::wstring& connectionString) {
  return RunProgram({"verifica", "--conexao", values::ToUtf8(connectionString)});
}

// What follows the name of each report in the output.
inline std::map<std::string, std::string> Findings(const std::string& out) {
  std::map<std::string, std::string> findings;
  std::istringstream lines(out);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t end = line.find(' ');
    if (line.empty() || line[0] != 'C' || line.find('.') > end) continue;
    findings[line.substr(0, end)] = line.substr(line.find_first_not_of(' ', end));
  }
  return findings;
}

}  // namespace kodra::console
