// Ends a run when the user asks to stop, or when its time is up.
//
//   Stopping stopping(*machine, limit, errors);
//   while (rows are left) {
//     if (stopping.Requested()) return stopping.Outcome();
//     …
//   }
//
// What the database is doing is stopped at once, so that the statement does not live on in the server. A run that does
// not end within kPatience after that, because ADO, a driver or a long computation cannot be stopped, is ended with the
// whole program, and its unfinished file is removed.
#pragma once

#include <atomic>
#include <chrono>
#include <ostream>

#include "console/run/cancelling.h"
#include "console/run/interruption.h"
#include "console/run/machine.h"

namespace kodra::console {

inline constexpr std::chrono::milliseconds kPatience{600};

class Stopping {
 public:
  // A limit of zero is none. `errors` gets the message about the time. REQUIRES: both outlive the object, which the
  // thread that made the machine uses.
  Stopping(Machine& machine, std::chrono::seconds limit, std::ostream& errors);
  ~Stopping() = default;
  Stopping(const Stopping&) = delete;
  Stopping& operator=(const Stopping&) = delete;

  bool Requested() const { return Interruption::Requested() || timeIsUp_; }
  // The exit code of a run that was asked to stop. Prints the message about the time, once.
  ExitCode Outcome() const;

 private:
  Interruption interruption_;
  std::chrono::seconds limit_;
  std::ostream& errors_;
  std::atomic<bool> timeIsUp_ = false;
  mutable std::atomic<bool> isTold_ = false;
  Cancelling cancelling_;
};

}  // namespace kodra::console
