// What the objects share with the DLL that holds them: how many live, and the type library in its resources.
#pragma once

#include <string>

#include "ado/adoint.h"
#include "ado/com_ptr.h"

namespace kodra::adodb {

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
ado::com_ptr<ITypeInfo> TypeInfoOf(REFIID interfaceId) noexcept;

}  // namespace kodra::adodb
