// JSON in UTF-8 and ISO form: an array with an object a row, each on its line; or JSON lines, the objects alone.
//
// A column of the name of an earlier one gets a number: TOTAL, TOTAL_2. Dates are texts, and a number that JSON has not
// (infinite, or none) is null.
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
  Output& output_;
  JsonShape shape_;
  std::vector<ColumnKind> kinds_;
  std::vector<std::string> keys_;  // as they are written, with the colon
  std::string line_;
  bool first_ = true;
};

}  // namespace kodra::console
