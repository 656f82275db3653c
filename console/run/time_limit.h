// The option --tempo-limite: after how many seconds a run ends, whatever the database is doing.
#pragma once

#include <chrono>

namespace CLI {
class App;
}

namespace kodra::console {

class TimeLimit {
 public:
  void AddTo(CLI::App& command);
  // Zero without the option. Raises UsageError for a number of seconds that is not from 1 to 86,400, a day.
  std::chrono::seconds Get() const;

 private:
  int seconds_ = 0;
  bool isGiven_ = false;
};

}  // namespace kodra::console
