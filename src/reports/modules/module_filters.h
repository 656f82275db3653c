// The filters that the module listings add to a statement, each appended to the WHERE text as it stands by then.
#pragma once

#include "data/select_builder.h"
#include "values/automation.h"

namespace kodra::reports {

// Only modules of a department: CodDepto, when its value as a number is above zero. The code goes in as it is given.
void FilterDepto(data::SelectBuilder& builder, AutomationObject& parameters);

// Only modules of the back catalogue: ModoPregresso.
void FilterPregresso(data::SelectBuilder& builder, AutomationObject& parameters);

}  // namespace kodra::reports
