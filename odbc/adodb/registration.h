// The classes of the DLL in the machine's class registry, HKEY_LOCAL_MACHINE\Software\Classes.
#pragma once

#include <string>

#include "ado/adoint.h"

namespace kodra::adodb {

// Points a class id and its two ProgIDs ("ADODB.Connection" and "ADODB.Connection.2.8") at a server. A server that was
// already registered, such as Wine's own ADO, is remembered. Returns the error of the first key that fails.
HRESULT RegisterAdoClass(REFCLSID id, const std::wstring& progId, const std::wstring& serverPath);

// Undoes RegisterAdoClass: deletes the keys that it made and restores a server that it replaced.
HRESULT UnregisterAdoClass(REFCLSID id, const std::wstring& progId);

}  // namespace kodra::adodb
