// The DLL as a COM server: how many objects and locks keep it loaded, its own path and its type library.
#pragma once

#include <string>

#include "ado/com_ptr.h"
#include "platform/surroundings.h"

namespace kodra::com {

// One more, or one less, object that keeps the DLL loaded. While there is none, nor a lock, the DLL may be unloaded and
// holds no type library. May be called from any thread.
void HoldModule() noexcept;
void UnholdModule() noexcept;

// The same for the locks of clients. UnlockModule returns false when there is no lock to take away. REQUIRES: a
// ModuleLock exists.
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

// Whether anything keeps the DLL loaded. May be asked from any thread.
bool ModuleInUse() noexcept;

// The full path of the DLL.
std::wstring ModulePath();

// The description of a type (an interface or a class) in the DLL's own type library, which needs no registration.
// REQUIRES: a ModuleLock exists. Raises Erro when the library cannot be read.
ado::com_ptr<ITypeInfo> TypeInfoOf(REFGUID id);

// What every object of the component runs on.
platform::Surroundings& ModuleSurroundings();

}  // namespace kodra::com
