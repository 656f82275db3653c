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
  auto code = program.Run(kodra::console::Arguments(argc, argv));
  std::cout.flush();
  if (!std::cout && code == kodra::console::ExitCode::kOk) {
    std::cerr << "kodrarpt: não foi possível gravar a saída.\n";
    code = kodra::console::ExitCode::kOutput;
  }
  return static_cast<int>(code);
}
