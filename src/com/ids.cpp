// The one place where the ids of idl/kodrarpt.idl are stored.
#include "comkit/automation_headers.h"

// Turns the declarations of the next header into definitions.
#include <initguid.h>

// Needs both headers above.
#include <kodrarpt.h>
