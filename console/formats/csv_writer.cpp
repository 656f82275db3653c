#include "console/formats/csv_writer.h"

#include <algorithm>

#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// Whether a spreadsheet may take the text for a formula.
bool BeginsFormula(std::string_view text) {
  constexpr std::string_view kStartsOfFormulas = "=+-@\t\r";
  return !text.empty() && kStartsOfFormulas.find(text.front()) != kStartsOfFormulas.npos;
}

}  // namespace

void CsvWriter::Begin(const Heading& /*heading*/, std::span<const Column> columns) {
  if (options_.byteOrderMark) line_ += "\xEF\xBB\xBF";
  for (const Column& column : columns) {
    if (!kinds_.empty()) line_ += options_.separator;
    kinds_.push_back(column.kind);
    const std::size_t start = line_.size();
    values::AppendUtf8(column.name, line_);
    QuoteFrom(start);
  }
  EndLine();
}

void CsvWriter::Row(std::span<const Value> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) line_ += options_.separator;
    if (!IsNothing(values[i]) || values.size() == 1) AppendCell(values[i], kinds_[i]);
  }
  EndLine();
}

void CsvWriter::AppendCell(const Value& value, ColumnKind kind) {
  const std::size_t start = line_.size();
  if (!options_.forSpreadsheet) {
    AppendIsoText(value, kind, line_);
  } else {
    values::AppendUtf8(BrazilianText(value, kind), line_);
    const bool isNumber = NumberIn(value).has_value();
    if (!isNumber && BeginsFormula(std::string_view(line_).substr(start))) line_.insert(start, 1, '\'');
  }
  QuoteFrom(start);
}

void CsvWriter::QuoteFrom(std::size_t start) {
  const std::string_view cell = std::string_view(line_).substr(start);
  const bool isQuoted = cell.empty() || std::ranges::any_of(cell, [this](char c) {
                          return c == options_.separator || c == '"' || c == '\r' || c == '\n';
                        });
  if (!isQuoted) return;
  const std::string text(cell);
  line_.resize(start);
  line_ += '"';
  for (const char c : text) line_.append(c == '"' ? 2 : 1, c);
  line_ += '"';
}

void CsvWriter::EndLine() {
  // Written separately: appending two characters to a line with a long text could double its memory.
  output_.Write(line_);
  output_.Write("\r\n");
  line_.clear();
}

}  // namespace kodra::console
