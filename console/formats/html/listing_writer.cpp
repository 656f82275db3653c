#include "console/formats/html/listing_writer.h"

#include <fmt/format.h>

#include "console/formats/html/html.h"
#include "console/formats/html/page_style.h"

namespace kodra::console::html {
namespace {

// More columns than these stand on the long side of the sheet.
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

std::wstring JoinedColumns(const RowReader& row, std::wstring_view column) {
  if (!column.ends_with(L'*')) return row.Text(column);
  column.remove_suffix(1);
  std::wstring text;
  for (int i = 1; row.Has(std::wstring(column) + std::to_wstring(i)); ++i)
    text += BrazilianText(row.Get(std::wstring(column) + std::to_wstring(i)));
  return text;
}

std::wstring CaptionOf(const LayoutColumn& column, const RowReader& row) {
  std::wstring caption = column.captionColumn.empty() ? std::wstring() : row.Text(column.captionColumn);
  return caption.empty() ? std::wstring(column.caption) : caption;
}

// Codes and single words of at most this length stay whole; a longer one may be broken.
constexpr std::size_t kUnbrokenLength = 14;

// A heading stands above the figures of its column.
std::string_view HeadStyleOf(const Value& value) { return NumberIn(value) ? " class=\"numero\"" : ""; }

std::string_view StyleOf(const Value& value) {
  if (const std::string_view style = HeadStyleOf(value); !style.empty()) return style;
  if (value.Is<Date>()) return " class=\"inteiro\"";
  if (!value.Is<std::wstring>()) return "";
  const std::wstring& text = value.As<std::wstring>();
  return text.size() <= kUnbrokenLength && !text.empty() && text.find(L' ') == text.npos ? " class=\"inteiro\"" : "";
}

}  // namespace

void ListingWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  heading_ = heading;
  layout_ = FindListingLayout(heading.className, heading.method);
  columns_.assign(columns.begin(), columns.end());
}

void ListingWriter::OpenTable(const RowReader& first) {
  std::wstring title = layout_->titleColumn.empty() ? std::wstring() : first.Text(layout_->titleColumn);
  if (title.empty()) title = layout_->title;
  std::string html = PageOpening(
      title, SheetStyle(layout_->columns.size() > kPortraitColumns, title, issued_) + std::string(kListingStyle));
  html += kPageTop;
  html += "<table>\n<thead>\n";
  html += fmt::format("<tr><th class=\"titulo\" colspan=\"{}\"><h1>{}</h1>{}", layout_->columns.size(), Escaped(title),
                      ParametersHtml(heading_));
  for (const LayoutColumn& fact : layout_->facts) {
    if (const std::wstring text = first.Text(fact.column); !text.empty())
      html += fmt::format("<p><b>{}:</b> {}</p>", Escaped(fact.caption), Escaped(text));
  }
  html += "</th></tr>\n<tr>";
  for (const LayoutColumn& column : layout_->columns)
    html += fmt::format("<th{}>{}</th>", HeadStyleOf(first.Get(column.column)), Escaped(CaptionOf(column, first)));
  output_.Write(html + "</tr>\n</thead>\n");
}

std::string ListingWriter::CellHtml(const LayoutColumn& column, const RowReader& row) const {
  return fmt::format("<td{}>{}</td>", StyleOf(row.Get(column.column)), Escaped(JoinedColumns(row, column.column)));
}

std::string ListingWriter::DetailsHtml(const RowReader& row) const {
  std::string html;
  for (const LayoutColumn& detail : layout_->details) {
    const std::wstring text = JoinedColumns(row, detail.column);
    if (text.empty()) continue;
    html += fmt::format("{}<b>{}:</b> {}", html.empty() ? "" : " · ", Escaped(CaptionOf(detail, row)), Escaped(text));
  }
  if (html.empty()) return html;
  return fmt::format("<tr><td class=\"detalhe\" colspan=\"{}\">{}</td></tr>", layout_->columns.size(), html);
}

void ListingWriter::Row(std::span<const Value> values) {
  const RowReader row(columns_, values);
  if (rows_++ == 0) OpenTable(row);
  std::string html = "<tbody><tr>";
  for (const LayoutColumn& column : layout_->columns) html += CellHtml(column, row);
  output_.Write(html + "</tr>" + DetailsHtml(row) + "</tbody>\n");
}

void ListingWriter::End() {
  if (rows_ == 0) OpenTable(RowReader(columns_, {}));
  output_.Write(fmt::format("<tbody class=\"soma\"><tr><td colspan=\"{}\">{}</td></tr></tbody>\n</table>\n{}{}",
                            layout_->columns.size(), Escaped(RowCountText(rows_)), kPageBottom, PageClosing()));
}

}  // namespace kodra::console::html
