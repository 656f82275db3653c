// Ctrl-C and the other polite requests to stop (SIGINT, SIGTERM, on Linux SIGHUP).
//
//   Interruption interruption;
//   while (rows are left) {
//     if (interruption.Requested()) return ExitCode::kInterrupted;
//     …
//   }
//
// The first request is only noted. A second one ends the program at once, as a database may not answer for
// long, but not before the file named by RemoveAtOnce is gone. One object at a time; it puts the former answers back.
#pragma once

#include <string>

namespace kodra::console {

class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static bool Requested() noexcept;
  // The unfinished file that a second request removes; empty for none. Paths longer than the system's longest are
  // ignored. On Windows an open file cannot be removed, and stays.
  static void RemoveAtOnce(const std::string& path) noexcept;
};

}  // namespace kodra::console
