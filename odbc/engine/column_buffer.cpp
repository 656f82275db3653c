#include "odbc/engine/column_buffer.h"

#include <algorithm>
#include <cstring>

#include "odbc/engine/coercion.h"
#include "odbc/engine/dates.h"
#include "values/decimal.h"
#include "values/numbers.h"
#include "values/utf16.h"
#include "values/utf8.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

// Declared sizes up to this many characters or bytes are bound in full.
constexpr SQLULEN kLongestBound = 1000;
// The buffer size for a cell whose declared size has no meaning.
constexpr SQLULEN kLeastRoom = 63;
constexpr SQLULEN kMostRoom = 511;
constexpr SQLULEN kMostBytesOfACharacter = 4;

template <class T>
T Load(const std::byte* bytes) {
  T value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

// The cells begin on the heap and are an even number of bytes apart, so their units are aligned.
std::u16string_view Units(const std::byte* bytes, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(bytes), length / sizeof(char16_t)};
}

std::wstring Hexadecimal(const std::byte* bytes, std::size_t length) {
  constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
  std::wstring text;
  text.reserve(length * 2);
  for (std::size_t i = 0; i < length; ++i) {
    text.push_back(kDigits[std::to_integer<unsigned>(bytes[i]) >> 4]);
    text.push_back(kDigits[std::to_integer<unsigned>(bytes[i]) & 15]);
  }
  return text;
}

std::wstring Utf8Cell(const std::byte* bytes, std::size_t length) {
  return values::FromUtf8({reinterpret_cast<const char*>(bytes), length});
}

Value WholeNumber(std::int64_t number, std::int32_t type) {
  if (type == ad::kBigInt || type == ad::kUnsignedBigInt || type == ad::kUnsignedInt) return Value(number);
  const auto narrow = static_cast<std::int32_t>(number);
  return narrow == number ? Value(narrow) : Value(number);
}

// A single is read as a double too: MariaDB's driver reads some as a zero otherwise.
Value Floating(double number, std::int32_t type) {
  if (type != ad::kSingle) return number;
  return Coerce(number, type, 0).value_or(number);
}

bool IsWholeType(std::int32_t type) {
  return type == ad::kTinyInt || type == ad::kSmallInt || type == ad::kInteger || type == ad::kBigInt ||
         type == ad::kUnsignedTinyInt || type == ad::kUnsignedSmallInt || type == ad::kUnsignedInt ||
         type == ad::kUnsignedBigInt;
}

bool IsDecimalType(std::int32_t type) { return type == ad::kNumeric || type == ad::kDecimal; }

// A decimal with all its digits, or the double nearest to it when it is too large.
std::optional<Value> ParsedDecimal(std::wstring text) {
  // A driver may write the decimal comma of the session's language; it never groups digits.
  std::ranges::replace(text, L',', L'.');
  if (const std::optional<Decimal> number = values::ParseDecimal(text)) return Value(*number);
  return Coerce(Value(std::move(text)), ad::kDouble, 0);
}

// A double, or a whole number beyond 2^53, of which a double would lose digits.
std::optional<Value> ParsedFloating(const Value& text, std::int32_t type) {
  constexpr std::int64_t kMostOfADouble = std::int64_t{1} << 53;
  const std::optional<Value> number = values::ParseInvariantNumber(text.As<std::wstring>());
  const bool isLarge = number && (number->Is<std::uint64_t>() ||
                                  (number->Is<std::int64_t>() && (number->As<std::int64_t>() > kMostOfADouble ||
                                                                  number->As<std::int64_t>() < -kMostOfADouble)));
  return isLarge ? number : Coerce(text, type, 0);
}

// The value of a text in a column of the type; nothing when it has no value of that type.
std::optional<Value> Parsed(const Value& text, std::int32_t type) {
  if (IsWholeType(type)) {
    std::optional<Value> number = values::ParseInvariantNumber(text.As<std::wstring>());
    if (number && number->Is<std::int32_t>()) return WholeNumber(number->As<std::int32_t>(), type);
    return number;
  }
  if (IsDecimalType(type)) return ParsedDecimal(text.As<std::wstring>());
  if (type == ad::kSingle || type == ad::kDouble) return ParsedFloating(text, type);
  return Coerce(text, type, 0);
}

