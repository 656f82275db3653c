// The surroundings that the program runs reports in.
//
// On Linux: ODBC, and the sibling components that are part of the program (machine_odbc.cpp). On Windows: ADO, and the
// siblings that are installed (machine_windows.cpp).
#pragma once

#include <memory>

#include "platform/surroundings.h"

namespace kodra::console {

class Machine {
 public:
  virtual ~Machine() = default;
  virtual platform::Surroundings& Around() = 0;
  // Whether the siblings are installed on the machine, where some may be missing, and not part of the program.
  virtual bool SiblingsAreInstalled() const = 0;
  // Stops what the database does for the thread that made the object, as far as its driver can. May be called by any
  // thread, more than once.
  virtual void Cancel() = 0;
};

// One object at a time for each thread, used by the thread that made it.
std::unique_ptr<Machine> NewMachine();

}  // namespace kodra::console
