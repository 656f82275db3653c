// Reads the properties of the parameter object that a client passes, whatever its class.
#pragma once

#include <string>
#include <string_view>

#include "values/automation.h"

namespace kodra::frame {

// The value of a property as a text, a date or a Boolean. A property that the object does not have raises error 438
// with its name in the description, while an error 438 that the property's own code raises passes unchanged. A null
// raises RuntimeError::kInvalidUseOfNull, a value that cannot be converted RuntimeError::kTypeMismatch.
std::wstring ReadText(AutomationObject& parameters, std::wstring_view property);
Date ReadDate(AutomationObject& parameters, std::wstring_view property);
bool ReadFlag(AutomationObject& parameters, std::wstring_view property);

}  // namespace kodra::frame
