// The classes of the DLL: every sibling, and what only Windows has.
#pragma once

#include <span>

#include "siblings/sibling_classes.h"

namespace kodra::siblings {

std::span<const SiblingClass> DllClasses();

}  // namespace kodra::siblings
