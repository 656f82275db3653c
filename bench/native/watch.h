// A stopwatch that is stopped and started many times within some hundred nanoseconds.
#pragma once

#include "bench/measure.h"

namespace kodra::bench {

class Watch {
 public:
  void Restart() {
    own_ = Clock::duration::zero();
    running_ = true;
    since_ = Clock::now();
  }
  // Once stopped it stays stopped, however often it is stopped again.
  void Stop() {
    if (!running_) return;
    own_ += Clock::now() - since_;
    running_ = false;
  }
  void Go() {
    running_ = true;
    since_ = Clock::now();
  }
  // The seconds while it ran.
  double Own() const { return Seconds(own_); }

 private:
  Clock::duration own_{};
  bool running_ = false;
  Clock::time_point since_{};
};

}  // namespace kodra::bench
