#include "console/formats/csv_writer.h"

#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// The text with an apostrophe before it if a spreadsheet may take it for a formula.
std::string WithoutFormula(std::string text) {
  constexpr std::string_view kStartsOfFormulas = "=+-@\t\r";
  if (!text.empty() && kStartsOfFormulas.find(text.front()) != kStartsOfFormulas.npos) text.insert(0, 1, '\'');
  return text;
}

}  // namespace

void CsvWriter::Begin(const Heading& /*heading*/, std::span<const Column> columns) {
  if (options_.byteOrderMark) line_ += "\xEF\xBB\xBF";
  for (const Column& column : columns) {
    if (!kinds_.empty()) line_ += options_.separator;
    kinds_.push_back(column.kind);
    AppendText(values::ToUtf8(column.name));
  }
  if (kinds_.empty()) {
    output_.Write(line_);
  } else {
    EndLine();
  }
}

void CsvWriter::Row(std::span<const Value> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) line_ += options_.separator;
    if (!IsNothing(values[i])) {
      AppendText(TextOf(values[i], kinds_[i]));
    } else if (values.size() == 1) {
      AppendText({});
    }
  }
  EndLine();
}

std::string CsvWriter::TextOf(const Value& value, ColumnKind kind) const {
  if (!options_.forSpreadsheet) return IsoText(value, kind);
  std::string text = values::ToUtf8(BrazilianText(value));
  return NumberIn(value) ? text : WithoutFormula(std::move(text));
}

void CsvWriter::AppendText(std::string_view text) {
  const bool quoted =
      text.empty() || text.find_first_of("\"\r\n") != text.npos || text.find(options_.separator) != text.npos;
  if (!quoted) {
    line_ += text;
    return;
  }
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
