// What the page asks the program for: the catalogue, runs, downloads, statements, the check of the database.
//
//   GET  /api/catalogue
//   GET  /api/connections
//   POST /api/run       {"connection", "report", "parameters", "run"}            JSON lines, see page_writer.h
//   POST /api/download  {"connection", "report", "parameters", "run", "format"}  a file
//   POST /api/check     {"connection", "run"}
//   POST /api/test      {"connection", "run"}                                    which database answers
//   POST /api/cancel    {"run"}
//   POST /api/sql       {"report", "parameters", "database"}
//   POST /api/labels, /api/paper                                                 see print_api.h
//   POST /api/inventory                                                          see inventory_api.h
//
// "connection" is a name of /api/connections; without it, the connection of the command line is used. "run" is a name
// that the page chooses, by which it can cancel. An answer that is not 200 has words for the user. A run that fails
// after its first row ends with {"error":"…"}.
#pragma once

#include <chrono>

#include "console/panel/connections.h"
#include "console/panel/http.h"
#include "console/panel/runs.h"

namespace kodra::console::panel {

class Api {
 public:
  // The time limit is that of each run; zero is none.
  Api(Connections connections, std::chrono::seconds limit) : connections_(std::move(connections)), runs_(limit) {}

  // Answers a request to one of these addresses; 404 for others. Called by several threads at once. Raises nothing but
  // bad_alloc.
  Answer Handle(const Request& request);

  void CancelAll() { runs_.CancelAll(); }

 private:
  Answer ListConnections() const;
  Answer RunReport(const Request& request, const std::wstring& connection);
  Answer Download(const Request& request, const std::wstring& connection);
  Answer Check(const Request& request, const std::wstring& connection);
  Answer Test(const Request& request, const std::wstring& connection);
  Answer Cancel(const Request& request);

  const Connections connections_;
  Runs runs_;
};

}  // namespace kodra::console::panel
