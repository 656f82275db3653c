// A statistic as a page to print on A4: grouped, totalled, with a chart.
#pragma once

#include <optional>

#include "console/formats/output.h"
#include "console/formats/pages/statistics.h"
#include "console/formats/row_writer.h"

namespace kodra::console::html {

class StatisticsWriter final : public RowWriter {
 public:
  // `issued` is when the statistic was made, as it is printed. REQUIRES: `output` outlives the writer; the report of
  // Begin is a statistic.
  StatisticsWriter(Output& output, std::wstring issued) : output_(output), issued_(std::move(issued)) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  Output& output_;
  std::wstring issued_;
  Heading heading_;
  std::vector<Column> columns_;
  std::optional<StatisticsGatherer> gatherer_;
  std::uint64_t rows_ = 0;
};

}  // namespace kodra::console::html
