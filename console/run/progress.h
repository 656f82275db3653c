// The progress of a long report for a person who waits: how many rows were written, and how fast.
//
//   Progress progress(errors, Progress::Style::kOneLine, SteadySeconds);
//   for (…) progress.Row();
//   progress.End();
//
// Nothing is shown during the first second. After that the count is shown twice a second, and the total at the end:
//   45.312 linhas, 41.880 por segundo
//   1.000.000 linhas em 23,4 s (42.735 por segundo)
//
// When the progress cannot be written, no more of it is shown, and no error is raised.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "console/formats/output.h"

namespace kodra::console {

// Seconds since some fixed moment, on a clock that never goes back.
double SteadySeconds();

class Progress {
 public:
  enum class Style {
    kNone,
    kOneLine,   // each count over the previous one, as on a terminal
    kOwnLines,  // each count on a line of its own, as in a log
  };
  using Clock = std::function<double()>;

  // REQUIRES: `errors` outlives the object.
  Progress(Output& errors, Style style, Clock clock);
  // Ends the line of the last count, so that the next message begins on a new line.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Row();
  // The rows so far.
  std::uint64_t Rows() const { return rows_; }
  // Shows the total, unless the report took less than a second. Called once, and not after a failure.
  void End();

 private:
  void Show(const std::wstring& text);
  void EndLine();
  void Write(const std::string& bytes);
  std::wstring PerSecond(double seconds) const;

  Output& errors_;
  Style style_;
  Clock clock_;
  double start_;
  double next_;  // when the count is shown again
  std::uint64_t rows_ = 0;
  std::size_t shown_ = 0;  // the width of the count on the current line
};

}  // namespace kodra::console
