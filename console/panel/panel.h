// The panel: one page, in the browser of the person at this computer, that runs the reports of the databases that the
// user may choose there.
//
//   Panel panel({.connection = L"DSN=Acervo"});
//   std::cout << panel.Address();
#pragma once

#include <chrono>
#include <string>

#include "console/panel/access.h"
#include "console/panel/api.h"
#include "console/panel/server.h"

namespace kodra::console::panel {

struct PanelOptions {
  // See Connections.
  std::wstring connection = {};
  std::string profile = {};
  int port = 0;                   // zero for a free one
  std::chrono::seconds limit{0};  // of each run; zero is none
};

// Serves the page on threads of its own while the object lives.
class Panel {
 public:
  // Raises UsageError for a port that another program has.
  explicit Panel(const PanelOptions& options);
  // Cancels all runs and waits for their ends.
  ~Panel();
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  // See access.h.
  std::string Address() const { return access_.Address(); }
  std::string AddressForOnce() const { return access_.AddressForOnce(); }

  // How long nobody has used the page; zero while something runs for it.
  std::chrono::milliseconds Idle() const { return server_.SinceLastRequest(); }
  void CancelAll() { api_.CancelAll(); }

 private:
  Api api_;
  Server server_;
  Access access_;
};

}  // namespace kodra::console::panel
