// Keeps what a C library prints to the standard error of the process from its user.
//
//   const SilencedErrors silenced;
//   library_call();
//
// One object at a time, on a process of one thread: the stream is the process's own.
#pragma once

namespace kodra::console {

class SilencedErrors {
 public:
  SilencedErrors();
  ~SilencedErrors();
  SilencedErrors(const SilencedErrors&) = delete;
  SilencedErrors& operator=(const SilencedErrors&) = delete;

 private:
  int former_;  // the stream meanwhile; negative when it could not be replaced
};

}  // namespace kodra::console
