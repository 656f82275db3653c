#include "console/panel/runs.h"

#include "console/run/cancelling.h"

namespace kodra::console::panel {

using std::chrono::steady_clock;

void Runs::Do(const std::string& name, const std::function<bool()>& isGone,
              const std::function<void(Machine&, const Run&)>& work) {
  const std::shared_ptr<Run> run = Enter(name);
  // Leaves its place in every case.
  const std::shared_ptr<void> place(nullptr, [&](void*) {
    const std::lock_guard lock(mutex_);
    runs_.erase(name);
  });
  const std::unique_ptr<Machine> machine = NewMachine();
  const auto begin = steady_clock::now();
  const Cancelling cancelling(*machine, [&] {
    if (limit_.count() > 0 && steady_clock::now() - begin >= limit_) run->end_ = Run::End::kTimeIsUp;
    if (!run->IsOver() && isGone()) run->end_ = Run::End::kCancelled;
    return run->IsOver();
  });
  work(*machine, *run);
}

std::string Runs::DoUnlessStopped(const std::string& name, const std::function<bool()>& isGone,
                                  const std::function<void(Machine&, const Run&)>& work) {
  Run::End why = Run::End::kNone;
  Do(name, isGone, [&](Machine& machine, const Run& run) {
    try {
      work(machine, run);
    } catch (const std::exception&) {
      if (!run.IsOver()) throw;
    }
    why = run.Why();
  });
  if (why == Run::End::kNone) return {};
  if (why == Run::End::kCancelled) return "Cancelado.";
  return "Interrompido: passou do limite de " + std::to_string(limit_.count()) +
         (limit_.count() == 1 ? " segundo." : " segundos.");
}

std::shared_ptr<Run> Runs::Enter(const std::string& name) {
  const std::lock_guard lock(mutex_);
  if (runs_.size() >= kMostRuns) throw TooManyRuns();
  const auto [place, isNew] = runs_.emplace(name, std::make_shared<Run>());
  if (!isNew) throw UsageError("já há uma execução com este nome; recarregue a página");
  if (isClosed_) place->second->end_ = Run::End::kCancelled;
  return place->second;
}

bool Runs::Cancel(const std::string& name) {
  const std::lock_guard lock(mutex_);
  const auto found = runs_.find(name);
  if (found == runs_.end()) return false;
  found->second->end_ = Run::End::kCancelled;
  return true;
}

void Runs::CancelAll() {
  const std::lock_guard lock(mutex_);
  isClosed_ = true;
  for (const auto& [name, run] : runs_) run->end_ = Run::End::kCancelled;
}

}  // namespace kodra::console::panel
