// VantLib.Conversoes: conversions that do not fail.
//
// Member: ToDate (method: a value; gives a date). A text is read as a date of Brazilian Portuguese or a number of days,
// a number counts days, and an object, such as a field of a recordset, is asked for its member Value. Nothing, null,
// the empty text and whatever makes no date give the zero date; what the object's Value raises goes to the caller.
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
