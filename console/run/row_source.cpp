#include "console/run/row_source.h"

#include "console/reports/guide.h"
#include "odbc/engine/types.h"
#include "values/utf8.h"

namespace kodra::console {

namespace ad = platform::ad;

namespace {

// The kind of a column that the guide describes, of which the database says `declared`.
ColumnKind KindOf(const guide::Column& column, ColumnKind declared) {
  if (column.type == guide::ValueType::kDate) return ColumnKind::kDay;
  return column.type == guide::ValueType::kMoment ? ColumnKind::kMoment : declared;
}

}  // namespace

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

RowSource::RowSource(frame::ReportRows rows, const reports::ReportMethod& method) : rows_(std::move(rows)) {
  const guide::Report& about = guide::About(method);
  if (!rows_) {
    for (const guide::Column& column : about.columns)
      columns_.push_back({values::FromUtf8(column.name), KindOf(column, ColumnKind::kText)});
    return;
  }
  for (platform::Column& column : rows_->Columns()) {
    ColumnKind kind = KindOfType(column.type);
    if (const guide::Column* known = guide::FindColumn(about, column.name)) kind = KindOf(*known, kind);
    columns_.push_back({std::move(column.name), kind});
    fields_.push_back(std::move(column.field));
  }
  // A recordset that the report filled itself may be on its last row. Every other one is on its first row, and moving a
  // stream there would run its statement again.
  if (rows_->RecordCount() > 0) rows_->MoveFirst();
}

bool RowSource::Next(std::vector<Value>& values) {
  if (!rows_) return false;
  // The previous row is freed first, so that two long texts are never in memory at once.
  values.clear();
  if (started_) rows_->MoveNext();
  started_ = true;
  if (rows_->Eof()) return false;
  for (const auto& field : fields_) values.push_back(field->Get());
  return true;
}

}  // namespace kodra::console