// Reads a whole cell from the driver into `bytes`; false for a null.
bool ReadWhole(const Statement& statement, SQLUSMALLINT number, SQLSMALLINT cType, std::vector<std::byte>& bytes) {
  const std::size_t terminator = cType == SQL_C_WCHAR ? sizeof(SQLWCHAR) : cType == SQL_C_CHAR ? sizeof(SQLCHAR) : 0;
  std::size_t filled = 0;
  bytes.resize(4096);
  for (;;) {
    const std::size_t room = bytes.size() - filled;
    SQLLEN left = 0;
    const SQLRETURN result =
        SQLGetData(statement.Handle(), number, cType, bytes.data() + filled, static_cast<SQLLEN>(room), &left);
    if (result == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(result)) statement.Fail(Stage::kFetch);
    if (left == SQL_NULL_DATA) return false;
    const std::size_t usable = room - terminator;
    const bool cut = left == SQL_NO_TOTAL || static_cast<std::size_t>(left) > usable;
    filled += cut ? usable : static_cast<std::size_t>(left);
    if (!cut) break;
    const std::size_t more = left == SQL_NO_TOTAL ? bytes.size() : static_cast<std::size_t>(left) - usable;
    bytes.resize(filled + more + terminator);
  }
  bytes.resize(filled);
  return true;
}

CivilTime Civil(const SQL_DATE_STRUCT& d) { return {d.year, d.month, d.day, 0, 0, 0, 0}; }

CivilTime Civil(const SQL_TIMESTAMP_STRUCT& t) {
  return {t.year, t.month, t.day, t.hour, t.minute, t.second, static_cast<std::int32_t>(t.fraction / 1000000)};
}

// A "zero date", which some systems store for a missing one, has no month. Another day that does not exist, as the one
// without a number that MySQL stores for a month, keeps its parts as text.
Value DateCell(const CivilTime& time) {
  if (time.month == 0) return Null{};
  return IsDay(time) ? Value(DateOf(time)) : Value(IsoText(time));
}

}  // namespace

ColumnBuffer::ColumnBuffer(const Column& column, bool typesVaryByRow, bool textIsUtf8)
    : adoType_(column.info.type), isNarrow_(typesVaryByRow) {
  ChooseWire(column, typesVaryByRow, textIsUtf8);
  switch (wire_) {
    case Wire::kText:
    case Wire::kParsedText: {
      // A character may need two units.
      const SQLULEN units =
          typesVaryByRow ? std::clamp(column.size, kLeastRoom, kMostRoom) : std::max(column.size, kLeastRoom / 2) * 2;
      long_ = !typesVaryByRow && (column.size == 0 || column.size > kLongestBound);
      cellBytes_ = long_ ? 0 : (units + 1) * UnitBytes();
      break;
    }
    case Wire::kUtf8:
      long_ = column.size == 0 || column.size > kLongestBound;
      cellBytes_ = long_ ? 0 : column.size * kMostBytesOfACharacter;
      break;
    case Wire::kBinary:
      long_ = typesVaryByRow || column.size == 0 || column.size > kLongestBound;
      cellBytes_ = long_ ? 0 : column.size;
      break;
    case Wire::kInteger:
    case Wire::kDouble:
      cellBytes_ = 8;
      break;
    case Wire::kBit:
      cellBytes_ = 1;
      break;
    case Wire::kDate:
      cellBytes_ = sizeof(SQL_DATE_STRUCT);
      break;
    case Wire::kTime:
      cellBytes_ = sizeof(SQL_TIME_STRUCT);
      break;
    case Wire::kTimestamp:
      cellBytes_ = sizeof(SQL_TIMESTAMP_STRUCT);
      break;
  }
}

void ColumnBuffer::ChooseWire(const Column& column, bool typesVaryByRow, bool textIsUtf8) {
  const std::int32_t type = column.info.type;
  if (IsBinaryType(type)) {
    wire_ = Wire::kBinary;
  } else if (IsTextType(type)) {
    wire_ = textIsUtf8 ? Wire::kUtf8 : Wire::kText;
  } else if (typesVaryByRow || type == ad::kUnsignedBigInt || IsDecimalType(type)) {
    wire_ = Wire::kParsedText;
  } else if (IsWholeType(type)) {
    wire_ = Wire::kInteger;
  } else if (type == ad::kBoolean) {
    wire_ = Wire::kBit;
  } else if (type == ad::kDBDate) {
    wire_ = Wire::kDate;
  } else if (type == ad::kDBTime) {
    wire_ = Wire::kTime;
  } else if (type == ad::kDBTimeStamp) {
    wire_ = Wire::kTimestamp;
  } else {
    wire_ = Wire::kDouble;
  }
}

