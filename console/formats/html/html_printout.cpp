#include "console/formats/html/html_printout.h"

#include <fmt/format.h>

#include "console/formats/html/html.h"
#include "console/formats/pages/base64.h"
#include "console/formats/pages/chart.h"
#include "console/formats/pages/html_canvas.h"
#include "console/formats/pages/page_style.h"

namespace kodra::console::html {
namespace {

using namespace pages::style;
using pages::Bar;
using pages::Cell;
using pages::Fact;
using pages::Millimetres;
using pages::RowStyle;
using pages::TableColumn;
using pages::TableRow;

// The page as paper: its margins, and the foot with the title, the time of issue and the page's number.
std::string PaperStyle(bool landscape, std::wstring_view title, std::wstring_view issued) {
  const std::string foot = fmt::format("font:{}mm Arial,'Liberation Sans',Helvetica,sans-serif;color:{}",
                                       Millimetres(kFootSize), ColourText(kMuted));
  const std::wstring left = std::wstring(title) + (issued.empty() ? L"" : L" · emitido em " + std::wstring(issued));
  return fmt::format(
      "@page{{size:A4 {0};margin:{1}mm {2}mm {3}mm;"
      "@bottom-left{{content:{4};{5}}}"
      "@bottom-right{{content:\"Página \" counter(page) \" de \" counter(pages);{5}}}}}"
      "@media screen{{body{{background:{7}}}"
      "main{{max-width:{6}mm;margin:6mm auto;padding:{1}mm {2}mm;background:#fff;box-shadow:0 1px 4px #0005}}}}",
      landscape ? "landscape" : "portrait", Millimetres(kTopMargin), Millimetres(kSideMargin),
      Millimetres(kBottomMargin), StyleText(left), foot, Millimetres(landscape ? pages::kA4.height : pages::kA4.width),
      ColourText(kDesk));
}

std::string BlockStyle() {
  return fmt::format(
      "h1{{margin:0 0 1mm;font-size:{title}mm;color:{accent}}}"
      "p{{margin:0 0 1mm}}"
      ".detalhe{{color:{muted};font-size:{small}mm}}"
      ".timbre{{display:flex;align-items:center;gap:4mm;margin:0 0 3mm;font-size:{block}mm;font-weight:bold}}"
      ".timbre img{{max-width:{logoWidth}mm;max-height:{logoHeight}mm}}"
      ".grafico{{margin:5mm 0 0;break-inside:avoid}}"
      ".grafico svg{{display:block;width:{chart}mm;max-width:100%;font-family:'Liberation Sans',Arial,Helvetica,"
      "sans-serif;white-space:pre}}"
      ".nota{{margin:1mm 0;color:{muted};font-size:{small}mm;break-inside:avoid}}"
      ".assinaturas{{display:flex;gap:{gap}mm;padding-top:{signing}mm;break-inside:avoid}}"
      ".assinaturas p{{flex:1;border-top:{thin}mm solid {ink};padding-top:1mm;color:{muted};font-size:{small}mm}}"
      ".via:not(:only-child){{break-inside:avoid}}"
      ".via+.via{{margin-top:12mm;border-top:{thin}mm dashed {rule};padding-top:8mm}}",
      fmt::arg("title", Millimetres(kTitleSize)), fmt::arg("block", Millimetres(kBlockSize)),
      fmt::arg("small", Millimetres(kSmallSize)), fmt::arg("accent", ColourText(kAccent)),
      fmt::arg("muted", ColourText(kMuted)), fmt::arg("ink", ColourText(kInk)), fmt::arg("rule", ColourText(kRule)),
      fmt::arg("logoWidth", Millimetres(kLogoWidth)), fmt::arg("logoHeight", Millimetres(kLogoHeight)),
      fmt::arg("chart", Millimetres(pages::kChartWidth)), fmt::arg("gap", Millimetres(kSignatureGap)),
      fmt::arg("signing", Millimetres(kSigningRoom)), fmt::arg("thin", Millimetres(kThinRule)));
}

std::string TableStyle() {
  return fmt::format(
      "table{{width:100%;border-collapse:collapse;margin:2mm 0}}"
      "th,td{{padding:{top}mm {side}mm;text-align:left;vertical-align:top;overflow-wrap:anywhere}}"
      "thead th{{overflow-wrap:normal;border-bottom:{thick}mm solid {accent};color:{accent};font-size:{small}mm}}"
      "tbody{{break-inside:avoid}}"
      ".par{{background:{stripe}}}"
      "tbody tr+tr td{{padding-top:0}}"
      ".numero{{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}}"
      ".inteiro{{white-space:nowrap}}"
      ".bloco{{break-after:avoid}}"
      ".bloco td{{padding-top:3.5mm;font-size:{block}mm;font-weight:bold}}"
      ".soma td{{border-top:{thin}mm solid {rule};font-weight:bold}}"
      ".total td{{border-top:{thick}mm solid {accent};font-weight:bold}}",
      fmt::arg("top", Millimetres(kCellTop)), fmt::arg("side", Millimetres(kCellSide)),
      fmt::arg("thick", Millimetres(kThickRule)), fmt::arg("thin", Millimetres(kThinRule)),
      fmt::arg("small", Millimetres(kSmallSize)), fmt::arg("block", Millimetres(kBlockSize)),
      fmt::arg("accent", ColourText(kAccent)), fmt::arg("stripe", ColourText(kStripe)),
      fmt::arg("rule", ColourText(kRule)));
}

std::string FactsHtml(const std::vector<Fact>& facts) {
  std::string html;
  for (const auto& [caption, text] : facts)
    html += fmt::format("{}<b>{}:</b> {}", html.empty() ? "" : " · ", Escaped(caption), Escaped(text));
  return html;
}

std::string_view ClassOf(const Cell& cell) {
  if (cell.isNumber) return " class=\"numero\"";
  return cell.isWhole ? " class=\"inteiro\"" : "";
}

std::string_view ClassOf(RowStyle style, bool isEven) {
  switch (style) {
    case RowStyle::kPlain:
      return isEven ? " class=\"par\"" : "";
    case RowStyle::kBlock:
      return " class=\"bloco\"";
    case RowStyle::kSum:
      return " class=\"soma\"";
    case RowStyle::kTotal:
      return " class=\"total\"";
  }
  return {};
}

}  // namespace

void HtmlPrintout::Begin(std::wstring_view title, bool landscape) {
  output_.Write(PageOpening(title, PaperStyle(landscape, title, letterhead_.issued) + BlockStyle() + TableStyle()));
  output_.Write("<main>\n<section class=\"via\">\n");
}

void HtmlPrintout::Head(const pages::PageHead& head) {
  std::string html;
  if (letterhead_.logo || !letterhead_.organisation.empty()) {
    html += "<div class=\"timbre\">";
    if (letterhead_.logo)
      html += fmt::format("<img alt=\"\" src=\"data:image/png;base64,{}\">", pages::Base64(letterhead_.logo->png));
    html += fmt::format("<span>{}</span></div>\n", Escaped(letterhead_.organisation));
  }
  html += fmt::format("<h1>{}</h1>\n", Escaped(head.title));
  for (const std::wstring& line : head.lines) html += fmt::format("<p class=\"detalhe\">{}</p>\n", Escaped(line));
  for (const Fact& fact : head.facts) html += fmt::format("<p>{}</p>\n", FactsHtml({fact}));
  output_.Write(html);
}

void HtmlPrintout::Paragraph(std::wstring_view text) { output_.Write(fmt::format("<p>{}</p>\n", Escaped(text))); }

void HtmlPrintout::OpenTable(const std::vector<TableColumn>& columns) {
  columns_ = columns.size();
  rows_ = 0;
  std::string html;
  bool isNamed = false;
  for (const auto& [caption, isNumber] : columns) {
    html += fmt::format("<th{}>{}</th>", isNumber ? " class=\"numero\"" : "", Escaped(caption));
    isNamed = isNamed || !caption.empty();
  }
  output_.Write("<table>\n" + (isNamed ? "<thead><tr>" + html + "</tr></thead>\n" : std::string()));
}

void HtmlPrintout::Row(const TableRow& row) {
  rows_ = row.style == RowStyle::kPlain ? rows_ + 1 : 0;
  // Put together without fmt, which takes most of the time of a long page.
  std::string html = "<tbody";
  html.append(ClassOf(row.style, rows_ % 2 == 0)).append("><tr>");
  if (row.cells.size() == columns_) {
    for (const Cell& cell : row.cells) {
      html.append("<td").append(ClassOf(cell)).append(1, '>');
      AppendEscaped(cell.text, html);
      html += "</td>";
    }
  } else {
    html += fmt::format("<td colspan=\"{}\">{}</td>", columns_, Escaped(row.cells.front().text));
  }
  html += "</tr>";
  if (!row.details.empty())
    html += fmt::format("<tr><td class=\"detalhe\" colspan=\"{}\">{}</td></tr>", columns_, FactsHtml(row.details));
  html += "</tbody>\n";
  output_.Write(html);
}

void HtmlPrintout::CloseTable() { output_.Write("</table>\n"); }

void HtmlPrintout::Chart(std::wstring_view caption, const std::vector<Bar>& bars) {
  if (bars.empty()) return;
  output_.Write(fmt::format("<figure class=\"grafico\" role=\"img\" aria-label=\"{}\">\n", Escaped(caption)));
  pages::SvgCanvas canvas(output_);
  canvas.BeginPage({pages::kChartWidth, pages::ChartHeight(bars.size())});
  DrawChart(canvas, {0, 0}, caption, bars);
  canvas.Finish();
  output_.Write("</figure>\n");
}

void HtmlPrintout::Note(const Fact& note) {
  output_.Write(fmt::format("<p class=\"nota\">{}</p>\n", FactsHtml({note})));
}

void HtmlPrintout::Signatures(const std::vector<std::wstring>& captions) {
  std::string html = "<div class=\"assinaturas\">";
  for (const std::wstring& caption : captions) html += fmt::format("<p>{}</p>", Escaped(caption));
  output_.Write(html + "</div>\n");
}

void HtmlPrintout::NextCopy() { output_.Write("</section>\n<section class=\"via\">\n"); }

void HtmlPrintout::End() {
  output_.Write("</section>\n</main>\n");
  output_.Write(PageClosing());
}

}  // namespace kodra::console::html
