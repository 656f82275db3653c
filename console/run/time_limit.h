// The option --tempo-limite: after how many seconds a run ends, whatever the database is doing.
#pragma once

#include <chrono>
#include <string>

namespace CLI {
class App;
}

namespace kodra::console {

class TimeLimit {
 public:
  // The help says that the option ends `what`.
  void AddTo(CLI::App& command, const std::string& what = "o relatório");
  // Zero without the option. Raises UsageError for a number of seconds that is not from 1 to 86,400, a day.
  std::chrono::seconds Get() const;

 private:
  int seconds_ = 0;
  bool isGiven_ = false;
};

}  // namespace kodra::console
