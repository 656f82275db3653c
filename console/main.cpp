// kodrarpt: the reports of the archive on a console.
#include <cerrno>
#include <iostream>

#include "console/command_line/console.h"
#include "console/command_line/file_error.h"
#include "console/command_line/program.h"
#include "console/commands/commands.h"
#include "console/run/standard_streams.h"

int main(int argc, char** argv) {
  kodra::console::OccupyClosedStreams();
  const kodra::console::Utf8Console console;
  kodra::console::Program program(std::cout, std::cerr);
  kodra::console::AddCommands(program);
  auto code = program.Run(kodra::console::Arguments(argc, argv));
  // After a write that failed during the run, errno still has its reason: nothing is written any more.
  if (std::cout) errno = 0;
  std::cout.flush();
  if (!std::cout && code == kodra::console::ExitCode::kOk) {
    std::cerr << "kodrarpt: " << kodra::console::StandardOutputError().what() << "\n";
    code = kodra::console::ExitCode::kFile;
  }
  return static_cast<int>(code);
}
