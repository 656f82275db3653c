// Stops what the database does for a machine as soon as a condition holds, from a thread of its own.
//
//   const Cancelling cancelling(*machine, [&] { return isAskedToStop; });
//   … the run, on the thread that made the machine …
#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include "console/run/machine.h"

namespace kodra::console {

class Cancelling {
 public:
  // `isOver` is asked twenty times a second until it holds. `keepsOn` is called with the time since then while the run
  // has not ended. Both are called by another thread. REQUIRES: the machine outlives the object.
  Cancelling(Machine& machine, std::function<bool()> isOver,
             std::function<void(std::chrono::milliseconds)> keepsOn = {});
  Cancelling(const Cancelling&) = delete;
  Cancelling& operator=(const Cancelling&) = delete;

 private:
  void Watch(const std::stop_token& end);

  Machine& machine_;
  std::function<bool()> isOver_;
  std::function<void(std::chrono::milliseconds)> keepsOn_;
  std::jthread watcher_;
};

}  // namespace kodra::console
