#include "console/statements/needs.h"

#include "console/statements/every_statement.h"
#include "sql/tipo_banco.h"

namespace kodra::console {

// Every dialect reads the same columns, but the dialect of SQLite hides some of them between quotes.
Needs NeedsOf(const reports::ReportMethod& method) {
  const EveryStatement every = EveryStatementOf(method, sql::tbMySQL);
  Needs needs;
  needs.siblings = every.siblings;
  for (const Statement& statement : every.ofReport) AddNeeds(needs.tables, TablesRead(statement.text));
  for (const Statement& statement : every.ofSiblings) AddNeeds(needs.siblingTables, TablesRead(statement.text));
  return needs;
}

}  // namespace kodra::console
