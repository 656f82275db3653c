#include "sql/dialect.h"

#include "sql/tipo_banco.h"
#include "values/format_date.h"

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

void WriteCurrentDate(values::Writer& out, const Dialect& dialect) {
  const values::Piece current = dialect.CurrentDate();
  if (current.empty()) return out.Append(values::DateBy<L"'yyyy-mm-dd'">(values::ToCalendar(values::Today())));
  out.Append(current);
}

}  // namespace kodra::sql
