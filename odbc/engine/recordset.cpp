#include "odbc/engine/recordset.h"

#include <algorithm>

#include "odbc/engine/coercion.h"
#include "odbc/engine/errors.h"
#include "odbc/engine/memory_rows.h"
#include "odbc/engine/session.h"
#include "values/upper.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

constexpr std::int32_t kNullable = ad::kFldIsNullable | ad::kFldMayBeNull;

class RecordsetField : public platform::Field {
 public:
  RecordsetField(Recordset& recordset, std::int32_t index) : recordset_(recordset), index_(index) {}
  Value Get() override { return recordset_.FieldValue(index_); }
  void Let(const Value& value) override { recordset_.SetFieldValue(index_, value); }

 private:
  Recordset& recordset_;
  std::int32_t index_;
};

}  // namespace

Recordset::Recordset() = default;

Recordset::~Recordset() {
  if (rows_) DropRows();
}

void Recordset::RequireOpen(std::wstring_view source) const {
  if (!rows_) Raise(ControlError::kObjectClosed, source);
}

void Recordset::RequireClosed() const {
  if (rows_) Raise(ControlError::kObjectOpen, kRecordsetSource);
}

void Recordset::RequireUpdatable() const {
  if (!IsUpdatable()) Raise(ControlError::kFeatureNotAvailable, kRecordsetSource);
}

void Recordset::RequireRow(std::wstring_view source) const {
  if (!rows_->HasRow()) Raise(ControlError::kNoCurrentRecord, source);
}

std::size_t Recordset::Column(std::int32_t index) const {
  if (index < 0 || index >= FieldCount()) Raise(ControlError::kItemNotFound, kFieldsSource);
  return static_cast<std::size_t>(index);
}

void Recordset::SetCursorLocation(std::int32_t location) {
  RequireClosed();
  if (location != ad::kUseServer && location != ad::kUseClient) {
    Raise(ControlError::kInvalidArgument, kRecordsetSource);
  }
  cursorLocation_ = location;
  cursorLocationSet_ = true;
}

void Recordset::SetCursorType(std::int32_t type) {
  RequireClosed();
  if (type < ad::kOpenForwardOnly || type > ad::kOpenStatic) Raise(ControlError::kInvalidArgument, kRecordsetSource);
  cursorType_ = type;
}

void Recordset::SetLockType(std::int32_t type) {
  RequireClosed();
  if (type < ad::kLockReadOnly || type > ad::kLockBatchOptimistic) {
    Raise(ControlError::kInvalidArgument, kRecordsetSource);
  }
  lockType_ = type;
}

void Recordset::SetCacheSize(std::int32_t rows) {
  if (rows < 1) Raise(ControlError::kInvalidArgument, kRecordsetSource);
  cacheSize_ = rows;
}

void Recordset::SetMaxRecords(std::int32_t rows) {
  RequireClosed();
  if (rows < 0) Raise(ControlError::kInvalidArgument, kRecordsetSource);
  maxRecords_ = rows;
}

void Recordset::SetSource(const std::wstring& statement) {
  RequireClosed();
  source_ = statement;
}

std::int32_t Recordset::State() { return rows_ ? ad::kStateOpen : ad::kStateClosed; }

bool Recordset::Bof() {
  RequireOpen(kRecordsetSource);
  return rows_->Bof();
}

bool Recordset::Eof() {
  RequireOpen(kRecordsetSource);
  return rows_->Eof();
}

void Recordset::MoveFirst() {
  RequireOpen(kRecordsetSource);
  FinishEdit();
  if (rows_->Bof() && rows_->Eof()) Raise(ControlError::kNoCurrentRecord, kRecordsetSource);
  rows_->First();
}

void Recordset::MoveLast() {
  RequireOpen(kRecordsetSource);
  FinishEdit();
  if (rows_->Bof() && rows_->Eof()) Raise(ControlError::kNoCurrentRecord, kRecordsetSource);
  rows_->Last();
}

void Recordset::MoveNext() { Move(1); }

void Recordset::MovePrevious() { Move(-1); }

void Recordset::Move(std::int64_t count) {
  RequireOpen(kRecordsetSource);
  FinishEdit();
  if (count == 0) return;
  if (count > 0 ? rows_->Eof() : rows_->Bof()) Raise(ControlError::kNoCurrentRecord, kRecordsetSource);
  rows_->Move(count);
}

std::int64_t Recordset::RecordCount() {
  RequireOpen(kRecordsetSource);
  return rows_->Count();
}

std::int64_t Recordset::AbsolutePosition() {
  RequireOpen(kRecordsetSource);
  return rows_->Position();
}

void Recordset::SetAbsolutePosition(std::int64_t position) {
  RequireOpen(kRecordsetSource);
  if (memory_ == nullptr) Raise(ProviderFault::kCannotFetchBackward);
  FinishEdit();
  if (position < 1 || position > rows_->Count()) Raise(ControlError::kInvalidArgument, kRecordsetSource);
  rows_->First();
  rows_->Move(position - 1);
}

