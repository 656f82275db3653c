// What the component writes into the class registry, as rows: the ProgID and the class id of each public class.
//
// The same rows are written, removed, packed into installers and compared by tests.
#pragma once

#include <string>
#include <vector>

namespace kodra::com {

struct RegistryRow {
  // Below the root of the classes.
  std::wstring key;
  // Empty for the key's default value.
  std::wstring name;
  std::wstring value;
};

// The rows that register a DLL at `modulePath`. The type library's own rows are Automation's business.
std::vector<RegistryRow> RegistryRows(const std::wstring& modulePath);

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
