// A table for a terminal, in Brazilian form:
//
//   Série               Páginas  Armazenado
//   ──────────────────  ───────  ──────────
//   Notas de admissão     1.5  …
//
// The first rows are kept until the widths of the columns have been measured on them. Later rows are written at once; a
// wider cell moves the rest of its line to the right. Numbers are aligned to the right. Nothing is cut off. A line end
// or a tab within a cell is shown as a blank, every other control character, which could command the terminal, as
// U+FFFD.
#pragma once

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

class TableWriter final : public RowWriter {
 public:
  // The number of rows on which the widths are measured.
  static constexpr std::size_t kMeasured = 1000;

  // REQUIRES: `output` outlives the writer.
  explicit TableWriter(Output& output) : output_(output) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  using Line = std::vector<std::wstring>;

  void Measure(const Line& cells);
  // Writes the names and the rows that were kept.
  void WriteKept();
  void WriteLine(const Line& cells);

  Output& output_;
  Line names_;
  std::vector<bool> toTheRight_;
  std::vector<std::size_t> widths_;
  std::vector<Line> kept_;
  bool measuring_ = true;
  std::uint64_t count_ = 0;
};

}  // namespace kodra::console
