// Rows in memory, with one edit at a time, for a disconnected or client-side recordset.
#pragma once

#include <vector>

#include "odbc/engine/rows.h"
#include "odbc/engine/types.h"

namespace kodra::odbc {

namespace ad = platform::ad;

class MemoryRows : public Rows {
 public:
  using Row = std::vector<Value>;

  // Starts on the first row, or at both ends when there is none.
  explicit MemoryRows(std::vector<Row> rows);

  bool Bof() const override;
  bool Eof() const override;
  bool HasRow() const override;
  void First() override;
  void Last() override;
  void Move(std::int64_t count) override;
  std::int64_t Count() const override { return static_cast<std::int64_t>(rows_.size()); }
  std::int64_t Position() const override;
  // During an edit, the edited value.
  Value Get(std::size_t column) const override;

  // ad::kEditNone, ad::kEditInProgress or ad::kEditAdd.
  std::int32_t EditMode() const { return editMode_; }
  // Starts a row that Commit adds at the end. REQUIRES: no edit under way.
  void StartRow(Row initial);
  // Writes into the edit under way, which starts here when there is none. REQUIRES: HasRow().
  void Set(std::size_t column, Value value);
  // Ends the edit; a new row becomes the current one. Does nothing without an edit.
  void Commit();
  void Cancel();
  // Removes the current row; the next move starts from the gap. REQUIRES: HasRow(), no edit under way.
  void Delete();

 private:
  std::vector<Row> rows_;
  std::int64_t position_;  // 0-based; -1 before the first, Count() after the last
  bool deleted_ = false;   // position_ is the gap that a deletion left
  Row edited_;
  std::int32_t editMode_ = ad::kEditNone;
};

}  // namespace kodra::odbc
