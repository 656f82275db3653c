// The recordsets that reports read, and those that they fill themselves.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/report_call.h"
#include "values/convert.h"

namespace kodra::reports {

// A field of a recordset being read, looked up once.
class SourceField {
 public:
  SourceField(platform::Recordset& rows, const std::wstring& name) : field_(rows.FieldByName(name)) {}

  Value Get() { return field_->Get(); }
  // The value on the current row joined to the empty text: null is empty.
  std::wstring Text() { return values::ToTextOrEmpty(field_->Get()); }
  platform::Field& operator*() { return *field_; }

 private:
  std::unique_ptr<platform::Field> field_;
};

// A recordset in memory without connection: fields are appended, then it is opened and filled row by row.
//
//   OutputDataset output(surroundings);
//   output.AppendText(L"CONTAINER", 10);
//   output.Open();
//   output.AddNew();
//   output.Let(L"CONTAINER", L"C01");
//   output.Update();
//   return output.Release();
class OutputDataset {
 public:
  explicit OutputDataset(platform::Surroundings& surroundings) : rows_(surroundings.NewRecordset()) {}

  // Appends a field. REQUIRES: not open. A text's size is in characters.
  void Append(std::wstring name, std::int32_t type, std::int32_t size = 0) {
    rows_->AppendField(name, type, size, platform::ad::kUnspecified);
    fields_.push_back({std::move(name), nullptr});
  }
  void AppendText(std::wstring name, std::int32_t size) { Append(std::move(name), platform::ad::kVarChar, size); }

  // Opens it with every argument left out and looks up its fields.
  void Open() {
    constexpr std::int32_t kUnspecified = platform::ad::kUnspecified;
    rows_->Open(std::monostate{}, std::monostate{}, kUnspecified, kUnspecified, kUnspecified);
    for (NamedField& named : fields_) named.field = rows_->FieldByName(named.name);
  }

  void AddNew() { rows_->AddNew(); }
  // Assigns a field of the current row. Raises what the recordset raises for a field that was not appended.
  void Let(std::wstring_view name, const Value& value) {
    const auto named = std::ranges::find(fields_, name, &NamedField::name);
    if (named != fields_.end())
      named->field->Let(value);
    else
      rows_->FieldByName(std::wstring(name))->Let(value);
  }
  void Update() { rows_->Update(); }
  void MoveFirst() { rows_->MoveFirst(); }
  platform::Recordset& Rows() { return *rows_; }

  // Hands the recordset over; the fields are released first.
  frame::ReportRows Release() {
    fields_.clear();
    return std::move(rows_);
  }

 private:
  struct NamedField {
    std::wstring name;
    std::unique_ptr<platform::Field> field;  // null until the recordset is open
  };

  std::unique_ptr<platform::Recordset> rows_;
  std::vector<NamedField> fields_;
};

}  // namespace kodra::reports
