// Objects that replace the sibling components when a report runs without them.
#pragma once

#include <cstdint>
#include <string>

#include "values/automation.h"

namespace kodra::console {

// An object that replaces the component with a ProgID. It accepts every assignment. A system parameter is its name
// between angle brackets, a collection has one member, and a date is the zero date. The code of a subordinate module is
// the expression of the sibling components in siblings/.
ObjectRef NewPlaceholder(const std::wstring& progId, std::int32_t databaseCode);

}  // namespace kodra::console
