// One column of a result: the memory that the driver writes a block of its cells into, and the cells as Values.
//
//   integers            int32; int64 for adUnsignedInt and adBigInt, uint64 for adUnsignedBigInt beyond it
//   single, double      float, double
//   decimal, numeric    Decimal; decimals beyond its digits are rounded, and a whole part beyond them makes it a double
//   character data      text of any length
//   bit                 bool
//   date, time, stamp   Date; text for a day that does not exist (2024-05-00), Null for one without a month
//   binary              text, with two hexadecimal digits per byte
//   null                Null
//
// Where types vary by row (driver_quirks.h) a cell is read as text, and the text as a value of the column's type. A
// cell that is not of that type keeps its own: a whole number beyond 32 bits is int64, in a column of doubles beyond
// 2^53; a fraction in an integer column double; "amanhã" in a date column text.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "odbc/engine/statement.h"

namespace kodra::odbc {

class ColumnBuffer {
 public:
  // See driver_quirks.h.
  ColumnBuffer(const Column& column, bool typesVaryByRow, bool textIsUtf8);

  // Whether a cell may be longer than any buffer worth binding: it is then read on its own, which needs blocks of one
  // row.
  bool IsLong() const { return long_; }
  std::size_t CellBytes() const { return cellBytes_; }

  // Binds the column (counted from 1) for blocks of `rows`. A long one is left unbound.
  void Bind(const Statement& statement, SQLUSMALLINT number, std::size_t rows);
  // After the fetch of a block of one row: reads a cell that is long, or that its buffer cut off.
  void ReadLateCell(const Statement& statement, SQLUSMALLINT number);
  // REQUIRES: a row of the block fetched last.
  Value Cell(std::size_t row) const;

 private:
  enum class Wire { kText, kUtf8, kParsedText, kInteger, kDouble, kBit, kDate, kTime, kTimestamp, kBinary };

  void ChooseWire(const Column& column, bool typesVaryByRow, bool textIsUtf8);
  SQLSMALLINT CType() const;
  // Of a text that is not Wire::kUtf8.
  std::size_t UnitBytes() const { return isNarrow_ ? sizeof(SQLCHAR) : sizeof(SQLWCHAR); }
  // The value of a cell of text or binary data.
  Value VaryingCell(const std::byte* bytes, std::size_t length) const;
  Value FixedCell(const std::byte* bytes) const;

  Wire wire_ = Wire::kText;
  std::int32_t adoType_;
  bool isNarrow_;  // whether Wire::kText and kParsedText are the driver's narrow text, in UTF-8
  bool long_ = false;
  std::size_t cellBytes_ = 0;
  std::vector<std::byte> cells_;
  std::vector<SQLLEN> lengths_;
  // The cell that was read on its own, as the driver wrote it: as a Value a long text would take twice the memory.
  std::optional<std::vector<std::byte>> late_;
  bool lateIsNull_ = false;
};

}  // namespace kodra::odbc
