// Asks a database whether tables and columns can be read, without reading a row.
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

  // Tells what will be asked for, so that a table that is whole costs one statement. Called before the first Missing.
  void Expect(const TableNeed& need);

  // What cannot be read: "tabela EVENTO", or a "coluna EVENTO.ACAO" each; nothing where all is well.
  std::vector<std::wstring> Missing(const TableNeed& need);

  // What the database said of each table or column that it refused, in the order of their names.
  const std::map<std::wstring, std::wstring>& Refusals() const { return refusals_; }

 private:
  struct Table {
    std::set<std::wstring> expected;
    bool asked = false;
    bool readable = false;
    std::set<std::wstring> missing;
  };

  void Ask(const std::wstring& name, Table& table);
  // Whether "SELECT list FROM table" can be run; `what` is what is refused where it cannot.
  bool CanRead(const std::wstring& list, const std::wstring& table, const std::wstring& what);

  platform::Surroundings& surroundings_;
  platform::Connection& connection_;
  std::map<std::wstring, Table> tables_;
  std::map<std::wstring, std::wstring> refusals_;
};

}  // namespace kodra::console
