// Asks a database whether tables and columns can be read. No row is read.
#pragma once

#include <map>
#include <set>
#include <string>

#include "console/statements/tables_read.h"
#include "platform/surroundings.h"

namespace kodra::console {

class SchemaProbe {
 public:
  // REQUIRES: both outlive the object; the connection is open.
  SchemaProbe(platform::Surroundings& surroundings, platform::Connection& connection)
      : surroundings_(surroundings), connection_(connection) {}

  // Announces a need, so that a complete table costs a single statement. Called before the first Missing.
  void Expect(const TableNeed& need);

  // Returns what cannot be read: "tabela EVENTO", or "coluna EVENTO.ACAO" for each column; empty if nothing is missing.
  std::vector<std::wstring> Missing(const TableNeed& need);

  // The database's message about each table or column that it refused, in the order of their names.
  const std::map<std::wstring, std::wstring>& Refusals() const { return refusals_; }

 private:
  struct Table {
    std::set<std::wstring> expected;
    bool asked = false;
    bool readable = false;
    std::set<std::wstring> missing;
  };

  void Ask(const std::wstring& name, Table& table);
  // Whether "SELECT list FROM table" can be run. If not, and `what` is not empty, the message is stored under `what`.
  bool CanRead(const std::wstring& list, const std::wstring& table, const std::wstring& what);

  platform::Surroundings& surroundings_;
  platform::Connection& connection_;
  std::map<std::wstring, Table> tables_;
  std::map<std::wstring, std::wstring> refusals_;
};

}  // namespace kodra::console
