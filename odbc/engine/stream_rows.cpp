#include "odbc/engine/stream_rows.h"

#include <algorithm>

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

// A block larger than this gains no speed worth its memory.
constexpr std::size_t kMostBytesPerBlock = 4U << 20;

}  // namespace

StreamRows::StreamRows(std::unique_ptr<Statement> statement, std::int32_t rowsPerBlock)
    : statement_(std::move(statement)) {
  Bind(rowsPerBlock);
  FetchBlock();
}

void StreamRows::Bind(std::int32_t rowsPerBlock) {
  const bool typesVary = statement_->Owner().TypesVaryByRow();
  bool oneByOne = typesVary;
  std::size_t rowBytes = 1;
  for (const Column& column : statement_->Columns()) {
    columns_.emplace_back(column, typesVary, statement_->Owner().TextIsUtf8());
    oneByOne = oneByOne || columns_.back().IsLong();
    rowBytes += columns_.back().CellBytes();
  }
  const std::size_t most = std::max<std::size_t>(kMostBytesPerBlock / rowBytes, 1);
  rowsPerBlock_ = oneByOne ? 1 : std::clamp<std::size_t>(static_cast<std::size_t>(rowsPerBlock), 1, most);
  SQLHSTMT handle = statement_->Handle();
  // A driver without blocks stays with one row, and then reports one row as fetched.
  SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, AsAttribute(rowsPerBlock_), 0);
  SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    columns_[i].Bind(*statement_, static_cast<SQLUSMALLINT>(i + 1), rowsPerBlock_);
  }
}

void StreamRows::FetchBlock() {
  firstOfBlock_ += static_cast<std::int64_t>(fetched_);
  row_ = 0;
  fetched_ = 0;
  const SQLRETURN result = statement_->Fetch();
  eof_ = !SQL_SUCCEEDED(result);
  if (eof_) fetched_ = 0;
  if (eof_ && result != SQL_NO_DATA) statement_->Fail(Stage::kFetch);
  if (eof_ || rowsPerBlock_ > 1) return;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    columns_[i].ReadLateCell(*statement_, static_cast<SQLUSMALLINT>(i + 1));
  }
}

void StreamRows::First() {
  if (firstOfBlock_ == 0 && row_ == 0) return;
  statement_->Execute();
  fetched_ = 0;
  firstOfBlock_ = 0;
  FetchBlock();
}

void StreamRows::Last() { Raise(ProviderFault::kCannotFetchBackward); }

void StreamRows::Move(std::int64_t count) {
  if (count < 0) Raise(ProviderFault::kCannotFetchBackward);
  for (; count > 0 && !eof_; --count) {
    if (row_ + 1 < fetched_) {
      ++row_;
    } else {
      FetchBlock();
    }
  }
}

std::int64_t StreamRows::Position() const { return eof_ ? ad::kPosEOF : ad::kPosUnknown; }

std::vector<std::vector<Value>> StreamRows::TakeRest() {
  std::vector<std::vector<Value>> rows;
  for (; !eof_; Move(1)) {
    std::vector<Value>& row = rows.emplace_back();
    row.reserve(columns_.size());
    for (const ColumnBuffer& column : columns_) row.push_back(column.Cell(row_));
  }
  return rows;
}

}  // namespace kodra::odbc
