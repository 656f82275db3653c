// What the DLL runs on: apart from the rest of the module, so that a test can put the faces on surroundings of its own.
#include "com/module.h"
#include "platform/windows/com_surroundings.h"

namespace kodra::com {

platform::Surroundings& ModuleSurroundings() {
  static constinit platform::windows::ComSurroundings surroundings;
  return surroundings;
}

}  // namespace kodra::com
