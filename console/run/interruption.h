// Ctrl-C and the other requests to stop (SIGINT and SIGTERM; SIGHUP on Linux, SIGBREAK on Windows).
//
//   Interruption interruption;
//   while (rows are left) {
//     if (interruption.Requested()) return ExitCode::kInterrupted;
//     …
//   }
//
// The first request is only recorded. A second one removes the file that RemoveAtOnce named and ends the program at
// once, because a database may take long to answer. One object at a time; its destructor restores the previous signal
// handlers.
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
  // Names the unfinished file that a second request removes; empty for none. A path that is longer than the system
  // allows is ignored. Windows cannot remove an open file, so it stays there.
  static void RemoveAtOnce(const std::string& path) noexcept;
};

}  // namespace kodra::console
