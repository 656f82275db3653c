// Runs the outputs of a routine, one after another.
#pragma once

#include <map>
#include <string>

#include "console/command_line/failure.h"
#include "console/routines/routine.h"

namespace kodra::console::routines {

// The connection strings with their passwords, by profile; that without a profile has an empty name.
using Connections = std::map<std::string, std::wstring>;

class RoutineRun {
 public:
  // REQUIRES: the program and the routine outlive the object; there is a connection for every output.
  RoutineRun(Program& program, const Routine& routine, Connections connections)
      : program_(program), routine_(routine), connections_(std::move(connections)) {}

  // Writes every output, whatever becomes of the others, unless the user asks to stop. Shows the failures when they
  // happen, and a summary at the end, also before an output that nothing else can stop ends the program. Returns kOk if
  // all were written, the code of the request to stop, or otherwise kReportError. Raises nothing of an output.
  ExitCode Execute();

 private:
  // What became of an output.
  struct Outcome {
    bool isWritten = false;
    std::string rows = {}, seconds = {};
    std::string words = "não executada";  // the file, or why there is none
  };

  ExitCode Write(const RoutineOutput& output, Outcome& outcome);
  void ShowSummary();

  Program& program_;
  const Routine& routine_;
  Connections connections_;
  std::map<std::string, Outcome> outcomes_;  // by output
};

}  // namespace kodra::console::routines