void Recordset::AppendField(const std::wstring& name, std::int32_t type, std::int32_t definedSize,
                            std::int32_t attributes) {
  if (rows_ || session_) Raise(ControlError::kIllegalOperation, kFieldsSource);
  const bool variable = IsTextType(type) || IsBinaryType(type);
  const bool unsized = variable && !IsLongType(type) && definedSize <= 0;
  if ((!variable && FixedSize(type) == 0) || unsized) Raise(ControlError::kInvalidArgument, kFieldsSource);
  const bool taken = std::any_of(fields_.begin(), fields_.end(),
                                 [&](const FieldInfo& field) { return values::EqualIgnoringCase(field.name, name); });
  if (taken) Raise(ControlError::kObjectInCollection, kFieldsSource);

  FieldInfo field;
  field.name = name;
  field.type = type;
  field.definedSize = variable ? std::max(definedSize, 0) : FixedSize(type);
  const std::int32_t fixed = variable ? 0 : ad::kFldFixed;
  const std::int32_t isLong = IsLongType(type) ? ad::kFldLong : 0;
  field.attributes = attributes == ad::kUnspecified ? ad::kFldUpdatable | fixed | isLong : attributes | fixed | isLong;
  fields_.push_back(std::move(field));
  appended_ = true;
}

std::int32_t Recordset::FieldCount() const { return static_cast<std::int32_t>(fields_.size()); }

const FieldInfo& Recordset::FieldAt(std::int32_t index) const { return fields_[Column(index)]; }

std::int32_t Recordset::FieldIndex(const std::wstring& name) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&](const FieldInfo& field) { return values::EqualIgnoringCase(field.name, name); });
  if (found == fields_.end()) Raise(ControlError::kItemNotFound, kFieldsSource);
  return static_cast<std::int32_t>(found - fields_.begin());
}

std::vector<platform::Column> Recordset::Columns() {
  std::vector<platform::Column> columns;
  columns.reserve(static_cast<std::size_t>(FieldCount()));
  for (std::int32_t i = 0; i < FieldCount(); ++i)
    columns.push_back({FieldAt(i).name, FieldAt(i).type, std::make_unique<RecordsetField>(*this, i)});
  return columns;
}

std::unique_ptr<platform::Field> Recordset::FieldByName(const std::wstring& name) {
  return std::make_unique<RecordsetField>(*this, FieldIndex(name));
}

Value Recordset::FieldValue(std::int32_t index) {
  RequireOpen(kFieldSource);
  const std::size_t column = Column(index);
  RequireRow(kFieldSource);
  return rows_->Get(column);
}

void Recordset::SetFieldValue(std::int32_t index, const Value& value) {
  RequireOpen(kFieldSource);
  const std::size_t column = Column(index);
  RequireUpdatable();
  RequireRow(kFieldSource);
  const FieldInfo& field = fields_[column];
  std::optional<Value> held = Coerce(value, field.type, field.definedSize);
  if (!held || (held->Is<Null>() && (field.attributes & kNullable) == 0)) Raise(ProviderFault::kMultipleStep);
  memory_->Set(column, std::move(*held));
}

std::int64_t Recordset::FieldActualSize(std::int32_t index) {
  const Value value = FieldValue(index);
  if (value.Is<Null>() || value.Is<Empty>()) return 0;
  if (!value.Is<std::wstring>()) return FixedSize(FieldAt(index).type);
  const auto length = static_cast<std::int64_t>(value.As<std::wstring>().size());
  return IsBinaryType(FieldAt(index).type) ? length / 2 : length;
}

bool Recordset::IsUpdatable() const {
  const bool batch = cursorLocation_ == ad::kUseClient && lockType_ == ad::kLockBatchOptimistic;
  return memory_ != nullptr && (appended_ || batch);
}

void Recordset::AddNew() {
  RequireOpen(kRecordsetSource);
  RequireUpdatable();
  FinishEdit();
  MemoryRows::Row row;
  row.reserve(fields_.size());
  for (const FieldInfo& field : fields_) {
    if ((field.attributes & kNullable) != 0) {
      row.emplace_back(Null{});
    } else {
      row.emplace_back(Empty{});
    }
  }
  memory_->StartRow(std::move(row));
}

void Recordset::Update() {
  RequireOpen(kRecordsetSource);
  RequireUpdatable();
  RequireRow(kRecordsetSource);
  memory_->Commit();
}

void Recordset::FinishEdit() {
  if (memory_ != nullptr) memory_->Commit();
}

void Recordset::CancelUpdate() {
  RequireOpen(kRecordsetSource);
  if (memory_ != nullptr) memory_->Cancel();
}

void Recordset::Delete() {
  RequireOpen(kRecordsetSource);
  RequireUpdatable();
  RequireRow(kRecordsetSource);
  const bool adding = memory_->EditMode() == ad::kEditAdd;
  memory_->Cancel();
  if (!adding) memory_->Delete();
}

std::int32_t Recordset::EditMode() {
  RequireOpen(kRecordsetSource);
  return memory_ != nullptr ? memory_->EditMode() : ad::kEditNone;
}

std::vector<std::vector<Value>> Recordset::GetRows(std::int64_t count) {
  RequireOpen(kRecordsetSource);
  FinishEdit();
  RequireRow(kRecordsetSource);
  std::vector<std::vector<Value>> rows;
  for (std::int64_t taken = 0; (count < 0 || taken < count) && rows_->HasRow(); ++taken) {
    std::vector<Value>& row = rows.emplace_back();
    row.reserve(fields_.size());
    for (std::size_t column = 0; column < fields_.size(); ++column) row.push_back(rows_->Get(column));
    rows_->Move(1);
  }
  return rows;
}

}  // namespace kodra::odbc
