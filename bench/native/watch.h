// A stopwatch that is stopped and let go many times within some hundred nanoseconds. The clock may be coarser than what
// it measures: a figure is the sum over many runs.
#pragma once

#include "bench/measure.h"

namespace kodra::bench {

class Watch {
 public:
  void Restart() {
    own_ = Clock::duration::zero();
    stops_ = 0;
    running_ = true;
    since_ = Clock::now();
  }
  // Once it is stopped it stays so, whatever stops it again.
  void Stop() {
    if (!running_) return;
    own_ += Clock::now() - since_;
    ++stops_;
    running_ = false;
  }
  void Go() {
    running_ = true;
    since_ = Clock::now();
  }
  // The seconds while it ran.
  double Own() const { return Seconds(own_); }
  // How often it was stopped: each time has cost a look at the clock.
  int Stops() const { return stops_; }

 private:
  Clock::duration own_{};
  int stops_ = 0;
  bool running_ = false;
  Clock::time_point since_{};
};

}  // namespace kodra::bench
