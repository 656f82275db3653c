// ADO's interfaces, declared in the build folder from their IDL. They are in the global namespace, where `Connection`,
// `Field` and `Fields` are ADO's: inside kodra::platform write ::Field for those.
#pragma once

#include "comkit/automation_headers.h"

// Needs the declarations above.
#include <msado15.h>
