// The connection through which a sibling reads its data: its client's open connection, otherwise one of its own.
//
//   const Database database(surroundings, stringConexao_, conexao_);
//   for (const Row& row : database.Read(L"SELECT NOME FROM T WHERE COD = " + database.Quoted(code), {L"NOME"})) …
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/surroundings.h"

namespace kodra::siblings {

using Row = std::vector<Value>;

class Database {
 public:
  // `client` is an open ADO connection, used late-bound; without one the connection string is used. The client's
  // connection is only read from, never opened or closed.
  // REQUIRES: `surroundings` outlives the object.
  Database(platform::Surroundings& surroundings, std::wstring connectionString, ObjectRef client = {});

  // The database code of the connection that is read.
  std::int32_t Code() const { return code_; }

  // A text as a literal of this database.
  std::wstring Quoted(std::wstring_view text) const;

  // All rows of a statement, each with the values of these columns in this order. Raises what the database raises.
  std::vector<Row> Read(const std::wstring& statement, const std::vector<std::wstring_view>& columns) const;

 private:
  platform::Surroundings& surroundings_;
  std::wstring connectionString_;
  ObjectRef client_;
  std::int32_t code_;
};

}  // namespace kodra::siblings
