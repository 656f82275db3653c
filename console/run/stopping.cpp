#include "console/run/stopping.h"

namespace kodra::console {

using std::chrono::steady_clock;

Stopping::Stopping(Machine& machine, StopRules rules, std::ostream& errors)
    : rules_(std::move(rules)),
      errors_(errors),
      cancelling_(
          machine,
          [this, begin = steady_clock::now()] {
            if (rules_.limit.count() > 0 && steady_clock::now() - begin >= rules_.limit) timeIsUp_ = true;
            return Requested();
          },
          [this](std::chrono::milliseconds since) {
            if (since >= kPatience) EndProgram();
          }) {}

bool Stopping::Completes(const std::function<void()>& work) const {
  try {
    work();
  } catch (...) {
    if (!Requested()) throw;
  }
  return !Requested();
}

ExitCode Stopping::Outcome() const {
  if (Interruption::Requested()) return Interruption::Code();
  if (isTold_.exchange(true)) return ExitCode::kReportError;
  errors_ << "kodrarpt: " << rules_.message << ": passou do limite de " << rules_.limit.count()
          << (rules_.limit.count() == 1 ? " segundo\n" : " segundos\n") << std::flush;
  return ExitCode::kReportError;
}

void Stopping::EndProgram() const {
  const ExitCode code = Outcome();
  if (rules_.beforeEnd) rules_.beforeEnd(code);
  Interruption::EndNow(code);
}

}  // namespace kodra::console
