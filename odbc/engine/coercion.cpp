#include "odbc/engine/coercion.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "odbc/engine/dates.h"
#include "odbc/engine/types.h"
#include "values/dates.h"
#include "values/decimal.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

std::optional<double> AsNumber(const Value& value) {
  if (value.Is<Empty>()) return 0.0;
  if (value.Is<bool>()) return value.As<bool>() ? -1.0 : 0.0;
  if (value.Is<std::int32_t>()) return value.As<std::int32_t>();
  if (value.Is<std::int64_t>()) return static_cast<double>(value.As<std::int64_t>());
  if (value.Is<std::uint64_t>()) return static_cast<double>(value.As<std::uint64_t>());
  if (value.Is<float>()) return value.As<float>();
  if (value.Is<double>()) return value.As<double>();
  if (value.Is<Currency>()) return values::ToDouble(values::ToDecimal(value.As<Currency>()));
  if (value.Is<Decimal>()) return values::ToDouble(value.As<Decimal>());
  if (value.Is<Date>()) return value.As<Date>().days;
  if (value.Is<std::wstring>()) {
    const std::optional<Value> number = values::ParseInvariantNumber(value.As<std::wstring>());
    return number ? AsNumber(*number) : std::nullopt;
  }
  return std::nullopt;
}

// Whole numbers and decimals keep all their digits; other fractions pass through double.
std::optional<std::int64_t> AsInteger(const Value& value) {
  if (value.Is<std::int64_t>()) return value.As<std::int64_t>();
  if (value.Is<Currency>()) return values::RoundToInteger(values::ToDecimal(value.As<Currency>()));
  if (value.Is<Decimal>()) return values::RoundToInteger(value.As<Decimal>());
  if (value.Is<std::wstring>()) {
    const std::optional<Value> number = values::ParseInvariantNumber(value.As<std::wstring>());
    return number ? AsInteger(*number) : std::nullopt;
  }
  const std::optional<double> number = AsNumber(value);
  constexpr double kTwoTo63 = 9223372036854775808.0;
  if (!number || !(std::nearbyint(*number) >= -kTwoTo63 && std::nearbyint(*number) < kTwoTo63)) return std::nullopt;
  return static_cast<std::int64_t>(std::nearbyint(*number));
}

std::optional<Value> AsUnsignedBigInteger(const Value& value) {
  if (value.Is<std::uint64_t>()) return value;
  if (value.Is<std::wstring>()) {
    const std::optional<Value> number = values::ParseInvariantNumber(value.As<std::wstring>());
    return number ? AsUnsignedBigInteger(*number) : std::nullopt;
  }
  const std::optional<std::int64_t> number = AsInteger(value);
  if (!number || *number < 0) return std::nullopt;
  return Value(*number);
}

template <class Wire>
std::optional<Value> Within(std::optional<std::int64_t> number) {
  if (!number || *number < static_cast<std::int64_t>(std::numeric_limits<Wire>::min()) ||
      *number > static_cast<std::int64_t>(std::numeric_limits<Wire>::max())) {
    return std::nullopt;
  }
  if constexpr (sizeof(Wire) < 4 || std::is_same_v<Wire, std::int32_t>) {
    return Value(static_cast<std::int32_t>(*number));
  } else {
    return Value(*number);
  }
}

std::optional<Value> AsBoolean(const Value& value) {
  if (value.Is<bool>()) return value;
  if (value.Is<std::wstring>()) {
    if (values::EqualIgnoringCase(value.As<std::wstring>(), L"True")) return Value(true);
    if (values::EqualIgnoringCase(value.As<std::wstring>(), L"False")) return Value(false);
  }
  const std::optional<double> number = AsNumber(value);
  return number ? std::optional<Value>(Value(*number != 0)) : std::nullopt;
}

std::optional<Value> AsSingle(const Value& value) {
  const std::optional<double> number = AsNumber(value);
  if (!number) return std::nullopt;
  const auto narrow = static_cast<float>(*number);
  if (std::isinf(narrow) && !std::isinf(*number)) return std::nullopt;
  return Value(narrow);
}

std::optional<Value> AsDouble(const Value& value) {
  const std::optional<double> number = AsNumber(value);
  return number ? std::optional<Value>(*number) : std::nullopt;
}

// The fewest digits that identify the number among those of its type.
template <class Floating, class... Format>
std::wstring NumberText(Floating number, Format... format) {
  char text[400];  // the longest without an exponent has 309 digits
  const auto end = std::to_chars(text, text + sizeof text, number, format...).ptr;
  return {text, end};
}

std::optional<Decimal> AsDecimal(const Value& value) {
  if (value.Is<Decimal>()) return value.As<Decimal>();
  if (value.Is<Currency>()) return values::ToDecimal(value.As<Currency>());
  if (value.Is<std::int64_t>()) return values::ParseDecimal(std::to_wstring(value.As<std::int64_t>()));
  if (value.Is<std::uint64_t>()) return values::ParseDecimal(std::to_wstring(value.As<std::uint64_t>()));
  if (value.Is<float>()) return values::ParseDecimal(NumberText(value.As<float>(), std::chars_format::fixed));
  if (value.Is<std::wstring>()) {
    if (const std::optional<Decimal> number = values::ParseDecimal(value.As<std::wstring>())) return number;
  }
  const std::optional<double> number = AsNumber(value);
  return number ? values::ParseDecimal(NumberText(*number, std::chars_format::fixed)) : std::nullopt;
}

