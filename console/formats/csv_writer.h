// Comma-separated values as RFC 4180 defines them: a line of names and one line for each row, each ended by CR LF, in
// UTF-8 and ISO form.
//
// A cell is quoted when it contains the separator, a quote or a line end. The empty text is written as "" and null as
// nothing, so that a reader can distinguish them; in a row of one column null is "" too, because no line may be blank.
// Cells are written unchanged: a spreadsheet that opens the file may take a cell that begins with "=" for a formula.
// With `forSpreadsheet` they are written for people instead, and no text can be taken for a formula.
#pragma once

#include "console/formats/output.h"
#include "console/formats/row_writer.h"

namespace kodra::console {

struct CsvOptions {
  char separator = ',';
  // Whether the file begins with a byte order mark, by which some spreadsheets recognise UTF-8.
  bool byteOrderMark = false;
  // Whether a Brazilian spreadsheet opens the file: numbers have a decimal comma and dates are 31/12/2023. A text that
  // begins with "=", "+", "-", "@", a tab or a carriage return gets an apostrophe before it; a number never does.
  bool forSpreadsheet = false;
};

// What a Brazilian Excel opens with its columns, accents, numbers and dates.
inline constexpr CsvOptions kCsvForExcel = {.separator = ';', .byteOrderMark = true, .forSpreadsheet = true};

class CsvWriter final : public RowWriter {
 public:
  // REQUIRES: `output` outlives the writer; the separator is not a quote, a line end or a letter.
  CsvWriter(Output& output, CsvOptions options) : output_(output), options_(options) {}

  void Begin(const Heading& heading, std::span<const Column> columns) override;
  void Row(std::span<const Value> values) override;
  void End() override {}

 private:
  void AppendCell(const Value& value, ColumnKind kind);
  // Puts what the line has from `start` on in quotes, if a cell must be.
  void QuoteFrom(std::size_t start);
  void EndLine();

  Output& output_;
  CsvOptions options_;
  std::vector<ColumnKind> kinds_;
  std::string line_;
};

}  // namespace kodra::console
