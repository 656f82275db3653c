// The interfaces and classes of idl/kodrarpt.idl, declared in the build folder. They are in the global namespace:
// inside kodra write ::CDeptoRpt for the coclass.
#pragma once

#include "comkit/automation_headers.h"

// Needs the declarations above.
#include <kodrarpt.h>
