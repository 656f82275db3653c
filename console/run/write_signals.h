// The signals by which Linux ends a process that cannot write: to a pipe whose reader has ended (SIGPIPE), or beyond
// the largest file that the user may write (SIGXFSZ).
#pragma once

#include <array>

namespace kodra::console {

// While an object exists, such a write fails with an error, as on Windows, and the process can remove its unfinished
// file. The destructor restores the previous handlers.
class IgnoredWriteSignals {
 public:
  IgnoredWriteSignals();
  ~IgnoredWriteSignals();
  IgnoredWriteSignals(const IgnoredWriteSignals&) = delete;
  IgnoredWriteSignals& operator=(const IgnoredWriteSignals&) = delete;

 private:
  using Handler = void (*)(int);
  std::array<Handler, 2> former_{};
};

}  // namespace kodra::console
