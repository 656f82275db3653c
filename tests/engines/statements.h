// The statements that the report methods build. The reports run over the sample archive in SQLite with all sibling
// components, except that the connection component names another database, and the statements that they open are
// recorded. So a statement that depends on the rows of another one depends on the archive's rows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/engines/cases.h"
#include "tests/engines/engines.h"

namespace kodra::engines {

struct Statement {
  std::string method;  // "CDeptoRpt.RelatorioDeptos"
  // The case, how the report is called where that makes a difference, and the statement's number within the case from
  // the second on. The same on every database.
  std::string label;
  bool otherCode = false;  // built for Oracle's second code, and different from the one for its first
  std::wstring text;
  std::optional<std::wstring> parameter;
};

// Every statement of every report method for a database, in the order of the cases; equal texts are kept.
// CCaixaRpt is called with a connection string and with a client's connection.
std::vector<Statement> StatementsFor(Database database);

}  // namespace kodra::engines
