// What keeps the DLL loaded.
#pragma once

#include <atomic>

namespace kodra::siblings {

// Keeps the DLL loaded for as long as it exists. May be made and destroyed on any thread.
class ModuleLock {
 public:
  ModuleLock() noexcept { ++count_; }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock() { --count_; }

  // Whether there is any. May be asked on any thread.
  static bool Any() noexcept { return count_ != 0; }

  // A lock that no object stands for: IClassFactory::LockServer.
  static void Add(long change) noexcept { count_ += change; }

 private:
  inline static std::atomic<long> count_ = 0;
};

}  // namespace kodra::siblings
