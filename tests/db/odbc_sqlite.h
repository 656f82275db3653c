// A test on an SQLite file through ADO's contract over ODBC.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "odbc/engine/recordset.h"
#include "tests/db/sqlite_file.h"
#include "tests/odbc/print_value.h"
#include "tests/odbc/raised.h"

namespace kodra::odbc {

inline tests::Raised Provider(std::uint32_t number, const wchar_t* description) {
  return {static_cast<std::int32_t>(number), L"Microsoft OLE DB Provider for ODBC Drivers", description};
}

class OdbcSqlite : public testing::Test {
 protected:
  void OpenFirehose(Recordset& recordset, const std::wstring& sql) {
    recordset.SetCursorLocation(ad::kUseServer);
    recordset.SetCacheSize(100);
    recordset.Open(sql, &file.Connection(), ad::kOpenForwardOnly, ad::kLockReadOnly, ad::kCmdText);
  }

  // Numbers from 1 to `count`.
  static std::wstring Numbers(int count) {
    return L"with recursive q(N) as (select 1 union all select N + 1 from q where N < " + std::to_wstring(count) +
           L") select N from q";
  }

  tests::SqliteFile file;
  Recordset rs;
};

}  // namespace kodra::odbc
