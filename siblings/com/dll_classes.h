// The classes of the DLL: every sibling, and the classes that exist only on Windows.
#pragma once

#include <span>

#include "siblings/sibling_classes.h"

namespace kodra::siblings {

std::span<const SiblingClass> DllClasses();

}  // namespace kodra::siblings
