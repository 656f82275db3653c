// The surroundings over ODBC, with the siblings linked into the program.
#include <dlfcn.h>

#include <mutex>

#include "console/run/machine.h"
#include "odbc/engine/cancellation.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"

namespace kodra::console {
namespace {

// SQLite locks a connection in every call, in case several threads use it, and locks its count of memory whenever it
// takes or frees some; together they take a quarter of the time of a long report. Here each connection belongs to one
// thread, and nobody asks for the count. Without this library, or after its first use, nothing changes.
void LeaveOutLocksOfSqlite() {
  void* const library = dlopen("libsqlite3.so.0", RTLD_NOW);
  if (library == nullptr) return;
  using Configure = int (*)(int, ...);
  constexpr int kOneThreadPerConnection = 2;  // SQLITE_CONFIG_MULTITHREAD
  constexpr int kMemoryIsCounted = 9;         // SQLITE_CONFIG_MEMSTATUS
  if (const auto configure = reinterpret_cast<Configure>(dlsym(library, "sqlite3_config"))) {
    configure(kOneThreadPerConnection);
    configure(kMemoryIsCounted, 0);
  }
  // The library stays loaded: unloading it would undo the settings.
}

class OdbcMachine final : public Machine {
 public:
  OdbcMachine() {
    // Several threads may make their machines at the same time.
    static std::once_flag once;
    std::call_once(once, LeaveOutLocksOfSqlite);
    siblings::RegisterSiblings(surroundings_);
  }
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
