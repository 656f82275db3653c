// A server's entries in the class registry, below Software\Classes of a root: HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "comkit/automation_headers.h"

namespace kodra::comkit {

struct RegistryRow {
  // Below Software\Classes.
  std::wstring key;
  // Empty for the key's default value.
  std::wstring name;
  std::wstring value;
};

// "{01234567-89AB-CDEF-0123-456789ABCDEF}".
std::wstring GuidText(REFGUID id);

// The rows of a class that a DLL serves to apartments. `classId` is the text of its id.
std::vector<RegistryRow> ClassRows(const std::wstring& progId, const std::wstring& classId,
                                   const std::wstring& serverPath);

// Writes a row, whose key need not exist.
LSTATUS WriteRow(HKEY root, const RegistryRow& row);
// Deletes a key with everything below it. An absent key is no error.
LSTATUS DeleteKey(HKEY root, const std::wstring& key);
// The text of a value; nothing for a value that is absent or is not a text. An empty name is the key's default value.
std::optional<std::wstring> ReadText(HKEY root, const std::wstring& key, const std::wstring& name);

}  // namespace kodra::comkit
