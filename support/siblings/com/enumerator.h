// The enumerator behind `For Each` over a collection.
#pragma once

#include <vector>

#include "platform/value.h"
#include "platform/windows/com_ptr.h"

namespace kodra::support {

// An IEnumVARIANT over these values; their objects are handed out as faces, made when their turn comes.
platform::windows::com_ptr<IUnknown> MakeEnumerator(std::vector<platform::Value> values);

}  // namespace kodra::support
