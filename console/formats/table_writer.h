// A table for a terminal, in Brazilian form:
//
//   Série               Páginas  Armazenado
//   ──────────────────  ───────  ──────────
//   Notas de admissão     1.5  …
//
// The first rows are kept until the widths of the columns have been measured on them. Later rows are written at once; a
// wider cell moves the rest of its line to the right. Numbers are aligned to the right. No cell is cut off. A line end
// or a tab within a cell is shown as a blank, every other control character, which could command the terminal, as
// U+FFFD.
//
// On a terminal, the columns that do not fit its width are left out, except the first, and the last line names them:
//   mais 2 colunas não cabem aqui (FRENTE, VERSO): use --colunas, ou --saida ARQUIVO.csv
#pragma once

#include <optional>

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

class TableWriter final : public RowWriter {
 public:
  // The number of rows on which the widths are measured.
  static constexpr std::size_t kMeasured = 1000;

  // REQUIRES: `output` outlives the writer.
  explicit TableWriter(Output& output, std::optional<std::size_t> terminalWidth = std::nullopt)
      : output_(output), terminalWidth_(terminalWidth) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  using Line = std::vector<std::wstring>;

  void Measure(const Line& cells);
  // Writes the names and the rows that were kept.
  void WriteKept();
  // Divides the columns into those that fit the terminal and the others.
  void Fit();
  void WriteLine(const Line& cells);
  void WriteLeftOut();

  Output& output_;
  std::optional<std::size_t> terminalWidth_;
  Line names_;
  std::vector<bool> toTheRight_;
  std::vector<std::size_t> widths_;
  std::vector<std::size_t> shown_;  // indices of the columns
  Line leftOut_;                    // names of the other columns
  std::vector<Line> kept_;
  bool measuring_ = true;
  std::uint64_t count_ = 0;
};

}  // namespace kodra::console
