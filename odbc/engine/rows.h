// The rows of an open recordset, as its moves visit them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "values/value.h"

namespace kodra::odbc {

class Rows {
 public:
  virtual ~Rows() = default;

  virtual bool Bof() const = 0;
  virtual bool Eof() const = 0;
  // Whether there is a row to read: false before the first, after the last and on a deleted one.
  virtual bool HasRow() const = 0;
  virtual void First() = 0;
  virtual void Last() = 0;
  // `count` rows forward, or backward when negative, stopping after the last or before the first.
  virtual void Move(std::int64_t count) = 0;
  // The number of rows; -1 when it is not known.
  virtual std::int64_t Count() const = 0;
  // The 1-based number of the current row, or one of ad::kPos….
  virtual std::int64_t Position() const = 0;
  // REQUIRES: HasRow(), and a column of the recordset.
  virtual Value Get(std::size_t column) const = 0;
};

}  // namespace kodra::odbc
