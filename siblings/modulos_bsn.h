// KodraBsnV3.ModulosBsn: the business rules of subordinate modules in SQL.
//
// Members: StringConexao and LogFile (texts, read and written), Conexao (object, set by reference),
// NumCxSubordinadaSQL (method: database code, alias of CAIXA_SUBORDINADA; returns an SQL expression).
// The connection members are there for clients that set them on every business object; the expression needs none.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "siblings/sibling.h"

namespace kodra::siblings {

// The expression for a subordinate module's 7-character code, its parent's number and its own in two digits: on SQLite
// s.NUM_CAIXA || substr('0' || s.NUM_SEQ, -2). An empty alias leaves the columns without one. A database code without a
// dialect raises kErrBase + 1, source "KodraBsnV3.ModulosBsn::NumCxSubordinadaSQL".
std::wstring SubordinateCode(std::int32_t databaseCode, std::wstring_view alias);

class ModulosBsn final : public Sibling<ModulosBsn> {
 public:
  static std::span<const Member<ModulosBsn>> Members();

 private:
  Value NumCxSubordinadaSQL(std::span<const Value> arguments);

  std::wstring stringConexao_;
  std::wstring logFile_;
  ObjectRef conexao_;
};

}  // namespace kodra::siblings
