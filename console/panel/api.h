// What the page asks the program for: the catalogue, runs, downloads, statements, the check of the database.
//
//   GET  /api/catalogue
//   POST /api/run       {"report", "parameters", "run"}            JSON lines, see page_writer.h
//   POST /api/download  {"report", "parameters", "run", "format"}  a file
//   POST /api/cancel    {"run"}
//   POST /api/sql       {"report", "parameters", "database"}
//   POST /api/check     {"run"}
//
// "run" is a name that the page chooses, by which it can cancel. An answer that is not 200 has words for the user. A
// run that fails after its first row ends with {"error":"…"}.
#pragma once

#include <chrono>

#include "console/panel/http.h"
#include "console/panel/runs.h"

namespace kodra::console::panel {

class Api {
 public:
  // The connection string, and the time limit of each run; zero is none.
  Api(std::wstring connection, std::chrono::seconds limit) : connection_(std::move(connection)), runs_(limit) {}

  // Answers a request to one of these addresses; 404 for others. Called by several threads at once. Raises nothing but
  // bad_alloc.
  Answer Handle(const Request& request);

  void CancelAll() { runs_.CancelAll(); }

 private:
  Answer RunReport(const Request& request);
  Answer Download(const Request& request);
  Answer Cancel(const Request& request);
  Answer Check(const Request& request);

  // The words for the exception that is being handled.
  std::string CurrentWords() const;
  // Why a run ended early; empty if it did not.
  std::string WordsOf(const Run& run) const;

  const std::wstring connection_;
  Runs runs_;
};

}  // namespace kodra::console::panel
