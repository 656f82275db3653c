#include "console/run/stopping.h"

namespace kodra::console {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kInterval{50};

}  // namespace

Stopping::Stopping(Machine& machine, std::chrono::seconds limit, std::ostream& errors)
    : machine_(machine), limit_(limit), errors_(errors), watcher_([this](const std::stop_token& end) { Watch(end); }) {}

void Stopping::Watch(const std::stop_token& end) {
  const auto begin = steady_clock::now();
  while (!end.stop_requested() && !Requested()) {
    std::this_thread::sleep_for(kInterval);
    if (limit_.count() > 0 && steady_clock::now() - begin >= limit_) timeIsUp_ = true;
  }
  const auto asked = steady_clock::now();
  while (!end.stop_requested()) {
    machine_.Cancel();
    if (steady_clock::now() - asked >= kPatience) Interruption::EndNow(Outcome());
    std::this_thread::sleep_for(kInterval);
  }
}

ExitCode Stopping::Outcome() const {
  if (Interruption::Requested()) return Interruption::Code();
  if (isTold_.exchange(true)) return ExitCode::kReportError;
  errors_ << "kodrarpt: o relatório foi interrompido: passou do limite de " << limit_.count()
          << (limit_.count() == 1 ? " segundo\n" : " segundos\n") << std::flush;
  return ExitCode::kReportError;
}

}  // namespace kodra::console
