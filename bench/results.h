// The results of a benchmark: one printed line each, and one in a file for other programs.
//
//   Results results(path);
//   results.Ratio({.name = "small_report", .unit = "us", .limit = 1.05}, medians);
//   return results.ExitCode();
#pragma once

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>

#include "bench/measure.h"

namespace kodra::bench {

struct Line {
  const char* name;
  // The unit of the absolute figures, and the factor from the measured figure to that unit.
  const char* unit;
  double scale = 1;
  // The largest ratio (or, for a single figure, the largest figure) that is acceptable.
  double limit;
};

class Results {
 public:
  // Appends to the file at `path`, one line per result: name, ratio, component, bare, unit, limit, met (1 or 0), with
  // tabs.
  explicit Results(const std::string& path) : file_(path, std::ios::app) {}

  // A comparison: the component's figure against the bare one.
  void Ratio(const Line& line, const Medians& medians) {
    const double ratio = medians.component / medians.bare;
    Write(line, ratio, medians.component * line.scale, medians.bare * line.scale);
  }

  // A single figure.
  void Figure(const Line& line, double figure) { Write(line, figure * line.scale, figure * line.scale, 0); }

  // 0 when every figure so far was within its limit, 1 when one was not, 2 when one was not a positive number.
  int ExitCode() const { return unsound_ ? 2 : missed_ ? 1 : 0; }

 private:
  void Write(const Line& line, double ratio, double component, double bare) {
    const bool sound = std::isfinite(ratio) && ratio > 0;
    const bool met = sound && ratio <= line.limit;
    unsound_ = unsound_ || !sound;
    missed_ = missed_ || !met;
    std::printf("%-20s %8.*f   ", line.name, ratio < 0.01 ? 6 : 3, ratio);
    if (bare > 0)
      std::printf("%12.2f %-3s contra %12.2f %-3s", component, line.unit, bare, line.unit);
    else
      std::printf("%12.2f %-3s %23s", component, line.unit, "");
    std::printf("   limite %g: %s\n", line.limit, met ? "cumprido" : "NÃO CUMPRIDO");
    std::fflush(stdout);
    file_ << line.name << '\t' << ratio << '\t' << component << '\t' << bare << '\t' << line.unit << '\t' << line.limit
          << '\t' << met << '\n'
          << std::flush;
  }

  std::ofstream file_;
  bool missed_ = false;
  bool unsound_ = false;
};

}  // namespace kodra::bench
