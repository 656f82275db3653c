// A native client of the reports: ODBC with the sibling components, parameter objects, and recordsets read into tables.
#pragma once

#include "frame/parameter_object.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"
#include "tests/rows/driver.h"

namespace kodra::tests {

// A machine with the sibling components.
class Machine : public odbc::Surroundings {
 public:
  Machine() { siblings::RegisterSiblings(*this); }
};

// The parameter object of a report class, with these properties set.
frame::ParameterObject ParametersOf(const std::wstring& reportClass, const rows::Properties& properties = {});

// All columns and all rows from the current one on.
rows::Table Read(platform::Recordset& recordset);

}  // namespace kodra::tests
