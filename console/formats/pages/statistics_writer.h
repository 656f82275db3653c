// A statistic as a printout: grouped, totalled, with a chart.
#pragma once

#include <optional>

#include "console/formats/pages/printout.h"
#include "console/formats/pages/statistics.h"
#include "console/formats/row_writer.h"

namespace kodra::console::pages {

class StatisticsWriter final : public RowWriter {
 public:
  // REQUIRES: the printout outlives the writer; the report of Begin is a statistic.
  explicit StatisticsWriter(Printout& printout) : printout_(printout) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  Printout& printout_;
  Heading heading_;
  std::vector<Column> columns_;
  std::optional<StatisticsGatherer> gatherer_;
  std::uint64_t rows_ = 0;
};

}  // namespace kodra::console::pages