SQLSMALLINT ColumnBuffer::CType() const {
  switch (wire_) {
    case Wire::kInteger:
      return SQL_C_SBIGINT;
    case Wire::kDouble:
      return SQL_C_DOUBLE;
    case Wire::kBit:
      return SQL_C_BIT;
    case Wire::kDate:
      return SQL_C_TYPE_DATE;
    case Wire::kTime:
      return SQL_C_TYPE_TIME;
    case Wire::kTimestamp:
      return SQL_C_TYPE_TIMESTAMP;
    case Wire::kBinary:
    case Wire::kUtf8:  // the driver's own encoding: nothing is converted on the way
      return SQL_C_BINARY;
    case Wire::kText:
    case Wire::kParsedText:
      break;
  }
  return isNarrow_ ? SQL_C_CHAR : SQL_C_WCHAR;
}

void ColumnBuffer::Bind(const Statement& statement, SQLUSMALLINT number, std::size_t rows) {
  if (long_) return;
  cells_.resize(cellBytes_ * rows);
  lengths_.resize(rows);
  const SQLRETURN result =
      SQLBindCol(statement.Handle(), number, CType(), cells_.data(), static_cast<SQLLEN>(cellBytes_), lengths_.data());
  if (!SQL_SUCCEEDED(result)) statement.Fail(Stage::kFetch);
}

void ColumnBuffer::ReadLateCell(const Statement& statement, SQLUSMALLINT number) {
  late_.reset();
  const bool text = wire_ == Wire::kText || wire_ == Wire::kParsedText;
  const bool cutOff = !long_ && text && lengths_[0] != SQL_NULL_DATA &&
                      (lengths_[0] == SQL_NO_TOTAL || static_cast<std::size_t>(lengths_[0]) > cellBytes_ - UnitBytes());
  if (!long_ && !cutOff) return;
  late_.emplace();
  lateIsNull_ = !ReadWhole(statement, number, CType(), *late_);
}

Value ColumnBuffer::VaryingCell(const std::byte* bytes, std::size_t length) const {
  if (wire_ == Wire::kBinary) return Hexadecimal(bytes, length);
  if (wire_ == Wire::kUtf8) return Utf8Cell(bytes, length);
  std::wstring text = isNarrow_ ? Utf8Cell(bytes, length) : values::FromUtf16(Units(bytes, length));
  if (wire_ == Wire::kText) return text;
  Value unparsed(std::move(text));
  std::optional<Value> value = Parsed(unparsed, adoType_);
  return value ? std::move(*value) : std::move(unparsed);
}

Value ColumnBuffer::Cell(std::size_t row) const {
  if (late_) return lateIsNull_ ? Value(Null{}) : VaryingCell(late_->data(), late_->size());
  const SQLLEN length = lengths_[row];
  if (length == SQL_NULL_DATA) return Null{};
  const std::byte* const bytes = cells_.data() + row * cellBytes_;
  const bool isText = wire_ == Wire::kText || wire_ == Wire::kParsedText;
  if (!isText && wire_ != Wire::kUtf8 && wire_ != Wire::kBinary) return FixedCell(bytes);
  const std::size_t room = isText ? cellBytes_ - UnitBytes() : cellBytes_;
  return VaryingCell(bytes, std::min(static_cast<std::size_t>(length), room));
}

Value ColumnBuffer::FixedCell(const std::byte* bytes) const {
  switch (wire_) {
    case Wire::kInteger:
      return WholeNumber(Load<SQLBIGINT>(bytes), adoType_);
    case Wire::kBit:
      return std::to_integer<int>(bytes[0]) != 0;
    case Wire::kDate:
      return DateCell(Civil(Load<SQL_DATE_STRUCT>(bytes)));
    case Wire::kTimestamp:
      return DateCell(Civil(Load<SQL_TIMESTAMP_STRUCT>(bytes)));
    case Wire::kTime: {
      const auto time = Load<SQL_TIME_STRUCT>(bytes);
      return Date{((time.hour * 60.0 + time.minute) * 60.0 + time.second) / 86400.0};
    }
    default:
      return Floating(Load<double>(bytes), adoType_);
  }
}

}  // namespace kodra::odbc