std::optional<Value> AsDecimalOrCurrency(const Value& value, std::int32_t type) {
  const std::optional<Decimal> number = AsDecimal(value);
  if (!number) return std::nullopt;
  if (type != ad::kCurrency) return Value(*number);
  const std::optional<Currency> amount = values::ToCurrency(*number);
  return amount ? std::optional<Value>(*amount) : std::nullopt;
}

std::optional<Value> AsDate(const Value& value, std::int32_t type) {
  std::optional<Date> date;
  if (value.Is<std::wstring>()) {
    date = ParseIsoDate(value.As<std::wstring>());
  } else if (const std::optional<double> number = AsNumber(value)) {
    date = Date{*number};
  }
  if (!date || !(date->days > values::kFirstDay - 1 && date->days < values::kLastDay + 1)) return std::nullopt;
  if (type == ad::kDBDate) date->days = std::trunc(date->days);
  if (type == ad::kDBTime) date->days = std::abs(date->days - std::trunc(date->days));
  return Value(*date);
}

std::optional<Value> AsText(const Value& value, std::int64_t size) {
  std::wstring text;
  if (value.Is<std::wstring>()) {
    text = value.As<std::wstring>();
  } else if (value.Is<bool>()) {
    text = value.As<bool>() ? L"True" : L"False";
  } else if (value.Is<std::int32_t>()) {
    text = std::to_wstring(value.As<std::int32_t>());
  } else if (value.Is<std::int64_t>()) {
    text = std::to_wstring(value.As<std::int64_t>());
  } else if (value.Is<std::uint64_t>()) {
    text = std::to_wstring(value.As<std::uint64_t>());
  } else if (value.Is<float>()) {
    text = NumberText(value.As<float>());
  } else if (value.Is<double>()) {
    text = NumberText(value.As<double>());
  } else if (value.Is<Currency>()) {
    text = values::PlainText(values::ToDecimal(value.As<Currency>()));
  } else if (value.Is<Decimal>()) {
    text = values::PlainText(value.As<Decimal>());
  } else if (value.Is<Date>()) {
    text = IsoDate(value.As<Date>());
  } else if (!value.Is<Empty>()) {
    return std::nullopt;
  }
  if (size > 0 && static_cast<std::int64_t>(text.size()) > size) return std::nullopt;
  return Value(std::move(text));
}

}  // namespace

bool IsTextType(std::int32_t type) {
  return type == ad::kChar || type == ad::kWChar || type == ad::kVarChar || type == ad::kVarWChar ||
         type == ad::kLongVarChar || type == ad::kLongVarWChar || type == ad::kBSTR || type == ad::kGUID;
}

bool IsLongType(std::int32_t type) {
  return type == ad::kLongVarChar || type == ad::kLongVarWChar || type == ad::kBSTR || type == ad::kLongVarBinary;
}

bool IsBinaryType(std::int32_t type) {
  return type == ad::kBinary || type == ad::kVarBinary || type == ad::kLongVarBinary;
}

std::int64_t FixedSize(std::int32_t type) {
  switch (type) {
    case ad::kTinyInt:
    case ad::kUnsignedTinyInt:
      return 1;
    case ad::kSmallInt:
    case ad::kUnsignedSmallInt:
    case ad::kBoolean:
      return 2;
    case ad::kInteger:
    case ad::kUnsignedInt:
    case ad::kSingle:
      return 4;
    case ad::kDBDate:
    case ad::kDBTime:
      return 6;
    case ad::kDouble:
    case ad::kBigInt:
    case ad::kUnsignedBigInt:
    case ad::kCurrency:
    case ad::kDate:
      return 8;
    case ad::kDBTimeStamp:
    case ad::kDecimal:
      return 16;
    case ad::kNumeric:
      return 19;
    default:
      return 0;
  }
}

std::optional<Value> Coerce(const Value& value, std::int32_t type, std::int64_t size) {
  if (value.Is<Null>()) return value;
  if (IsTextType(type) || IsBinaryType(type)) return AsText(value, size);
  switch (type) {
    case ad::kBoolean:
      return AsBoolean(value);
    case ad::kTinyInt:
      return Within<std::int8_t>(AsInteger(value));
    case ad::kUnsignedTinyInt:
      return Within<std::uint8_t>(AsInteger(value));
    case ad::kSmallInt:
      return Within<std::int16_t>(AsInteger(value));
    case ad::kUnsignedSmallInt:
      return Within<std::uint16_t>(AsInteger(value));
    case ad::kInteger:
      return Within<std::int32_t>(AsInteger(value));
    case ad::kUnsignedInt:
      return Within<std::uint32_t>(AsInteger(value));
    case ad::kBigInt:
      return Within<std::int64_t>(AsInteger(value));
    case ad::kUnsignedBigInt:
      return AsUnsignedBigInteger(value);
    case ad::kSingle:
      return AsSingle(value);
    case ad::kDouble:
      return AsDouble(value);
    case ad::kCurrency:
    case ad::kDecimal:
    case ad::kNumeric:
      return AsDecimalOrCurrency(value, type);
    case ad::kDate:
    case ad::kDBDate:
    case ad::kDBTime:
    case ad::kDBTimeStamp:
      return AsDate(value, type);
    default:
      return std::nullopt;
  }
}

}  // namespace kodra::odbc
