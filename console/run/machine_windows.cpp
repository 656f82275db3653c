// The surroundings on Windows: COM, ADO, and the siblings by ProgID.
#include "ado/com_surroundings.h"
#include "comkit/automation_headers.h"
#include "console/run/machine.h"

namespace kodra::console {
namespace {

class WindowsMachine final : public Machine {
 public:
  WindowsMachine() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~WindowsMachine() override {
    if (entered_) CoUninitialize();
  }
  WindowsMachine(const WindowsMachine&) = delete;
  WindowsMachine& operator=(const WindowsMachine&) = delete;

  platform::Surroundings& Around() override { return surroundings_; }
  bool SiblingsAreInstalled() const override { return true; }
  // ADO's objects belong to the thread that made them, which waits for the database: the program ends with it.
  void Cancel() override {}

 private:
  ado::ComSurroundings surroundings_;
  bool entered_;
};

}  // namespace

std::unique_ptr<Machine> NewMachine() { return std::make_unique<WindowsMachine>(); }

}  // namespace kodra::console
