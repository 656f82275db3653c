// A stopwatch that is stopped and let go many times within some hundred nanoseconds. The clock may be coarser than what
// it measures: a figure is the sum over many runs.
#pragma once

#include "bench/measure.h"

namespace kodra::bench {

class Watch {
 public:
  void Restart() {
    own_ = Clock::duration::zero();
    since_ = Clock::now();
  }
  void Stop() { own_ += Clock::now() - since_; }
  void Go() { since_ = Clock::now(); }
  // The seconds while it ran.
  double Own() const { return Seconds(own_); }

 private:
  Clock::duration own_{};
  Clock::time_point since_{};
};

}  // namespace kodra::bench
