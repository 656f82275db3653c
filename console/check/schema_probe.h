// Asks a database whether tables and columns can be read, and whether the columns have the right types. No row is read.
//
// The types are those of the columns of an empty result, because the database then finds a table as it does for the
// reports: in the user's schema, or through a view or a synonym.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "console/schema/tables.h"
#include "console/statements/tables_read.h"
#include "platform/surroundings.h"
#include "values/erro.h"

namespace kodra::console {

enum class Defect { kMissing, kForbidden, kWrongType };

struct Problem {
  Defect defect;
  // "tabela EVENTO", "coluna EVENTO.ACAO", or "coluna EVENTO.ACAO (número em vez de texto)".
  std::wstring what;
  bool operator==(const Problem&) const = default;
};

class SchemaProbe {
 public:
  // REQUIRES: both outlive the object; the connection is open. The code may be one without dialect.
  SchemaProbe(platform::Surroundings& surroundings, platform::Connection& connection, std::int32_t databaseCode)
      : surroundings_(surroundings), connection_(connection), databaseCode_(databaseCode) {}

  // Announces a need, so that a complete table costs a single statement. Called before the first ProblemsWith.
  void Expect(const TableNeed& need);

  // Returns what cannot be read or has the wrong type; empty if nothing is wrong. Raises ConnectionError if the file of
  // an SQLite database is not one.
  std::vector<Problem> ProblemsWith(const TableNeed& need);

  // The database's message about each table or column that it refused, in the order of their names.
  const std::map<std::wstring, std::wstring>& Refusals() const { return refusals_; }

 private:
  struct Table {
    std::set<std::wstring> expected;
    bool asked = false;
    std::vector<Problem> problems;                   // with the table as a whole
    std::map<std::wstring, Problem> columnProblems;  // by column
  };

  void Ask(const std::wstring& name, Table& table);
  // Runs "SELECT list FROM table" for no rows. Returns the ADO types of its columns.
  std::vector<std::int32_t> TypesOf(const std::wstring& list, const std::wstring& table);
  // Whether the column can be read; otherwise its problem is stored.
  bool CanRead(const std::wstring& column, const std::wstring& name, Table& table);
  // `types` are those of the expected columns, in their order.
  void CompareTypes(const std::wstring& name, Table& table, const std::vector<std::int32_t>& types);
  // Stores the database's message under `what` and returns the problem.
  Problem Refused(const std::wstring& what, const Erro& error);

  platform::Surroundings& surroundings_;
  platform::Connection& connection_;
  std::int32_t databaseCode_;
  std::map<std::wstring, Table> tables_;
  std::map<std::wstring, std::wstring> refusals_;
};

}  // namespace kodra::console
