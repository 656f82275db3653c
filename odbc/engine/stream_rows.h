// Rows read from the driver in blocks, once and in order, for a server-side forward-only recordset.
//
// Memory is one block of bound columns. A column of unbounded length, or a driver whose sizes are not binding, reduces
// a block to one row, so that a cell can be read on its own.
#pragma once

#include <memory>
#include <vector>

#include "odbc/engine/column_buffer.h"
#include "odbc/engine/rows.h"
#include "odbc/engine/statement.h"

namespace kodra::odbc {

class StreamRows : public Rows {
 public:
  // Takes a statement that has run and returns rows; starts on the first one.
  StreamRows(std::unique_ptr<Statement> statement, std::int32_t rowsPerBlock);

  bool Bof() const override { return eof_ && firstOfBlock_ == 0; }
  bool Eof() const override { return eof_; }
  bool HasRow() const override { return !eof_; }
  // Runs the statement again, unless the first row is still the current one.
  void First() override;
  // Raises 80040E24, as does a move backward.
  void Last() override;
  void Move(std::int64_t count) override;
  std::int64_t Count() const override { return -1; }
  std::int64_t Position() const override;
  Value Get(std::size_t column) const override { return columns_[column].Cell(row_); }

  // Every row from the current one on.
  std::vector<std::vector<Value>> TakeRest();

 private:
  void Bind(std::int32_t rowsPerBlock);
  void FetchBlock();

  std::unique_ptr<Statement> statement_;
  std::vector<ColumnBuffer> columns_;
  std::size_t rowsPerBlock_ = 1;
  SQLULEN fetched_ = 0;            // rows of the current block
  std::size_t row_ = 0;            // the current row, within the block
  std::int64_t firstOfBlock_ = 0;  // rows before this block
  bool eof_ = false;
};

}  // namespace kodra::odbc
