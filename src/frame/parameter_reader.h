// Reads the properties of the parameter object that a client passes, whatever its class.
#pragma once

#include <string>
#include <string_view>

#include "platform/automation.h"

namespace kodra::frame {

// The text of a property. A property that the object does not have raises error 438 with its name in the description;
// a null raises RuntimeError::kInvalidUseOfNull, an object RuntimeError::kTypeMismatch.
std::wstring ReadText(platform::AutomationObject& parameters, std::wstring_view property);

}  // namespace kodra::frame
