// The tables of the sample archive: their columns, stated once, and the DDL that each engine needs for them.
//
// Each column connects a name and a type with a member of the record, so that the DDL, the writers and the
// records cannot disagree. The order of columns is the order of the cells of a row.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

#include "testbed/archive/records.h"

namespace kodra::testbed {

enum class ColumnType { kText, kLongText, kInteger, kDate, kMoment };

struct Column {
  std::wstring_view name;
  ColumnType type = ColumnType::kText;
  int length = 0;  // characters, for a kText
};

struct TableShape {
  std::wstring_view name;
  std::size_t keyColumns = 0;  // the number of leading columns that are the primary key; zero for no key
  std::vector<Column> columns;
  std::vector<std::wstring_view> indexed;  // columns with an index of their own
};

// A value of a row for a writer; its text belongs to the record. std::monostate is a null.
using Cell = std::variant<std::monostate, std::int64_t, std::wstring_view, Day, Moment>;

template <class Record>
struct Table {
  TableShape shape;
  std::vector<Cell (*)(const Record&)> read;  // one per column

  // Puts the row's cells into `cells`. REQUIRES: `record` outlives them.
  void Read(const Record& record, std::vector<Cell>& cells) const {
    cells.clear();
    for (const auto readColumn : read) cells.push_back(readColumn(record));
  }
};

// The table of a record type.
template <class Record>
const Table<Record>& TableOf();

// Every record type, in the order in which the tables are created and filled.
using AllRecords =
    std::tuple<Parametro, Classe, Grupo, Assunto, Dicionario, Modelo, Suporte, TipoMidia, Cd, Depto, GrupoOperadores,
               Operador, Deposito, Container, TipoCaixa, Caixa, CaixaSubordinada, Documento, Solicitacao, Evento>;

// Calls visitor.operator()<Record>() for every record type, in order.
template <class Visitor>
void ForEachRecordType(Visitor&& visitor) {
  [&]<class... Record>(std::type_identity<std::tuple<Record...>>) {
    (visitor.template operator()<Record>(), ...);
  }(std::type_identity<AllRecords>{});
}

// The shapes of all tables, in order.
std::vector<TableShape> AllShapes();

// kStandard is for the engines that have the types of standard SQL.
enum class Engine { kSqlite, kMySql, kStandard };

// The statement that creates a table, without the closing semicolon.
std::wstring CreateTable(const TableShape& table, Engine engine);
// The statements that index its columns.
std::vector<std::wstring> CreateIndexes(const TableShape& table);
// Its name and columns, as an INSERT names them: CD (NUM_CD, DOC_INICIAL, ...).
std::wstring InsertTarget(const TableShape& table);

// "2024-05-31", and "2024-05-31 08:30:00".
std::string IsoText(Day day);
std::string IsoText(Moment moment);

}  // namespace kodra::testbed
