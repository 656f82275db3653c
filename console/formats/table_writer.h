// A table for a terminal, in Brazilian form:
//
//   Série               Páginas  Armazenado
//   ──────────────────  ───────  ──────────
//   Notas de admissão     1.5  …
//
// Columns are as wide as what the first rows hold; these are kept until the widths are known, later ones are written as
// they come, and a later cell that is wider moves the rest of its line. Numbers are aligned to the right. Nothing is
// cut off. Line ends and tabs within a cell show as one blank, other control characters, which could command the
// terminal, as U+FFFD.
#pragma once

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

class TableWriter final : public RowWriter {
 public:
  // The rows that widths are measured on.
  static constexpr std::size_t kMeasured = 1000;

  // REQUIRES: `output` outlives the writer.
  explicit TableWriter(Output& output) : output_(output) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  using Line = std::vector<std::wstring>;

  void Measure(const Line& cells);
  // Writes the names and the rows kept so far.
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
