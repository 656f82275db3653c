#include "comkit/module.h"

#include <mutex>
#include <utility>

#include "comkit/com_ptr.h"

namespace kodra::comkit {
namespace {

// Windows' own lock, which needs no initialization and no thread library.
class Lock {
 public:
  void lock() noexcept { AcquireSRWLockExclusive(&lock_); }
  void unlock() noexcept { ReleaseSRWLockExclusive(&lock_); }

 private:
  SRWLOCK lock_ = SRWLOCK_INIT;
};

// The counts and the library that they keep change together. Nothing here runs code when the DLL is loaded or unloaded.
constinit Lock g_lock;
long g_objects = 0;
long g_clientLocks = 0;
ITypeLib* g_library = nullptr;  // a reference of its own

HMODULE OwnModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

}  // namespace

void HoldModule() noexcept {
  const std::lock_guard lock(g_lock);
  ++g_objects;
}

void UnholdModule() noexcept {
  com_ptr<ITypeLib> last;  // released after the lock
  const std::lock_guard lock(g_lock);
  if (--g_objects == 0 && g_clientLocks == 0) last = com_ptr<ITypeLib>::adopt(std::exchange(g_library, nullptr));
}

void LockModule() noexcept {
  const std::lock_guard lock(g_lock);
  ++g_clientLocks;
}

bool UnlockModule() noexcept {
  const std::lock_guard lock(g_lock);
  if (g_clientLocks == 0) return false;
  --g_clientLocks;
  return true;
}

bool ModuleInUse() noexcept {
  const std::lock_guard lock(g_lock);
  return g_objects != 0 || g_clientLocks != 0;
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

HRESULT TypeInfoOf(REFGUID id, ITypeInfo** info) {
  com_ptr<ITypeLib> library;
  {
    const std::lock_guard lock(g_lock);
    if (g_library == nullptr) {
      const HRESULT hr = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &g_library);
      if (FAILED(hr)) return hr;
    }
    library = com_ptr<ITypeLib>(g_library);
  }
  return library->GetTypeInfoOfGuid(id, info);
}

}  // namespace kodra::comkit
