// Makes sibling components, with a clear message when one is not registered.
#pragma once

#include <string>

#include "platform/surroundings.h"

namespace kodra::data {

// Makes an object by ProgID. A class that is not registered or cannot be made raises error 429 with the caller's
// source and the class in the description; after any other failure the result is null, and its first use fails.
ObjectRef CriaObjeto(const std::wstring& progId, const std::wstring& callerSource,
                     platform::Surroundings& surroundings);

}  // namespace kodra::data
