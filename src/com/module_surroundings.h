// The surroundings that every object of the component runs on.
#pragma once

#include "platform/surroundings.h"

namespace kodra::com {

platform::Surroundings& ModuleSurroundings();

}  // namespace kodra::com
