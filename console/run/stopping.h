// Ends a run when the user asks to stop, or when its time is up.
//
//   Stopping stopping(*machine, {.limit = limit}, errors);
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
#include <functional>
#include <ostream>
#include <string>

#include "console/run/cancelling.h"
#include "console/run/interruption.h"
#include "console/run/machine.h"

namespace kodra::console {

inline constexpr std::chrono::milliseconds kPatience{600};

// How long a run may take, and what happens when it takes longer.
struct StopRules {
  std::chrono::seconds limit{0};  // zero is none
  // Begins the message about the time.
  std::string message = "o relatório foi interrompido";
  // Called by another thread before it ends the whole program with this exit code, while the run waits.
  std::function<void(ExitCode)> beforeEnd = {};
};

class Stopping {
 public:
  // `errors` gets the message about the time. REQUIRES: the machine and `errors` outlive the object, which the thread
  // that made the machine uses.
  Stopping(Machine& machine, StopRules rules, std::ostream& errors);
  ~Stopping() = default;
  Stopping(const Stopping&) = delete;
  Stopping& operator=(const Stopping&) = delete;

  bool Requested() const { return Interruption::Requested() || timeIsUp_; }
  // Does the work, and returns whether it was done without a request to stop. What it raises after such a request is
  // no error, because the work was stopped.
  bool Completes(const std::function<void()>& work) const;
  // The exit code of a run that was asked to stop. Prints the message about the time, once.
  ExitCode Outcome() const;

 private:
  [[noreturn]] void EndProgram() const;

  Interruption interruption_;
  StopRules rules_;
  std::ostream& errors_;
  std::atomic<bool> timeIsUp_ = false;
  mutable std::atomic<bool> isTold_ = false;
  Cancelling cancelling_;
};

}  // namespace kodra::console
