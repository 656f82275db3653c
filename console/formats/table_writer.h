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
// On a terminal, where a person waits, the first rows are written after kPatience at the latest, even if the database
// has not supplied the next one. A text in a later row that is wider than its column is cut off there and ends with
// "…", so that the columns stay where they are; a number is not. The columns that do not fit the width of the terminal
// are left out, except the first, and the last line names them:
//   mais 2 colunas não cabem aqui (FRENTE, VERSO): use --colunas, ou --saida ARQUIVO.csv
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

class TableWriter final : public RowWriter {
 public:
  // The number of rows on which the widths are measured.
  static constexpr std::size_t kMeasured = 1000;
  static constexpr std::chrono::milliseconds kPatience{300};

  // REQUIRES: `output` outlives the writer.
  explicit TableWriter(Output& output, std::optional<std::size_t> terminalWidth = std::nullopt)
      : output_(output), terminalWidth_(terminalWidth) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override;

 private:
  using Line = std::vector<std::wstring>;

  // Writes the rows that were kept when the time is up.
  void WriteSoon();
  void Measure(const Line& cells);
  // Writes the names and the rows that were kept.
  void WriteKept();
  // Divides the columns into those that fit the terminal and the others.
  void Fit();
  std::wstring Fitted(const std::wstring& cell, std::size_t column) const;
  void WriteLine(const Line& cells);
  void WriteLeftOut();

  Output& output_;
  std::optional<std::size_t> terminalWidth_;
  Line names_;
  std::vector<ColumnKind> kinds_;
  std::vector<std::size_t> widths_;
  std::vector<std::size_t> shown_;  // indices of the columns
  Line leftOut_;                    // names of the other columns
  std::vector<Line> kept_;
  bool measuring_ = true;
  std::uint64_t count_ = 0;
  // On a terminal, a thread of its own writes the first rows if the next ones are late. It and the caller take turns.
  std::mutex mutex_;
  std::condition_variable_any ends_;
  std::jthread late_;
};

}  // namespace kodra::console
