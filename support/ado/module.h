// What the objects share with the DLL that holds them: how many live, and the type library in its resources.
#pragma once

#include <string>

#include "platform/windows/adoint.h"
#include "platform/windows/com_ptr.h"

namespace kodra::support::ado {

// Counts one living object of the DLL, or one lock of a class factory. Any thread.
class ModuleReference {
 public:
  ModuleReference() noexcept;
  ModuleReference(const ModuleReference&) = delete;
  ModuleReference& operator=(const ModuleReference&) = delete;
  ~ModuleReference();
};

// True while something holds the DLL.
bool ModuleInUse() noexcept;

// The full path of the DLL. REQUIRES: SetModule has been called.
std::wstring ModulePath();
void SetModule(HMODULE module) noexcept;

// The description of an interface in the DLL's type library, null when the library cannot be read. Any thread.
platform::windows::com_ptr<ITypeInfo> TypeInfoOf(REFIID interfaceId) noexcept;

}  // namespace kodra::support::ado
