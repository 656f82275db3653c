// The progress of a long report for a person who waits: how many rows were written, and how fast.
//
//   Progress progress(errors, Progress::Style::kOneLine, SteadySeconds);
//   for (…) progress.Row();
//   progress.End();
//
// A progress that cannot be written ends silently: the rows matter more.
//
// Nothing shows before a second has passed. From then on the count shows twice a second, and at the end the sum:
//   45.312 linhas, 41.880 por segundo
//   1.000.000 linhas em 23,4 s (42.735 por segundo)
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "console/formats/output.h"

namespace kodra::console {

// Seconds since some moment, on a clock that only goes forward.
double SteadySeconds();

class Progress {
 public:
  enum class Style {
    kNone,
    kOneLine,   // each count over the former one, as on a terminal
    kOwnLines,  // each count on a line of its own, as in a log
  };
  using Clock = std::function<double()>;

  // REQUIRES: `errors` outlives the object.
  Progress(Output& errors, Style style, Clock clock);

  void Row();
  // The rows so far.
  std::uint64_t Rows() const { return rows_; }
  // Shows the sum, if anything was shown. Called once, and not after a failure.
  void End();
  // Ends the line of the last count, so that another message begins on a line of its own.
  void Abandon();

 private:
  void Show(const std::wstring& text);
  void Write(const std::string& bytes);
  std::wstring PerSecond(double seconds) const;

  Output& errors_;
  Style style_;
  Clock clock_;
  double start_;
  double next_;  // when the count shows again
  std::uint64_t rows_ = 0;
  std::size_t shown_ = 0;  // the width of the text on the line
};

}  // namespace kodra::console
