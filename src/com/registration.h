// The component in the class registry: the ProgID and the class id of each public class, and the type library.
#pragma once

namespace kodra::com {

// For whom the component is registered.
enum class Scope {
  kAllUsers,  // asks for an administrator
  kThisUser,
};

// Writes the rows for this DLL and registers its type library. Raises Erro with what failed; what had been written by
// then stays.
void RegisterModule(Scope scope);

// Removes the keys of each public class and the type library's registration. What is absent already is no error, and
// what names another copy of the DLL stays: that copy is still in use.
void UnregisterModule(Scope scope);

}  // namespace kodra::com
