// Stops what a thread is doing in a database, from another thread.
//
//   Cancellation cancellation;       // in the thread that runs the statements
//   …
//   cancellation.Cancel();           // in another thread
//
// The statement that the first thread is running then fails with the driver's error, if the driver can stop it. The
// thread starts no other statement and reads no other row: each attempt fails with 3712.
#pragma once

#include <mutex>

namespace kodra::odbc {

class Cancellation {
 public:
  // For the thread that calls. REQUIRES: the thread has no other object of this class.
  Cancellation();
  // REQUIRES: called by the same thread.
  ~Cancellation();
  Cancellation(const Cancellation&) = delete;
  Cancellation& operator=(const Cancellation&) = delete;

  // May be called by any thread, more than once: a driver may miss a request that arrives before its statement runs.
  void Cancel();

 private:
  friend class Running;

  std::mutex mutex_;
  void* statement_ = nullptr;  // the handle that is running; null when none is
  bool cancelled_ = false;
};

// Declares that the current thread runs a statement while the object lives.
class Running {
 public:
  // Raises 3712 if the thread's work was cancelled. Null is a statement that cannot be stopped by another thread.
  explicit Running(void* statement);
  ~Running();
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  Cancellation* cancellation_;
};

}  // namespace kodra::odbc
