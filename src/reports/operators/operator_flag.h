// The flags of the operators' register.
#pragma once

#include "values/value.h"

namespace kodra::reports {

// Whether a flag of the database means yes: its text starts with one of 1, Y, S, T and V, in either case, or with the
// comma of the list that it is looked up in.
bool EhVerdadeiro(const Value& value);

}  // namespace kodra::reports
