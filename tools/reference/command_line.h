// The completion of kodrarpt in bash, and its manual page, from its commands and their options.
#pragma once

#include <string>
#include <vector>

#include "console/command_line/program.h"

namespace kodra::console::reference {

// The values of an option or argument whose description lists them, as in "pdf ou html (sem esta opção, pdf)" or "html:
// a folha: a4-2x4, carta-2x5"; otherwise empty.
std::vector<std::string> ValuesIn(const std::string& description);

// A script that bash reads: it completes commands, options, reports, the parameters of a report's class, the values of
// an option and the names of files. REQUIRES: the program has its commands.
std::string BashCompletion(const Program& program);

// The manual page, for man. REQUIRES: the program has its commands.
std::string ManPage(const Program& program);

}  // namespace kodra::console::reference
