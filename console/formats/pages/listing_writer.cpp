#include "console/formats/pages/listing_writer.h"

#include "console/formats/pages/number_text.h"
#include "console/formats/pages/report_words.h"
#include "values/utf8.h"

namespace kodra::console::pages {
namespace {

using values::FromUtf8;

// A listing with more columns is printed in landscape.
constexpr std::size_t kPortraitColumns = 6;

// The text of a column and of those in which it continues.
std::wstring WholeText(const guide::Column& column, const guide::Report& report, const RowReader& row) {
  std::wstring text;
  int parts = 0;
  bool isWithin = false;
  for (const guide::Column& each : report.columns) {
    if (each.place != guide::Place::kContinuation) isWithin = each.name == column.name;
    if (!isWithin) continue;
    text += row.WholeText(each.name);
    ++parts;
  }
  return parts == 1 ? row.Text(column.name) : text;
}

// The text of the title column, or else the page's own title.
std::wstring TitleOf(const guide::Report& report, const RowReader& first) {
  std::wstring title;
  for (const guide::Column* column : guide::ColumnsIn(guide::Place::kTitle, report)) title = first.Text(column->name);
  return title.empty() ? FromUtf8(report.page.title) : title;
}

std::wstring CaptionOf(const guide::Column& column, const RowReader& row) {
  std::wstring caption = column.captionColumn.empty() ? std::wstring() : row.Text(column.captionColumn);
  return caption.empty() ? FromUtf8(column.caption) : caption;
}

// Codes and single words of at most this length stay whole; a longer one may be broken.
constexpr std::size_t kUnbrokenLength = 14;

Cell CellOf(const guide::Column& column, const RowReader& row) {
  const Value& value = row.Get(column.name);
  const bool isDate =
      value.Is<Date>() || column.type == guide::ValueType::kDate || column.type == guide::ValueType::kMoment;
  Cell cell = {row.Text(column.name), NumberIn(value).has_value(), isDate};
  if (cell.isNumber && column.type == guide::ValueType::kNumber) cell.text = WithThousands(cell.text);
  if (value.Is<std::wstring>() && cell.text.size() <= kUnbrokenLength && cell.text.find(L' ') == cell.text.npos)
    cell.isWhole = true;
  return cell;
}

}  // namespace

void ListingWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  heading_ = heading;
  report_ = guide::Find(heading.className, heading.method);
  shown_ = guide::ColumnsIn(guide::Place::kColumn, *report_);
  details_ = guide::ColumnsIn(guide::Place::kDetail, *report_);
  columns_.assign(columns.begin(), columns.end());
}

void ListingWriter::OpenTable(const RowReader& first) {
  PageHead head = {TitleOf(*report_, first)};
  if (std::wstring filters = FilterText(*report_, heading_); !filters.empty()) head.lines.push_back(std::move(filters));
  for (const guide::Column* fact : guide::ColumnsIn(guide::Place::kFact, *report_)) {
    if (std::wstring text = first.Text(fact->name); !text.empty())
      head.facts.push_back({FromUtf8(fact->caption), std::move(text)});
  }
  printout_.Begin(head.title, shown_.size() > kPortraitColumns);
  printout_.Head(head);
  if (rows_ > 0) {
    for (const Fact& note : NotesOf(*report_, heading_)) printout_.Note(note);
  }
  std::vector<TableColumn> columns;
  // A heading is aligned like the figures of its column.
  for (const guide::Column* column : shown_)
    columns.push_back({CaptionOf(*column, first), NumberIn(first.Get(column->name)).has_value()});
  printout_.OpenTable(columns);
}

std::vector<Fact> ListingWriter::DetailsOf(const RowReader& row) const {
  std::vector<Fact> details;
  for (const guide::Column* detail : details_) {
    if (std::wstring text = WholeText(*detail, *report_, row); !text.empty())
      details.push_back({CaptionOf(*detail, row), std::move(text)});
  }
  return details;
}

void ListingWriter::Row(std::span<const Value> values) {
  const RowReader row(columns_, values);
  if (rows_++ == 0) OpenTable(row);
  TableRow printed;
  printed.cells.reserve(shown_.size());
  for (const guide::Column* column : shown_) printed.cells.push_back(CellOf(*column, row));
  printed.details = DetailsOf(row);
  printout_.Row(printed);
}

void ListingWriter::End() {
  if (rows_ == 0) OpenTable(RowReader(columns_, {}));
  printout_.Row({.cells = {{RowCountText(rows_)}}, .style = RowStyle::kTotal});
  printout_.CloseTable();
  printout_.End();
}

}  // namespace kodra::console::pages
