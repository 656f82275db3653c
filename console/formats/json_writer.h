// JSON in UTF-8 and ISO form: an array with one object per row, each on its own line; or JSON lines, the objects
// without the array.
//
// A column that has the name of an earlier one gets a number: TOTAL, TOTAL_2. Dates are strings. Infinity and NaN,
// which JSON cannot express, are null.
#pragma once

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

enum class JsonShape { kArray, kLines };

class JsonWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer.
  JsonWriter(Output& output, JsonShape shape) : output_(output), shape_(shape) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  void AppendCell(const Value& value, ColumnKind kind);

  Output& output_;
  JsonShape shape_;
  std::vector<ColumnKind> kinds_;
  std::vector<std::string> keys_;  // in quotes and with the colon
  std::string line_;
  bool first_ = true;
};

}  // namespace kodra::console
