// The component's classes as this program itself contains them.
#pragma once

#include <memory>
#include <vector>

#include "com/class_table.h"
#include "comkit/module.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {

// While it exists, every public class that this process creates is the program's and not the registered DLL's.
class OwnClasses {
 public:
  OwnClasses() {
    for (const com::PublicClass& entry : com::PublicClasses())
      standIns_.push_back(std::make_unique<StandIn>(
          com::ProgId(entry), [&entry] { return Ref<IDispatch>::Owning(static_cast<IDispatch*>(entry.create())); }));
  }

  // Whether one of their objects is alive.
  static bool AnyAlive() { return comkit::ModuleInUse(); }

 private:
  std::vector<std::unique_ptr<StandIn>> standIns_;
};

}  // namespace kodra::face
