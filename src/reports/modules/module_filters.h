// The filters that the module listings add to a condition over the module c; empty for a filter that is off.
#pragma once

#include <string>

#include "values/automation.h"

namespace kodra::reports {

// Only modules of a department: CodDepto, when its value as a number is above zero. The code is used unchanged.
std::wstring DeptoFilter(AutomationObject& parameters);

// Only modules of the back catalogue: ModoPregresso.
std::wstring PregressoFilter(AutomationObject& parameters);

}  // namespace kodra::reports
