// Ctrl-C and the other requests to stop (SIGINT and SIGTERM; SIGHUP on Linux, SIGBREAK on Windows).
//
//   Interruption interruption;
//   while (rows are left) {
//     if (interruption.Requested()) return interruption.Code();
//     …
//   }
//
// The first request is only recorded. A second one ends the program at once. One object at a time; its destructor
// restores the previous signal handlers.
#pragma once

#include <filesystem>

#include "console/command_line/exit_codes.h"

namespace kodra::console {

class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static bool Requested() noexcept;
  // The exit code that shells expect after the request: 128 and the signal's number.
  static ExitCode Code() noexcept;
  // Removes the unfinished file that RemoveAtOnce named, and ends the program. Called by any thread. On Windows it
  // waits, for ten seconds at most, while the file is open without being shared for deletion.
  [[noreturn]] static void EndNow(ExitCode code) noexcept;
  // Names the unfinished file that EndNow and a second request remove; empty for none. A path that is longer than the
  // system allows is ignored.
  static void RemoveAtOnce(const std::filesystem::path& path) noexcept;
};

}  // namespace kodra::console
