// The exit codes of kodrarpt, for scripts that call it. The program's help lists the same codes.
#pragma once

namespace kodra::console {

enum class ExitCode {
  kOk = 0,
  kReportError = 1,    // a report, or the database behind it, failed; etiquetas: a code has no label
  kUsage = 2,          // the command line is wrong
  kConnection = 3,     // the database cannot be reached or refuses the user
  kMismatch = 4,       // verifica: something keeps a report from working; confere: something is not in its place;
                       // perfil testa: the reports have no dialect for the database
  kFile = 5,           // a file cannot be read or written
  kInterrupted = 130,  // Ctrl-C or another request to stop; shells use the same codes
  kTerminated = 143,   // SIGTERM
};

}  // namespace kodra::console
