// The surroundings of the DLL. They are separate from the rest of the module, so that a test can use the faces with
// surroundings of its own.
#include "com/module_surroundings.h"
#include "ado/com_surroundings.h"

namespace kodra::com {

platform::Surroundings& ModuleSurroundings() {
  static constinit ado::ComSurroundings surroundings;
  return surroundings;
}

}  // namespace kodra::com
