// The enumerator behind `For Each` over a collection.
#pragma once

#include <vector>

#include "comkit/com_ptr.h"
#include "values/value.h"

namespace kodra::siblings {

// An IEnumVARIANT over these values. It returns their objects as faces, which it makes when their turn comes.
comkit::com_ptr<IUnknown> MakeEnumerator(std::vector<Value> values);

}  // namespace kodra::siblings
