// The DLL as a COM server: the counts that keep it loaded, its own path and its type library.
//
// Each DLL that links the kit has a module of its own. Any thread may call these functions.
#pragma once

#include <string>

#include "comkit/automation_headers.h"

namespace kodra::comkit {

// Adds or removes one object that keeps the DLL loaded. While there is neither an object nor a lock, the DLL may be
// unloaded and holds no type library.
void HoldModule() noexcept;
void UnholdModule() noexcept;

// The same for the locks of clients. UnlockModule returns false when there is no lock to remove. REQUIRES: a ModuleLock
// exists.
void LockModule() noexcept;
bool UnlockModule() noexcept;

// Holds the DLL for as long as it exists.
class ModuleLock {
 public:
  ModuleLock() noexcept { HoldModule(); }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;
  ~ModuleLock() { UnholdModule(); }
};

// Whether anything keeps the DLL loaded.
bool ModuleInUse() noexcept;

// The full path of the DLL.
std::wstring ModulePath();

// The description of a type (an interface or a class) in the DLL's own type library, which need not be registered; an
// error when the library cannot be read. May raise std::bad_alloc. REQUIRES: a ModuleLock exists.
HRESULT TypeInfoOf(REFGUID id, ITypeInfo** info);

}  // namespace kodra::comkit
