// The surroundings over ODBC, with the siblings linked into the program.
#include "console/run/machine.h"
#include "odbc/engine/cancellation.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"

namespace kodra::console {
namespace {

class OdbcMachine final : public Machine {
 public:
  OdbcMachine() { siblings::RegisterSiblings(surroundings_); }
  platform::Surroundings& Around() override { return surroundings_; }
  bool SiblingsAreInstalled() const override { return false; }
  void Cancel() override { cancellation_.Cancel(); }

 private:
  odbc::Cancellation cancellation_;
  odbc::Surroundings surroundings_;
};

}  // namespace

std::unique_ptr<Machine> NewMachine() { return std::make_unique<OdbcMachine>(); }

}  // namespace kodra::console
