// The rows of a report for the page: JSON lines, each sent as soon as the page may want to show it.
//
//   {"columns":[{"name":"COD_DEPTO","caption":"Código","isNumber":false}, …]}
//   ["001","Jurídico",null]                 a row, as people read its values
//   {"count":20500}                         now and then, the rows so far, once no more rows are sent
//   {"end":{"rows":31000,"filter":"…","notes":[…],"warnings":[…],"statistics":{…}}}
//
// Warnings, if there are any, say why rows may be missing. A statistic has its lines, sums and chart at the end. The
// page gets as many rows as it can hold; the others are only counted.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "console/formats/output.h"
#include "console/formats/pages/statistics.h"
#include "console/formats/row_writer.h"

namespace kodra::console::panel {

inline constexpr std::uint64_t kMostShownRows = 20'000;

class PageWriter final : public RowWriter {
 public:
  // Finds what is wrong with the parameters of a report that has that many rows, in words.
  using FindWarnings = std::function<std::vector<std::string>(std::uint64_t)>;

  // `findWarnings` is called at the end. REQUIRES: `output` outlives the writer.
  explicit PageWriter(Output& output, FindWarnings findWarnings, std::uint64_t mostRows = kMostShownRows)
      : output_(output), findWarnings_(std::move(findWarnings)), mostRows_(mostRows) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  void Flush();

  Output& output_;
  const FindWarnings findWarnings_;
  const std::uint64_t mostRows_;
  std::uint64_t rows_ = 0;
  Heading heading_;
  std::vector<Column> columns_;
  std::optional<pages::StatisticsGatherer> gatherer_;  // of a statistic
  std::string lines_;                                  // not sent yet
  std::chrono::steady_clock::time_point sent_;         // when lines were last sent
};

}  // namespace kodra::console::panel
