// A routine: a file that says which reports to write to which files.
//
//   [rotina]
//   perfil = acervo
//   pasta = saidas/{ano}
//
//   [documentos do mês]
//   relatorio = CDocumentoRpt.RelatorioSintetico
//   periodo = mês passado
//   arquivo = documentos-{periodo}.csv
//   excel = sim
//
// Each section but [rotina] is an output. Its keys are relatorio, arquivo, periodo, perfil, the report's parameters,
// and the options of `executa` without their hyphens.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "console/run/report_run.h"

namespace kodra::console::routines {

// One output: what it writes, from which database.
class RoutineOutput {
 public:
  RoutineOutput();
  ~RoutineOutput();
  RoutineOutput(const RoutineOutput&) = delete;
  RoutineOutput& operator=(const RoutineOutput&) = delete;

  std::string name;     // of its section
  std::string profile;  // empty if the routine has a connection string instead
  std::filesystem::path file;
  ReportOptions options;

 private:
  friend class RoutineReader;
  std::unique_ptr<CLI::App> app_;  // has read the options
};

struct Routine {
  // In the order of the file.
  std::vector<std::unique_ptr<RoutineOutput>> outputs;
  // What is wrong with the file, in messages that begin with the section; the routine runs only without any.
  std::vector<std::string> problems;
  // Whether an output uses the usual profile of its surroundings.
  bool usesUsualProfile = false;
};

// What a routine needs to know besides its file.
struct RoutineSurroundings {
  // The profile of the command line, which replaces those of the file; empty for none.
  std::string chosenProfile = {};
  // The profile of outputs for which neither the command line nor the file names one; empty for none.
  std::string usualProfile = {};
  // Whether the command line has a connection string, so that no profile counts.
  bool hasConnection = false;
  // The number of the day.
  std::int32_t today = 0;
};

// Reads a routine; relative paths in it begin in the folder of its file. Raises FileError if the file cannot be
// read, and UsageError if it is no INI file. REQUIRES: the program outlives the routine.
Routine ReadRoutine(Program& program, const std::filesystem::path& file, const RoutineSurroundings& surroundings);

}  // namespace kodra::console::routines
