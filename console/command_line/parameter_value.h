// The value of a parameter as typed on a command line.
#pragma once

#include <string_view>

#include "frame/parameter_object.h"
#include "values/value.h"

namespace kodra::console {

// The value to assign to the property: a date, a flag or a text, by the property's rule. Stricter than an assignment by
// a client, where "10" is a day in January 1900: raises UsageError for an incomplete date and an unclear flag.
Value ParameterValue(const frame::Property& property, std::string_view typed);

}  // namespace kodra::console
