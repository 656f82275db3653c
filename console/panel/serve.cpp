#include "console/panel/serve.h"

#include <thread>

#include "console/panel/browser.h"
#include "console/run/interruption.h"
#include "console/run/stopping.h"

namespace kodra::console::panel {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds kInterval{50};

// Ends the program if the panel cannot end, because a driver does not stop what it does.
class LastResort {
 public:
  LastResort()
      : watcher_([](const std::stop_token& end) {
          const auto deadline = steady_clock::now() + kPatience;
          while (!end.stop_requested() && steady_clock::now() < deadline) std::this_thread::sleep_for(kInterval);
          if (!end.stop_requested()) Interruption::EndNow(ExitCode::kOk);
        }) {}

 private:
  std::jthread watcher_;
};

}  // namespace

ExitCode Serve(const Program& program, const ServeOptions& options) {
  const Interruption interruption;
  std::optional<LastResort> lastResort;
  Panel panel(options.panel);
  program.Out() << panel.Address() << std::endl;
  if (options.opensBrowser && !OpenBrowser(panel.AddressForOnce()))
    program.Err() << "kodrarpt: não foi possível abrir o navegador; abra nele o endereço acima\n" << std::flush;
  while (!Interruption::Requested() && panel.Idle() < options.idle) std::this_thread::sleep_for(kInterval);
  lastResort.emplace();
  return ExitCode::kOk;
}

}  // namespace kodra::console::panel
