// Values converted to the kinds that a field or parameter of an ADO type holds.
//
//   text types              std::wstring          adInteger and shorter            std::int32_t
//   adBoolean               bool                  adUnsignedInt, adBigInt          std::int64_t
//   date and time types     Date                  adUnsignedBigInt                 std::int64_t, or std::uint64_t
//   adSingle                float                                                  beyond its range
//   adDouble                double                adCurrency                       Currency
//                                                 adDecimal, adNumeric             Decimal
#pragma once

#include <cstdint>
#include <optional>

#include "values/value.h"

namespace kodra::odbc {

bool IsTextType(std::int32_t adoType);
// Whether it is a text or binary type whose length has no bound of its own.
bool IsLongType(std::int32_t adoType);
bool IsBinaryType(std::int32_t adoType);
// The bytes of a value of a fixed-length type; 0 for a text or binary type.
std::int64_t FixedSize(std::int32_t adoType);

// The value as the type holds it; nothing when it cannot: text longer than `size` characters (0 is unlimited), text
// that is not a number, a number out of range, an object. Empty becomes the type's zero; Null stays Null. Numbers
// become text with a decimal point, booleans "True" and "False", dates the ISO form; text becomes a date only from the
// ISO form.
std::optional<Value> Coerce(const Value& value, std::int32_t adoType, std::int64_t size);

}  // namespace kodra::odbc
