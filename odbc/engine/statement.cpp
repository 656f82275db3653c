#include "odbc/engine/statement.h"

#include <algorithm>

#include "odbc/engine/bound_parameter.h"
#include "odbc/engine/cancellation.h"
#include "odbc/engine/coercion.h"
#include "odbc/engine/driver_quirks.h"
#include "values/utf16.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

std::int32_t AdoType(SQLSMALLINT sqlType, bool isUnsigned) {
  switch (sqlType) {
    case SQL_CHAR:
      return ad::kChar;
    case SQL_WCHAR:
      return ad::kWChar;
    case SQL_WVARCHAR:
      return ad::kVarWChar;
    case SQL_LONGVARCHAR:
      return ad::kLongVarChar;
    case SQL_WLONGVARCHAR:
      return ad::kLongVarWChar;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return ad::kNumeric;
    case SQL_TINYINT:
      return isUnsigned ? ad::kUnsignedTinyInt : ad::kTinyInt;
    case SQL_SMALLINT:
      return isUnsigned ? ad::kUnsignedSmallInt : ad::kSmallInt;
    case SQL_INTEGER:
      return isUnsigned ? ad::kUnsignedInt : ad::kInteger;
    case SQL_BIGINT:
      return isUnsigned ? ad::kUnsignedBigInt : ad::kBigInt;
    case SQL_REAL:
      return ad::kSingle;
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return ad::kDouble;
    case SQL_BIT:
      return ad::kBoolean;
    case SQL_BINARY:
      return ad::kBinary;
    case SQL_VARBINARY:
      return ad::kVarBinary;
    case SQL_LONGVARBINARY:
      return ad::kLongVarBinary;
    case SQL_TYPE_DATE:
      return ad::kDBDate;
    case SQL_TYPE_TIME:
      return ad::kDBTime;
    case SQL_TYPE_TIMESTAMP:
      return ad::kDBTimeStamp;
    case SQL_GUID:
      return ad::kGUID;
    default:
      return ad::kVarChar;
  }
}

bool HasPrecision(std::int32_t type) {
  return FixedSize(type) > 0 && type != ad::kBoolean && type != ad::kDBDate && type != ad::kDBTime;
}

Column DescribeColumn(SQLHSTMT statement, SQLUSMALLINT number) {
  Column column;
  char16_t name[256] = {};
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT sqlType = SQL_VARCHAR;
  SQLSMALLINT digits = 0;
  SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
  SQLDescribeColW(statement, number, reinterpret_cast<SQLWCHAR*>(name), static_cast<SQLSMALLINT>(std::size(name)),
                  &nameLength, &sqlType, &column.size, &digits, &nullable);
  SQLLEN isUnsigned = SQL_FALSE;
  SQLColAttributeW(statement, number, SQL_DESC_UNSIGNED, nullptr, 0, nullptr, &isUnsigned);

  FieldInfo& info = column.info;
  // The name ends with its zero: not every driver counts its characters correctly.
  info.name = values::FromUtf16(name);
  info.type = AdoType(sqlType, isUnsigned == SQL_TRUE);
  const std::int64_t fixedSize = FixedSize(info.type);
  info.definedSize = fixedSize > 0 ? fixedSize : static_cast<std::int64_t>(column.size);
  info.attributes = ad::kFldUnknownUpdatable;
  if (fixedSize > 0 || info.type == ad::kChar || info.type == ad::kWChar) info.attributes |= ad::kFldFixed;
  if (nullable != SQL_NO_NULLS) info.attributes |= ad::kFldIsNullable | ad::kFldMayBeNull;
  if (IsLongType(info.type)) info.attributes |= ad::kFldLong;
  if (HasPrecision(info.type)) {
    info.precision = static_cast<std::int32_t>(std::min<SQLULEN>(column.size, 255));
    if (info.type == ad::kNumeric) info.numericScale = digits;
  }
  return column;
}

// A column of a table names the table; an expression does not.
bool IsExpression(SQLHSTMT statement, SQLUSMALLINT number) {
  SQLWCHAR table[8] = {};
  SQLSMALLINT bytes = 0;
  const SQLRETURN result = SQLColAttributeW(statement, number, SQL_DESC_BASE_TABLE_NAME, table,
                                            static_cast<SQLSMALLINT>(sizeof table), &bytes, nullptr);
  return !SQL_SUCCEEDED(result) || bytes == 0;
}

SQLHSTMT NewHandle(Session& session) {
  SQLHSTMT handle = nullptr;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, session.Handle(), &handle))) {
    session.Fail(SQL_HANDLE_DBC, session.Handle(), Stage::kExecute);
  }
  return handle;
}

}  // namespace

