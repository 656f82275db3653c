// Conversions of a value as the automation runtime makes them under Brazilian Portuguese.
//
// An object is converted by its default property (DefaultValue). Each function raises a runtime error for a value that
// it cannot convert: RuntimeError::kInvalidUseOfNull for Null, RuntimeError::kObjectNotSet for a null object,
// RuntimeError::kMemberNotFound for an object without default property.
#pragma once

#include <cstdint>
#include <string>

#include "values/value.h"

namespace kodra::values {

// Empty returns the empty text, a Boolean "Verdadeiro" or "Falso", a number its decimal-comma text, a date DateToText.
std::wstring ToText(const Value& value);
std::wstring ToText(Value&& value);

// A value joined to the empty text: as ToText, but Null returns the empty text too, and so does an object whose default
// property is Null.
std::wstring ToTextOrEmpty(const Value& value);

// A 32-bit integer: halves go to the even neighbour, true is -1, Empty is 0, text is read as a Brazilian number.
// Raises RuntimeError::kOverflow beyond 32 bits and RuntimeError::kTypeMismatch for text that is no number.
std::int32_t ToInt32(const Value& value);

// A date: a number counts days, text is read as a date or else as a Brazilian number of days, Empty is the zero date.
// Raises RuntimeError::kOverflow outside the years 100 to 9999 and RuntimeError::kTypeMismatch for any other text.
Date ToDate(const Value& value);

// A Boolean: a number or a date is true unless zero, Empty is false, text is "Verdadeiro", "True", "Falso" or "False"
// in any letter case, or else a Brazilian number. Raises RuntimeError::kTypeMismatch for any other text.
bool ToBool(const Value& value);

}  // namespace kodra::values
