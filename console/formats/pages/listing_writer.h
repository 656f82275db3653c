// A listing as a printout: the rows in a table, and what is the same in all of them above it.
#pragma once

#include "console/formats/pages/printout.h"
#include "console/formats/row_reader.h"
#include "console/formats/row_writer.h"
#include "console/reports/guide.h"

namespace kodra::console::pages {

class ListingWriter final : public RowWriter {
 public:
  // REQUIRES: the printout outlives the writer; the report of Begin is a listing.
  explicit ListingWriter(Printout& printout) : printout_(printout) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  // Prints everything above the rows; texts that are the same in all of them are taken from the first.
  void OpenTable(const RowReader& first);
  std::vector<Fact> DetailsOf(const RowReader& row) const;

  Printout& printout_;
  const guide::Report* report_ = nullptr;
  std::vector<const guide::Column*> shown_;  // in the table
  std::vector<const guide::Column*> details_;
  Heading heading_;
  std::vector<Column> columns_;
  std::uint64_t rows_ = 0;
};

}  // namespace kodra::console::pages