Statement::Statement(Session& session, const std::wstring& text, const std::vector<Parameter>& parameters,
                     const StatementLimits& limits)
    : session_(session), text_(text), parameters_(parameters) {
  for (const Parameter& parameter : parameters_)
    bound_.push_back(std::make_unique<BoundParameter>(parameter, session_.TextIsUtf8()));
  handle_ = NewHandle(session_);
  // A driver that knows no time or row limit says so, and the statement runs without.
  if (limits.timeout > 0) {
    SQLSetStmtAttrW(handle_, SQL_ATTR_QUERY_TIMEOUT, AsAttribute(static_cast<std::uintptr_t>(limits.timeout)), 0);
  }
  if (limits.rows > 0) {
    SQLSetStmtAttrW(handle_, SQL_ATTR_MAX_ROWS, AsAttribute(static_cast<std::uintptr_t>(limits.rows)), 0);
  }
  try {
    Prepare();
  } catch (...) {
    SQLFreeHandle(SQL_HANDLE_STMT, handle_);
    throw;
  }
}

// The same statement read whole up to its first row, only for its description.
Statement::Statement(ProbeTag, const Statement& original)
    : session_(original.session_), text_(original.text_), parameters_(original.parameters_) {
  for (const Parameter& parameter : parameters_)
    bound_.push_back(std::make_unique<BoundParameter>(parameter, session_.TextIsUtf8()));
  handle_ = NewHandle(session_);
  SQLSetStmtAttrW(handle_, SQL_ATTR_CURSOR_TYPE, AsAttribute(SQL_CURSOR_STATIC), 0);
  SQLSetStmtAttrW(handle_, SQL_ATTR_MAX_ROWS, AsAttribute(1), 0);
}

Statement::~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }

void Statement::Fail(Stage stage) const { session_.Fail(SQL_HANDLE_STMT, handle_, stage); }

void Statement::Prepare() {
  std::u16string wide = values::ToUtf16(text_);
  const auto length = static_cast<SQLINTEGER>(wide.size());
  wide.append(UnitsReadBeyond(wide), u' ');
  const SQLRETURN result = SQLPrepareW(handle_, reinterpret_cast<SQLWCHAR*>(wide.data()), length);
  if (!SQL_SUCCEEDED(result)) Fail(Stage::kPrepare);
  BindParameters();
}

void Statement::BindParameters() {
  for (std::size_t i = 0; i < bound_.size(); ++i) {
    if (!SQL_SUCCEEDED(bound_[i]->Bind(handle_, static_cast<SQLUSMALLINT>(i + 1)))) Fail(Stage::kExecute);
  }
}

SQLRETURN Statement::Start() {
  const Running running(session_.CanBeCancelled() ? handle_ : nullptr);
  return SQLExecute(handle_);
}

SQLRETURN Statement::Fetch() {
  const Running running(session_.CanBeCancelled() ? handle_ : nullptr);
  return SQLFetch(handle_);
}

void Statement::Execute() {
  if (executed_) SQLFreeStmt(handle_, SQL_CLOSE);
  const SQLRETURN result = Start();
  // SQL_NO_DATA is the result of an update that found no row.
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) Fail(Stage::kExecute);
  SQLLEN affected = -1;
  SQLRowCount(handle_, &affected);
  rowsAffected_ = affected;
  if (!executed_) Describe();
  executed_ = true;
}

void Statement::Describe() {
  SQLSMALLINT count = 0;
  SQLNumResultCols(handle_, &count);
  for (SQLSMALLINT i = 1; i <= count; ++i) {
    columns_.push_back(DescribeColumn(handle_, static_cast<SQLUSMALLINT>(i)));
  }
  if (session_.TypesVaryByRow() && OnlyReads(text_)) DescribeExpressions();
}

void Statement::DescribeExpressions() {
  std::vector<SQLUSMALLINT> expressions;
  for (std::size_t i = 1; i <= columns_.size(); ++i) {
    if (IsExpression(handle_, static_cast<SQLUSMALLINT>(i))) expressions.push_back(static_cast<SQLUSMALLINT>(i));
  }
  if (expressions.empty()) return;
  Statement probe(ProbeTag{}, *this);
  probe.Prepare();
  if (!SQL_SUCCEEDED(probe.Start())) return;
  for (SQLUSMALLINT number : expressions) {
    std::wstring name = std::move(columns_[number - 1U].info.name);
    columns_[number - 1U] = DescribeColumn(probe.handle_, number);
    columns_[number - 1U].info.name = std::move(name);
  }
}

}  // namespace kodra::odbc
