// Two sides of a comparison, run by turns so that whatever else the machine does affects both.
#pragma once

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace kodra::bench {

using Clock = std::chrono::steady_clock;

inline double Seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

// The median; for an even number of figures the upper of the two middle ones. REQUIRES: not empty.
inline double Median(std::vector<double> figures) {
  const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
  std::nth_element(figures.begin(), middle, figures.end());
  return *middle;
}

// The figures of the component and of the bare side, each the median of its runs.
struct Medians {
  double component = 0;
  double bare = 0;
};

// Runs both sides by turns, the other one first each time. A side does its work and returns its figure.
template <class Component, class Bare>
Medians Interleave(int rounds, Component component, Bare bare) {
  std::vector<double> ours;
  std::vector<double> theirs;
  for (int round = 0; round < rounds; ++round) {
    if (round % 2 == 0) ours.push_back(component());
    theirs.push_back(bare());
    if (round % 2 != 0) ours.push_back(component());
  }
  return {Median(std::move(ours)), Median(std::move(theirs))};
}

// A side whose figure is the seconds that it takes.
template <class Work>
auto Timed(Work work) {
  return [work]() mutable {
    const Clock::time_point start = Clock::now();
    work();
    return Seconds(Clock::now() - start);
  };
}

}  // namespace kodra::bench
