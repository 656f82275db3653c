// The panel as a program: from its address on the console to its end.
#pragma once

#include "console/command_line/program.h"
#include "console/panel/panel.h"

namespace kodra::console::panel {

struct ServeOptions {
  PanelOptions panel;
  bool opensBrowser = true;
  std::chrono::seconds idle{30 * 60};  // the panel ends after so long without a request
};

// Prints the panel's address and serves it until Ctrl-C, or until nobody has used it for a while. Raises UsageError for
// a port that another program has.
ExitCode Serve(const Program& program, const ServeOptions& options);

}  // namespace kodra::console::panel
