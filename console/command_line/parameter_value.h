// A parameter's value as it is typed on a command line.
#pragma once

#include <string_view>

#include "frame/parameter_object.h"
#include "values/value.h"

namespace kodra::console {

// The value to assign to that property: a date or a flag where it holds one, else the text. Stricter than a client's
// own assignment, which takes "10" for a day of 1900: raises UsageError for what is no whole date and no clear flag.
Value ParameterValue(const frame::Property& property, std::string_view typed);

}  // namespace kodra::console
