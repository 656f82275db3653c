// The component in the class registry: the ProgID and the class id of each public class, and the type library.
#pragma once

namespace kodra::com {

// For whom the component is registered.
enum class Scope {
  kAllUsers,  // requires an administrator
  kThisUser,
};

// Writes the rows for this DLL and registers its type library. Raises Erro with what failed; what had been written by
// then stays.
void RegisterModule(Scope scope);

// Removes the keys of each public class and the type library's registration. A missing key is no error, and an entry
// that names another copy of the DLL stays: that copy is still in use.
void UnregisterModule(Scope scope);

}  // namespace kodra::com
