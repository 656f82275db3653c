#include "odbc/engine/memory_rows.h"

#include <algorithm>
#include <utility>

namespace kodra::odbc {

namespace ad = platform::ad;

MemoryRows::MemoryRows(std::vector<Row> rows) : rows_(std::move(rows)), position_(0) {}

bool MemoryRows::Bof() const {
  if (editMode_ == ad::kEditAdd) return false;
  return !deleted_ && (rows_.empty() || position_ < 0);
}

bool MemoryRows::Eof() const {
  if (editMode_ == ad::kEditAdd) return false;
  return !deleted_ && (rows_.empty() || position_ >= Count());
}

bool MemoryRows::HasRow() const {
  return editMode_ == ad::kEditAdd || (!deleted_ && position_ >= 0 && position_ < Count());
}

void MemoryRows::First() {
  deleted_ = false;
  position_ = 0;
}

void MemoryRows::Last() {
  deleted_ = false;
  position_ = std::max<std::int64_t>(Count() - 1, 0);
}

void MemoryRows::Move(std::int64_t count) {
  // The row after the gap is already at this position.
  if (std::exchange(deleted_, false) && count > 0) --count;
  position_ = std::clamp<std::int64_t>(position_ + count, -1, Count());
}

std::int64_t MemoryRows::Position() const {
  if (editMode_ == ad::kEditAdd) return Count() + 1;
  if (rows_.empty() || deleted_) return ad::kPosUnknown;
  if (position_ < 0) return ad::kPosBOF;
  return position_ >= Count() ? ad::kPosEOF : position_ + 1;
}

Value MemoryRows::Get(std::size_t column) const {
  return editMode_ == ad::kEditNone ? rows_[static_cast<std::size_t>(position_)][column] : edited_[column];
}

void MemoryRows::StartRow(Row initial) {
  deleted_ = false;
  edited_ = std::move(initial);
  editMode_ = ad::kEditAdd;
}

void MemoryRows::Set(std::size_t column, Value value) {
  if (editMode_ == ad::kEditNone) {
    edited_ = rows_[static_cast<std::size_t>(position_)];
    editMode_ = ad::kEditInProgress;
  }
  edited_[column] = std::move(value);
}

void MemoryRows::Commit() {
  if (editMode_ == ad::kEditAdd) {
    rows_.push_back(std::move(edited_));
    position_ = Count() - 1;
  } else if (editMode_ == ad::kEditInProgress) {
    rows_[static_cast<std::size_t>(position_)] = std::move(edited_);
  }
  editMode_ = ad::kEditNone;
}

void MemoryRows::Cancel() { editMode_ = ad::kEditNone; }

void MemoryRows::Delete() {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(position_));
  deleted_ = true;
}

}  // namespace kodra::odbc
