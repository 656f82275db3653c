// The machine over ODBC, with the siblings linked in.
#include "console/run/machine.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"

namespace kodra::console {
namespace {

class OdbcMachine final : public Machine {
 public:
  OdbcMachine() { siblings::RegisterSiblings(surroundings_); }
  platform::Surroundings& Around() override { return surroundings_; }
  bool SiblingsAreInstalled() const override { return false; }

 private:
  odbc::Surroundings surroundings_;
};

class OdbcRows final : public RowSource {
 public:
  explicit OdbcRows(frame::ReportRows rows) : owner_(std::move(rows)), rows_(dynamic_cast<odbc::Recordset&>(*owner_)) {
    for (std::int32_t i = 0; i < rows_.FieldCount(); ++i) {
      const odbc::FieldInfo& field = rows_.FieldAt(i);
      columns_.push_back({field.name, KindOfType(field.type)});
    }
    // Rows that a report filled itself may be positioned on the last one. A stream has no count and is at its first
    // row.
    if (rows_.RecordCount() > 0) rows_.MoveFirst();
  }

  const std::vector<Column>& Columns() const override { return columns_; }

  bool Next(std::vector<Value>& values) override {
    if (started_) rows_.MoveNext();
    started_ = true;
    if (rows_.Eof()) return false;
    values.resize(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) values[i] = rows_.FieldValue(static_cast<std::int32_t>(i));
    return true;
  }

 private:
  frame::ReportRows owner_;
  odbc::Recordset& rows_;
  std::vector<Column> columns_;
  bool started_ = false;
};

}  // namespace

std::unique_ptr<Machine> NewMachine() { return std::make_unique<OdbcMachine>(); }

std::unique_ptr<RowSource> NewRowSource(frame::ReportRows rows) { return std::make_unique<OdbcRows>(std::move(rows)); }

}  // namespace kodra::console
