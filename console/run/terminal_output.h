// An Output to a terminal, which could take control characters from a database for commands.
#pragma once

#include "console/command_line/terminal_text.h"
#include "console/formats/output.h"

namespace kodra::console {

class TerminalOutput final : public Output {
 public:
  // REQUIRES: the terminal outlives the object. No character is divided between two calls of Write.
  TerminalOutput(Output& terminal, bool isJson) : terminal_(terminal), isJson_(isJson) {}

  void Write(std::string_view bytes) override {
    terminal_.Write(isJson_ ? JsonForTerminal(bytes) : ForTerminal(bytes));
  }

 private:
  Output& terminal_;
  bool isJson_;
};

}  // namespace kodra::console
