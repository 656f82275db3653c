// The POSIX thread functions that the C++ library calls, implemented with Windows' own functions.
//
// With the library's own implementation (winpthread), and with the compiler's win32 thread model too, each load of the
// DLL takes a slot of thread-local storage and never frees it, so that the 1,089th load in a process fails. These
// functions take one fiber-local value, which ReleaseThreadValues frees.
//
// The library's headers declare them differently, for programs that link all of winpthread. What matters here is what
// the library's compiled code passes: a number of a pointer's size for a mutex and a long for a once.
#include "com/library_threads.h"

#include <windows.h>

#include <cerrno>

namespace {

using Mutex = SRWLOCK;
using Destructor = void (*)(void*);

// A mutex that is initialized by its declaration.
// NOLINTNEXTLINE(performance-no-int-to-ptr): the library's own value
void* const kDeclared = reinterpret_cast<void*>(-1);

SRWLOCK onceLock = SRWLOCK_INIT;
DWORD threadValue = FLS_OUT_OF_INDEXES;
Destructor destructor = nullptr;

void WINAPI DestroyThreadValue(void* value) {
  if (value != nullptr) destructor(value);
}

}  // namespace

extern "C" {

int pthread_mutex_init(Mutex* mutex, const void*) {
  InitializeSRWLock(mutex);
  return 0;
}

int pthread_mutex_destroy(Mutex*) { return 0; }

int pthread_mutex_lock(Mutex* mutex) {
  InterlockedCompareExchangePointer(&mutex->Ptr, nullptr, kDeclared);
  AcquireSRWLockExclusive(mutex);
  return 0;
}

int pthread_mutex_unlock(Mutex* mutex) {
  ReleaseSRWLockExclusive(mutex);
  return 0;
}

int pthread_once(long* once, void (*initialize)()) {
  if (__atomic_load_n(once, __ATOMIC_ACQUIRE) != 0) return 0;
  AcquireSRWLockExclusive(&onceLock);
  if (*once == 0) {
    initialize();
    __atomic_store_n(once, 1, __ATOMIC_RELEASE);
  }
  ReleaseSRWLockExclusive(&onceLock);
  return 0;
}

// The library has one such key, for all values that it keeps per thread.
int pthread_key_create(unsigned* key, Destructor destroy) {
  if (threadValue != FLS_OUT_OF_INDEXES) return EAGAIN;
  destructor = destroy;
  threadValue = FlsAlloc(&DestroyThreadValue);
  *key = threadValue;
  return threadValue == FLS_OUT_OF_INDEXES ? ENOMEM : 0;
}

void* pthread_getspecific(unsigned key) {
  // Windows clears the error of the thread where it finds a value.
  const DWORD error = GetLastError();
  void* const value = FlsGetValue(key);
  SetLastError(error);
  return value;
}

int pthread_setspecific(unsigned key, const void* value) {
  return FlsSetValue(key, const_cast<void*>(value)) != FALSE ? 0 : ENOMEM;
}
}

namespace kodra::com {

void ReleaseThreadValues() {
  if (threadValue != FLS_OUT_OF_INDEXES) FlsFree(threadValue);
}

}  // namespace kodra::com
