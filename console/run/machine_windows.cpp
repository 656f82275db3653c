// The machine as Windows has it: COM, ADO, and the siblings by ProgID.
#include "ado/ado_objects.h"
#include "ado/com_surroundings.h"
#include "ado/variant.h"
#include "console/run/machine.h"

namespace kodra::console {
namespace {

using namespace ado;
using namespace comkit;

class WindowsMachine final : public Machine {
 public:
  WindowsMachine() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~WindowsMachine() override {
    if (entered_) CoUninitialize();
  }
  WindowsMachine(const WindowsMachine&) = delete;
  WindowsMachine& operator=(const WindowsMachine&) = delete;

  platform::Surroundings& Around() override { return surroundings_; }
  bool SiblingsAreInstalled() const override { return true; }

 private:
  ComSurroundings surroundings_;
  bool entered_;
};

class AdoRows final : public RowSource {
 public:
  explicit AdoRows(frame::ReportRows rows) : owner_(std::move(rows)) {
    const com_ptr<_Recordset> recordset(static_cast<AdoRecordset&>(*owner_).Interface());
    com_ptr<::Fields> fields;
    Check(recordset->get_Fields(fields.put()), recordset);
    long count = 0;
    Check(fields->get_Count(&count), fields);
    for (long i = 0; i < count; ++i) {
      com_ptr<::Field> field;
      Check(fields->get_Item(*ScopedVariant(Value(std::int32_t{i})), field.put()), fields);
      ScopedBstr name;
      Check(field->get_Name(name.put()), field);
      DataTypeEnum type = adEmpty;
      Check(field->get_Type(&type), field);
      columns_.push_back({ToWide(name.get()), KindOfType(type)});
      fields_.push_back(std::move(field));
    }
    // Rows that a report filled itself may be positioned on the last one. Elsewhere the first row is the current one,
    // and a stream would be read anew for it.
    long records = -1;
    Check(recordset->get_RecordCount(&records), recordset);
    if (records > 0) owner_->MoveFirst();
  }

  const std::vector<Column>& Columns() const override { return columns_; }

  bool Next(std::vector<Value>& values) override {
    if (started_) owner_->MoveNext();
    started_ = true;
    if (owner_->Eof()) return false;
    values.resize(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      ScopedVariant value;
      Check(fields_[i]->get_Value(value.put()), fields_[i]);
      values[i] = ToValue(*value);
    }
    return true;
  }

 private:
  frame::ReportRows owner_;
  std::vector<com_ptr<::Field>> fields_;
  std::vector<Column> columns_;
  bool started_ = false;
};

}  // namespace

std::unique_ptr<Machine> NewMachine() { return std::make_unique<WindowsMachine>(); }

std::unique_ptr<RowSource> NewRowSource(frame::ReportRows rows) { return std::make_unique<AdoRows>(std::move(rows)); }

}  // namespace kodra::console
