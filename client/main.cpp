// kodrarpt: the reports of the archive on a console.
#include <iostream>

#include "client/commands/commands.h"
#include "client/console.h"
#include "client/program.h"

int main(int count, char** values) {
  const kodra::client::Utf8Console console;
  kodra::client::Program program(std::cout, std::cerr);
  kodra::client::AddCommands(program);
  const auto code = program.Run(kodra::client::Arguments(count, values));
  std::cout.flush();
  return static_cast<int>(std::cout ? code : kodra::client::ExitCode::kOutput);
}
