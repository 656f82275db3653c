// One input parameter of a statement, stored in the form in which the driver reads it while the statement runs.
#pragma once

#include <string>

#include "odbc/engine/odbc_api.h"
#include "odbc/engine/types.h"

namespace kodra::odbc {

class BoundParameter {
 public:
  // Text is passed to the driver as UTF-8 or as UTF-16. Raises 3251 for a direction other than input, 3421 for a value
  // that the type cannot hold, 80040E10 for a missing value.
  BoundParameter(const Parameter& parameter, bool textIsUtf8);

  // Binds it to a "?" mark, counted from 1. The object must outlive every run of the statement.
  SQLRETURN Bind(SQLHSTMT statement, SQLUSMALLINT position);

 private:
  SQLRETURN BindText(SQLHSTMT statement, SQLUSMALLINT position, const std::wstring& text);

  Value value_;
  std::int32_t type_;
  std::int64_t size_;
  bool textIsUtf8_;
  std::u16string wide_;
  std::string utf8_;
  SQLBIGINT integer_ = 0;
  double number_ = 0;
  unsigned char bit_ = 0;
  SQL_DATE_STRUCT date_{};
  SQL_TIMESTAMP_STRUCT timestamp_{};
  SQLLEN indicator_ = 0;
};

}  // namespace kodra::odbc
