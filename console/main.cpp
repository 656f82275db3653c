// kodrarpt: the reports of the archive on a console.
#include <iostream>

#include "console/command_line/console.h"
#include "console/command_line/program.h"
#include "console/commands/commands.h"
#include "console/run/standard_streams.h"

int main(int argc, char** argv) {
  kodra::console::OccupyClosedStreams();
  const kodra::console::Utf8Console console;
  kodra::console::Program program(std::cout, std::cerr);
  kodra::console::AddCommands(program);
  const auto code = program.Run(kodra::console::Arguments(argc, argv));
  std::cout.flush();
  return static_cast<int>(std::cout ? code : kodra::console::ExitCode::kOutput);
}
