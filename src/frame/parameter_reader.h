// Reads the properties of the parameter object that a client passes, whatever its class.
#pragma once

#include <string>

#include "values/automation.h"
#include "values/piece.h"

namespace kodra::frame {

// The value of a property as a text, a date or a Boolean. A property that the object does not have raises error 438
// with its name in the description, while an error 438 that the property's own code raises passes as it is. A null
// raises RuntimeError::kInvalidUseOfNull, a value that cannot be converted RuntimeError::kTypeMismatch.
std::wstring ReadText(AutomationObject& parameters, values::Piece property);
Date ReadDate(AutomationObject& parameters, values::Piece property);
bool ReadFlag(AutomationObject& parameters, values::Piece property);

}  // namespace kodra::frame
