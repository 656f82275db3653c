#include "console/run/row_source.h"

#include "odbc/engine/types.h"

namespace kodra::console {

namespace ad = platform::ad;

ColumnKind KindOfType(std::int32_t adoType) {
  switch (adoType) {
    case ad::kBoolean:
      return ColumnKind::kFlag;
    case ad::kDBDate:
      return ColumnKind::kDay;
    case ad::kDate:
    case ad::kDBTime:
    case ad::kDBTimeStamp:
      return ColumnKind::kMoment;
    case ad::kSmallInt:
    case ad::kInteger:
    case ad::kSingle:
    case ad::kDouble:
    case ad::kCurrency:
    case ad::kDecimal:
    case ad::kTinyInt:
    case ad::kUnsignedTinyInt:
    case ad::kUnsignedSmallInt:
    case ad::kUnsignedInt:
    case ad::kBigInt:
    case ad::kUnsignedBigInt:
    case ad::kNumeric:
      return ColumnKind::kNumber;
    default:
      return ColumnKind::kText;
  }
}

RowSource::RowSource(frame::ReportRows rows) : rows_(std::move(rows)) {
  for (platform::Column& column : rows_->Columns()) {
    columns_.push_back({std::move(column.name), KindOfType(column.type)});
    fields_.push_back(std::move(column.field));
  }
  // A recordset that the report filled itself may be on its last row. Every other one is on its first row, and moving a
  // stream there would run its statement again.
  if (rows_->RecordCount() > 0) rows_->MoveFirst();
}

bool RowSource::Next(std::vector<Value>& values) {
  // The previous row is freed first, so that two long texts are never in memory at once.
  values.clear();
  if (started_) rows_->MoveNext();
  started_ = true;
  if (rows_->Eof()) return false;
  for (const auto& field : fields_) values.push_back(field->Get());
  return true;
}

}  // namespace kodra::console
