// The machine-wide registry entries of the sibling components.
#pragma once

#include <windows.h>

namespace kodra::siblings {

// Registers every class with the DLL's own path: S_OK, or SELFREG_E_CLASS when a key cannot be written.
HRESULT RegisterClasses();
// Removes them; missing keys are ignored.
HRESULT UnregisterClasses();

}  // namespace kodra::siblings
