// An HTTP server for the programs of this computer: it listens on the loopback address only.
//
//   Server server({.refusal = …, .answer = …, .headers = …}, {});
//   const int port = server.Bind(0);
//   server.Start();
//   …
//   server.Stop();
//
// A request that is too large, too slow or malformed is answered in Portuguese and reaches neither function.
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "console/panel/http.h"

namespace kodra::console::panel {

struct Limits {
  std::size_t body = std::size_t{256} * 1024;  // bytes of a request's body
  std::chrono::milliseconds request{5000};     // for a request to arrive completely
  std::chrono::milliseconds idle{5000};        // between two requests of a connection
  std::chrono::milliseconds write{60000};      // during which a client takes nothing
  int connections = 64;                        // served at once; others wait for their turn
};

// What answers the requests. Both functions are called by several threads at once.
struct Service {
  // Called with a request's head before its body is read. Returns an answer to refuse it, and the connection is closed.
  std::function<std::optional<Answer>(const Request&)> refusal;
  std::function<Answer(const Request&)> answer;
  // Of every answer.
  std::vector<std::pair<std::string, std::string>> headers;
};

class Server {
 public:
  Server(Service service, Limits limits);
  // Calls Stop.
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Takes a port, a free one for zero, and returns it. Raises UsageError if another program has it.
  int Bind(int port);
  // Serves on threads of its own. REQUIRES: Bind was called.
  void Start();
  // Closes the connections and waits for the answers that are being made. May be called twice.
  void Stop();

  // How long ago the last request arrived that was not refused, or Start; zero while a request is answered.
  std::chrono::milliseconds SinceLastRequest() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace kodra::console::panel
