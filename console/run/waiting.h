// Tells a person who waits that the database still works on a report that has no row yet.
//
//   Waiting waiting(errors, Progress::Style::kOneLine);
//   rows = OpenReport(…);
//   waiting.End();
//
// Nothing is shown during the first second. After that, once a second:
//   esperando o banco de dados há 12 s
//
// A thread of its own writes, until End: nobody else may write to `errors` before that. When the text cannot be
// written, no more of it is shown, and no error is raised.
#pragma once

#include <thread>

#include "console/run/progress.h"

namespace kodra::console {

class Waiting {
 public:
  // REQUIRES: `errors` outlives the object.
  Waiting(Output& errors, Progress::Style style);
  ~Waiting() { End(); }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;

  // Removes the text from its line, for what is written next.
  void End();

 private:
  void Show(const std::stop_token& end);

  Output& errors_;
  Progress::Style style_;
  std::jthread thread_;
};

}  // namespace kodra::console
