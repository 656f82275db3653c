// Hides what a C library prints to standard error.
//
//   const SilencedErrors silenced;
//   library_call();
//
// One object at a time. The stream belongs to the whole process, so no other thread may write to it meanwhile.
#pragma once

namespace kodra::console {

class SilencedErrors {
 public:
  SilencedErrors();
  ~SilencedErrors();
  SilencedErrors(const SilencedErrors&) = delete;
  SilencedErrors& operator=(const SilencedErrors&) = delete;

 private:
  int former_;  // a duplicate of the stream; negative if there is none
};

}  // namespace kodra::console
