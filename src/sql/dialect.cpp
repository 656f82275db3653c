#include "sql/dialect.h"

#include "sql/tipo_banco.h"
#include "text/dates.h"

namespace kodra::sql {

const Dialect* FindDialect(std::int32_t code) noexcept {
  switch (code) {
    case tbOracle:
      return &Oracle();
    case tbSQLServer:
      return &SQLServer();
    case tbMySQL:
      return &MySQL();
    case tbDB2:
      return &DB2();
    case tbSQLite:
      return &SQLite();
    default:
      return nullptr;
  }
}

std::wstring CurrentDateOf(const Dialect& dialect) {
  const std::wstring_view current = dialect.CurrentDate();
  if (current.empty()) return text::FormatDate(text::Today(), L"'yyyy-mm-dd'");
  return std::wstring(current);
}

}  // namespace kodra::sql
