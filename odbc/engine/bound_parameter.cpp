#include "odbc/engine/bound_parameter.h"

#include <algorithm>
#include <optional>

#include "odbc/engine/coercion.h"
#include "odbc/engine/dates.h"
#include "odbc/engine/errors.h"
#include "values/decimal.h"
#include "values/utf16.h"
#include "values/utf8.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

constexpr SQLULEN kLongestVarChar = 4000;

SQL_DATE_STRUCT DateStruct(const CivilTime& t) {
  return {static_cast<SQLSMALLINT>(t.year), static_cast<SQLUSMALLINT>(t.month), static_cast<SQLUSMALLINT>(t.day)};
}

SQL_TIMESTAMP_STRUCT TimestampStruct(const CivilTime& t) {
  return {static_cast<SQLSMALLINT>(t.year),
          static_cast<SQLUSMALLINT>(t.month),
          static_cast<SQLUSMALLINT>(t.day),
          static_cast<SQLUSMALLINT>(t.hour),
          static_cast<SQLUSMALLINT>(t.minute),
          static_cast<SQLUSMALLINT>(t.second),
          static_cast<SQLUINTEGER>(t.millisecond) * 1000000U};
}

// A number that may have decimals; the driver receives it as a double, with 15 digits.
std::optional<double> Fraction(const Value& value) {
  if (value.Is<float>()) return value.As<float>();
  if (value.Is<double>()) return value.As<double>();
  if (value.Is<Currency>()) return values::ToDouble(values::ToDecimal(value.As<Currency>()));
  if (value.Is<Decimal>()) return values::ToDouble(value.As<Decimal>());
  return std::nullopt;
}

}  // namespace

BoundParameter::BoundParameter(const Parameter& parameter, bool textIsUtf8)
    : type_(parameter.type), size_(parameter.size), textIsUtf8_(textIsUtf8) {
  if (parameter.direction != ad::kParamInput) Raise(ControlError::kFeatureNotAvailable, kCommandSource);
  if (parameter.value.Is<Empty>()) Raise(ProviderFault::kParameterMissing);
  if (parameter.type == ad::kVariant) {
    value_ = parameter.value;
    return;
  }
  std::optional<Value> held = Coerce(parameter.value, parameter.type, parameter.size);
  if (!held) Raise(ControlError::kDataConversion, kCommandSource);
  value_ = std::move(*held);
}

SQLRETURN BoundParameter::BindText(SQLHSTMT statement, SQLUSMALLINT position, const std::wstring& text) {
  wide_ = values::ToUtf16(text);
  const SQLULEN size = std::max<SQLULEN>({static_cast<SQLULEN>(std::max<std::int64_t>(size_, 0)), wide_.size(), 1});
  const SQLSMALLINT sqlType = size > kLongestVarChar ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
  const auto bind = [&](SQLSMALLINT cType, auto& held) {
    indicator_ = static_cast<SQLLEN>(held.size() * sizeof held[0]);
    return SQLBindParameter(statement, position, SQL_PARAM_INPUT, cType, sqlType, size, 0, held.data(), indicator_,
                            &indicator_);
  };
  if (!textIsUtf8_) return bind(SQL_C_WCHAR, wide_);
  utf8_ = values::ToUtf8(text);
  return bind(SQL_C_CHAR, utf8_);
}

SQLRETURN BoundParameter::Bind(SQLHSTMT statement, SQLUSMALLINT position) {
  const auto bind = [&](SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits, auto& data) {
    indicator_ = sizeof data;
    return SQLBindParameter(statement, position, SQL_PARAM_INPUT, cType, sqlType, size, digits, &data, sizeof data,
                            &indicator_);
  };
  if (value_.Is<Null>()) {
    const SQLRETURN result = BindText(statement, position, {});
    indicator_ = SQL_NULL_DATA;
    return result;
  }
  if (value_.Is<bool>()) {
    bit_ = value_.As<bool>() ? 1 : 0;
    return bind(SQL_C_BIT, SQL_BIT, 1, 0, bit_);
  }
  if (value_.Is<std::int32_t>() || value_.Is<std::int64_t>()) {
    integer_ = value_.Is<std::int32_t>() ? value_.As<std::int32_t>() : value_.As<std::int64_t>();
    return bind(SQL_C_SBIGINT, SQL_BIGINT, 20, 0, integer_);
  }
  if (value_.Is<std::uint64_t>()) {
    integer_ = static_cast<SQLBIGINT>(value_.As<std::uint64_t>());
    return bind(SQL_C_UBIGINT, SQL_BIGINT, 20, 0, integer_);
  }
  if (const std::optional<double> fraction = Fraction(value_)) {
    number_ = *fraction;
    return bind(SQL_C_DOUBLE, SQL_DOUBLE, 15, 0, number_);
  }
  if (value_.Is<Date>() && type_ == ad::kDBDate) {
    date_ = DateStruct(CivilOf(value_.As<Date>()));
    return bind(SQL_C_TYPE_DATE, SQL_TYPE_DATE, 10, 0, date_);
  }
  if (value_.Is<Date>()) {
    timestamp_ = TimestampStruct(CivilOf(value_.As<Date>()));
    return bind(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 23, 3, timestamp_);
  }
  if (value_.Is<std::wstring>()) return BindText(statement, position, value_.As<std::wstring>());
  Raise(ControlError::kDataConversion, kCommandSource);
}

}  // namespace kodra::odbc
