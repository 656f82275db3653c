#include "console/formats/pages/listing_writer.h"

#include <fmt/format.h>

#include "console/formats/html/html.h"
#include "console/formats/html/page_style.h"
#include "values/utf8.h"

namespace kodra::console::html {
namespace {

// A listing with more columns is printed in landscape.
constexpr std::size_t kPortraitColumns = 6;

constexpr std::string_view kListingStyle =
    "table{width:100%;border-collapse:collapse}"
    "th,td{padding:1mm 1.5mm;text-align:left;vertical-align:top;overflow-wrap:anywhere}"
    "thead th{overflow-wrap:normal;border-bottom:.4mm solid #1f4e5f;color:#1f4e5f;font-size:8pt}"
    "thead .titulo{border:0;padding:0 0 2mm;color:inherit;font-size:inherit;font-weight:normal}"
    "tbody{break-inside:avoid}"
    "tbody:nth-of-type(even){background:#f3f6f8}"
    "tbody tr+tr td{padding-top:0}"
    ".detalhe{color:#47525c;font-size:8pt}"
    ".numero{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}"
    ".inteiro{white-space:nowrap}"
    ".soma td{border-top:.4mm solid #1f4e5f;font-weight:bold}";

// The text of a column and of those in which it continues.
std::wstring WholeText(const guide::Column& column, const guide::Report& report, const RowReader& row) {
  std::wstring text;
  int parts = 0;
  bool isWithin = false;
  for (const guide::Column& each : report.columns) {
    if (each.place != guide::Place::kContinuation) isWithin = each.name == column.name;
    if (!isWithin) continue;
    text += BrazilianText(row.Get(each.name));
    ++parts;
  }
  return parts == 1 ? row.Text(column.name) : text;
}

// The text of the title column, or else the page's own title.
std::wstring TitleOf(const guide::Report& report, const RowReader& first) {
  std::wstring title;
  for (const guide::Column* column : guide::ColumnsIn(guide::Place::kTitle, report)) title = first.Text(column->name);
  return title.empty() ? values::FromUtf8(report.page.title) : title;
}

std::wstring CaptionOf(const guide::Column& column, const RowReader& row) {
  std::wstring caption = column.captionColumn.empty() ? std::wstring() : row.Text(column.captionColumn);
  return caption.empty() ? values::FromUtf8(column.caption) : caption;
}

// Codes and single words of at most this length stay whole; a longer one may be broken.
constexpr std::size_t kUnbrokenLength = 14;

// A heading is aligned like the figures of its column.
std::string_view HeadStyleOf(const Value& value) { return NumberIn(value) ? " class=\"numero\"" : ""; }

std::string_view StyleOf(const Value& value) {
  if (const std::string_view style = HeadStyleOf(value); !style.empty()) return style;
  if (value.Is<Date>()) return " class=\"inteiro\"";
  if (!value.Is<std::wstring>()) return "";
  const std::wstring& text = value.As<std::wstring>();
  return text.size() <= kUnbrokenLength && !text.empty() && text.find(L' ') == text.npos ? " class=\"inteiro\"" : "";
}

std::string CellHtml(const guide::Column& column, const RowReader& row) {
  return fmt::format("<td{}>{}</td>", StyleOf(row.Get(column.name)), Escaped(row.Text(column.name)));
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
  const std::wstring title = TitleOf(*report_, first);
  std::string html =
      PageOpening(title, SheetStyle(shown_.size() > kPortraitColumns, title, issued_) + std::string(kListingStyle));
  html += kPageTop;
  html += "<table>\n<thead>\n";
  html += fmt::format("<tr><th class=\"titulo\" colspan=\"{}\"><h1>{}</h1>{}", shown_.size(), Escaped(title),
                      ParametersHtml(heading_));
  for (const guide::Column* fact : guide::ColumnsIn(guide::Place::kFact, *report_)) {
    if (const std::wstring text = first.Text(fact->name); !text.empty())
      html += fmt::format("<p><b>{}:</b> {}</p>", Escaped(fact->caption), Escaped(text));
  }
  html += "</th></tr>\n<tr>";
  for (const guide::Column* column : shown_)
    html += fmt::format("<th{}>{}</th>", HeadStyleOf(first.Get(column->name)), Escaped(CaptionOf(*column, first)));
  output_.Write(html + "</tr>\n</thead>\n");
}

std::string ListingWriter::DetailsHtml(const RowReader& row) const {
  std::string html;
  for (const guide::Column* detail : details_) {
    const std::wstring text = WholeText(*detail, *report_, row);
    if (text.empty()) continue;
    html += fmt::format("{}<b>{}:</b> {}", html.empty() ? "" : " · ", Escaped(CaptionOf(*detail, row)), Escaped(text));
  }
  if (html.empty()) return html;
  return fmt::format("<tr><td class=\"detalhe\" colspan=\"{}\">{}</td></tr>", shown_.size(), html);
}

void ListingWriter::Row(std::span<const Value> values) {
  const RowReader row(columns_, values);
  if (rows_++ == 0) OpenTable(row);
  std::string html = "<tbody><tr>";
  for (const guide::Column* column : shown_) html += CellHtml(*column, row);
  output_.Write(html + "</tr>" + DetailsHtml(row) + "</tbody>\n");
}

void ListingWriter::End() {
  if (rows_ == 0) OpenTable(RowReader(columns_, {}));
  output_.Write(fmt::format("<tbody class=\"soma\"><tr><td colspan=\"{}\">{}</td></tr></tbody>\n</table>\n{}{}",
                            shown_.size(), Escaped(RowCountText(rows_)), kPageBottom, PageClosing()));
}

}  // namespace kodra::console::html
