// KodraConexao.StrCon: recognises the database system of a connection string.
//
// Members: StrCon (text, read and written), TipoBanco (the database code, read).
//
// The rule searches the whole string for words, in any letter case. The first line of this list with a match decides:
//   1 Oracle      ORACLE, MSDAORA
//   6 DB2         IBMDADB2, ISERIES, IBM I, IBM DB2
//   7 SQLite      SQLITE
//   3 MySQL       MYSQL, MARIADB
//   2 SQL Server  SQLOLEDB, SQLNCLI, MSOLEDBSQL, SQL SERVER
//   4             no match; also the empty string
// Oracle, DB2 and SQLite come first and with these words because that is how a connection string is prepared before it
// is opened: both must find the same system, even in a string that names two.
#pragma once

#include <cstdint>
#include <string>

#include "siblings/sibling.h"

namespace kodra::siblings {

// The database code of a connection string.
std::int32_t DatabaseCode(std::wstring_view connectionString);

class StrCon final : public Sibling<StrCon> {
 public:
  static std::span<const Member<StrCon>> Members();

 private:
  std::int32_t TipoBanco() { return DatabaseCode(strCon_); }

  std::wstring strCon_;
};

}  // namespace kodra::siblings
