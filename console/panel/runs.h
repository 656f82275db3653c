// The runs of reports that a page has started: a few at once, each of which can be cancelled alone.
//
//   runs.Do("f3a9", request.isGone, [&](Machine& machine, const Run& run) {
//     while (rows are left && !run.IsOver()) …
//   });
//   runs.Cancel("f3a9");              // another thread
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "console/command_line/usage_error.h"
#include "console/run/machine.h"

namespace kodra::console::panel {

inline constexpr std::size_t kMostRuns = 4;

// Raised for one run too many.
class TooManyRuns : public UsageError {
 public:
  TooManyRuns()
      : UsageError("Já há " + std::to_string(kMostRuns) +
                   " relatórios em execução. Espere um terminar, ou cancele um.") {}
};

class Run {
 public:
  enum class End { kNone, kCancelled, kTimeIsUp };
  // Whether the work should return early.
  bool IsOver() const { return end_ != End::kNone; }
  End Why() const { return end_; }

 private:
  friend class Runs;
  std::atomic<End> end_ = End::kNone;
};

class Runs {
 public:
  // A time limit of zero is none.
  explicit Runs(std::chrono::seconds limit) : limit_(limit) {}

  // Runs `work` in the calling thread, with a machine of its own. When the run is cancelled, its client is gone or its
  // time is up, what the database does for it is stopped. Raises TooManyRuns, UsageError for a name that another run
  // has, and what the work raises.
  void Do(const std::string& name, const std::function<bool()>& isGone,
          const std::function<void(Machine&, const Run&)>& work);

  // The same, but what the work raises after it was stopped is no error: what a database answers to a statement that
  // was stopped is no news. Returns why it was stopped, in words for the user; empty if it was not.
  std::string DoUnlessStopped(const std::string& name, const std::function<bool()>& isGone,
                              const std::function<void(Machine&, const Run&)>& work);

  // Returns whether there is a run of that name.
  bool Cancel(const std::string& name);
  // Cancels all runs, and those that begin later.
  void CancelAll();

 private:
  std::shared_ptr<Run> Enter(const std::string& name);

  const std::chrono::seconds limit_;
  std::mutex mutex_;
  bool isClosed_ = false;
  std::map<std::string, std::shared_ptr<Run>> runs_;
};

}  // namespace kodra::console::panel
