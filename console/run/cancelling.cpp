#include "console/run/cancelling.h"

namespace kodra::console {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kInterval{50};

}  // namespace

Cancelling::Cancelling(Machine& machine, std::function<bool()> isOver, std::function<void(milliseconds)> keepsOn)
    : machine_(machine),
      isOver_(std::move(isOver)),
      keepsOn_(std::move(keepsOn)),
      watcher_([this](const std::stop_token& end) { Watch(end); }) {}

void Cancelling::Watch(const std::stop_token& end) {
  while (!end.stop_requested() && !isOver_()) std::this_thread::sleep_for(kInterval);
  const auto begin = steady_clock::now();
  while (!end.stop_requested()) {
    machine_.Cancel();
    if (keepsOn_) keepsOn_(std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin));
    std::this_thread::sleep_for(kInterval);
  }
}

}  // namespace kodra::console
