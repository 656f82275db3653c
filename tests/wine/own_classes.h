// The component's classes that are linked into this test program.
#pragma once

#include <memory>
#include <vector>

#include "com/class_table.h"
#include "comkit/module.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {

// While it exists, this process creates every public class from this program and not from the registered DLL.
class OwnClasses {
 public:
  OwnClasses() {
    for (const com::PublicClass& entry : com::PublicClasses())
      standIns_.push_back(std::make_unique<StandIn>(
          com::ProgId(entry), [&entry] { return Ref<IDispatch>::Owning(static_cast<IDispatch*>(entry.create())); }));
  }

  // Whether an object of these classes is alive.
  static bool AnyAlive() { return comkit::ModuleInUse(); }

 private:
  std::vector<std::unique_ptr<StandIn>> standIns_;
};

}  // namespace kodra::face
