// VantLib.Conversoes: conversions that do not fail.
//
// Member: ToDate (method: a value; returns a date). A text is read as a date of Brazilian Portuguese or a number of
// days, a number counts days, and for an object, such as a field of a recordset, its member Value is read. Nothing,
// null, the empty text and every value that is no date return the zero date; what the object's Value raises reaches the
// caller.
#pragma once

#include "siblings/sibling.h"

namespace kodra::siblings {

class Conversoes final : public Sibling<Conversoes> {
 public:
  static std::span<const Member<Conversoes>> Members();

 private:
  Value ToDate(std::span<const Value> arguments);
};

}  // namespace kodra::siblings
