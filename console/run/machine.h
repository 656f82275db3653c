// The surroundings that the program runs reports in.
//
// There are two: over ODBC with the sibling components that come with the program (machine_odbc.cpp), and on Windows
// over ADO with the siblings that are installed (machine_windows.cpp).
#pragma once

#include <memory>

#include "platform/surroundings.h"

namespace kodra::console {

class Machine {
 public:
  virtual ~Machine() = default;
  virtual platform::Surroundings& Around() = 0;
  // Whether siblings belong to the machine and may be missing, rather than to the program.
  virtual bool SiblingsAreInstalled() const = 0;
};

// One at a time; its thread is the one that uses it.
std::unique_ptr<Machine> NewMachine();

}  // namespace kodra::console
