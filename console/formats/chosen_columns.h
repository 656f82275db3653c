// Passes some columns of the rows on to another writer, in the order in which they were asked for.
//
//   ChosenColumns writer(NewWriter(…), {"cidade", "DESCR_DEPTO"});
#pragma once

#include <memory>

#include "console/formats/row_writer.h"

namespace kodra::console {

class ChosenColumns final : public RowWriter {
 public:
  // The names are in any letter case. A name that several columns have chooses them all.
  ChosenColumns(std::unique_ptr<RowWriter> writer, std::vector<std::string> names)
      : writer_(std::move(writer)), names_(std::move(names)) {}

  // Raises UsageError for a name that no column has.
  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override { writer_->End(); }

 private:
  std::unique_ptr<RowWriter> writer_;
  std::vector<std::string> names_;
  std::vector<std::size_t> chosen_;  // indices of the columns
  std::vector<Value> row_;
};

}  // namespace kodra::console
