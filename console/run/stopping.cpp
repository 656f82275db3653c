#include "console/run/stopping.h"

namespace kodra::console {

using std::chrono::steady_clock;

Stopping::Stopping(Machine& machine, std::chrono::seconds limit, std::ostream& errors)
    : limit_(limit),
      errors_(errors),
      cancelling_(
          machine,
          [this, begin = steady_clock::now()] {
            if (limit_.count() > 0 && steady_clock::now() - begin >= limit_) timeIsUp_ = true;
            return Requested();
          },
          [this](std::chrono::milliseconds since) {
            if (since >= kPatience) Interruption::EndNow(Outcome());
          }) {}

ExitCode Stopping::Outcome() const {
  if (Interruption::Requested()) return Interruption::Code();
  if (isTold_.exchange(true)) return ExitCode::kReportError;
  errors_ << "kodrarpt: o relatório foi interrompido: passou do limite de " << limit_.count()
          << (limit_.count() == 1 ? " segundo\n" : " segundos\n") << std::flush;
  return ExitCode::kReportError;
}

}  // namespace kodra::console
