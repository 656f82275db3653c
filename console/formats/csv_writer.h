// Comma-separated values as RFC 4180 has them: a line of names and one line for each row, each ended by CR LF, in UTF-8
// and ISO form.
//
// A cell is quoted when it holds the separator, a quote or a line end. The empty text is "" and null is nothing between
// two separators, so that a reader can tell them; the null of a row's only column is "" too, as no line is ever blank.
// Cells are written as they are: a spreadsheet that opens the file may take one that begins with "=" for a formula.
#pragma once

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

struct CsvOptions {
  char separator = ',';
  // The byte order mark by which some spreadsheets know UTF-8.
  bool byteOrderMark = false;
};

class CsvWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer; the separator is no quote, line end or letter.
  CsvWriter(Output& output, CsvOptions options) : output_(output), options_(options) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override {}

 private:
  void AppendText(std::string_view text);
  void EndLine();

  Output& output_;
  CsvOptions options_;
  std::vector<ColumnKind> kinds_;
  std::string line_;
};

}  // namespace kodra::console
