#include "console/formats/pages/statistics_writer.h"

#include <fmt/format.h>

#include "console/formats/html/html.h"
#include "console/formats/html/page_style.h"
#include "console/formats/pages/bar_chart.h"
#include "console/formats/pages/number_text.h"

namespace kodra::console::html {
namespace {

constexpr std::string_view kStatisticsStyle =
    "table{width:100%;border-collapse:collapse;margin:3mm 0 6mm}"
    "th,td{padding:.8mm 1.5mm;text-align:left;overflow-wrap:anywhere}"
    "thead th{border-bottom:.4mm solid #1f4e5f;color:#1f4e5f;font-size:8pt}"
    "tr{break-inside:avoid}"
    "tbody tr:nth-child(even){background:#f3f6f8}"
    ".numero{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}"
    ".bloco th{padding-top:2.5mm;font-size:10pt;background:#fff;break-after:avoid}"
    ".soma td{border-top:.2mm solid #8a97a3;font-weight:bold}"
    ".total td{border-top:.4mm solid #1f4e5f;font-weight:bold}"
    ".detalhe{color:#47525c;font-size:8pt}"
    ".grafico{display:block;max-width:100%;height:auto;break-inside:avoid;fill:#1b1f24}"
    ".grafico rect{fill:#2a7f95}";

std::string LineHtml(std::string_view style, std::wstring_view name, const std::vector<double>& sums) {
  std::string html = fmt::format("<tr class=\"{}\"><td>{}</td>", style, Escaped(name));
  for (const double sum : sums) html += fmt::format("<td class=\"numero\">{}</td>", Escaped(NumberForPeople(sum)));
  return html + "</tr>\n";
}

std::string BlockHtml(const StatisticsBlock& block, std::size_t measures) {
  std::string html = "<tbody>\n";
  if (!block.name.empty())
    html += fmt::format("<tr class=\"bloco\"><th colspan=\"{}\">{}</th></tr>\n", measures + 1, Escaped(block.name));
  for (const StatisticsLine& line : block.lines) html += LineHtml("linha", line.name, line.sums);
  if (!block.name.empty()) html += LineHtml("soma", L"Total de " + block.name, block.sums);
  return html + "</tbody>\n";
}

std::string TableHtml(const Statistics& statistics) {
  std::string html = fmt::format("<table>\n<thead><tr><th>{}</th>", Escaped(statistics.groupCaption));
  for (const std::wstring& measure : statistics.measures)
    html += fmt::format("<th class=\"numero\">{}</th>", Escaped(measure));
  html += "</tr></thead>\n";
  for (const StatisticsBlock& block : statistics.blocks) html += BlockHtml(block, statistics.measures.size());
  return html + "<tbody>\n" + LineHtml("total", L"Total geral", statistics.sums) + "</tbody>\n</table>\n";
}

// Days, in order, added up by month: "31/12/2023" counts for "12/2023".
std::vector<Bar> ByMonth(const std::vector<Bar>& days) {
  std::vector<Bar> months;
  for (const Bar& day : days) {
    const std::wstring month = day.name.substr(std::min<std::size_t>(3, day.name.size()));
    if (months.empty() || months.back().name != month) months.push_back({month, 0});
    months.back().value += day.value;
  }
  return months;
}

// A bar for the last measure of every line, which is the subject of the statistic.
std::string ChartHtml(const Statistics& statistics) {
  std::vector<Bar> bars;
  for (const StatisticsBlock& block : statistics.blocks) {
    for (const StatisticsLine& line : block.lines) bars.push_back({line.name, line.sums.back()});
  }
  if (statistics.groupCaption == L"Dia" && bars.size() > kMostBars)
    return BarChartSvg(statistics.measures.back() + L" por mês", ByMonth(bars));
  return BarChartSvg(statistics.measures.back() + L" por " + statistics.groupCaption, bars);
}

}  // namespace

void StatisticsWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  heading_ = heading;
  columns_.assign(columns.begin(), columns.end());
  gatherer_.emplace(heading_, columns_);
}

void StatisticsWriter::Row(std::span<const Value> values) {
  ++rows_;
  gatherer_->Add(RowReader(columns_, values));
}

void StatisticsWriter::End() {
  const Statistics statistics = gatherer_->Result();
  std::string html =
      PageOpening(statistics.title, SheetStyle(false, statistics.title, issued_) + std::string(kStatisticsStyle));
  html += kPageTop;
  html += fmt::format("<h1>{}</h1>\n", Escaped(statistics.title));
  if (!statistics.subtitle.empty()) html += fmt::format("<p>{}</p>\n", Escaped(statistics.subtitle));
  for (const auto& [caption, text] : statistics.facts)
    html += fmt::format("<p><b>{}:</b> {}</p>\n", Escaped(caption), Escaped(text));
  html += rows_ == 0 ? fmt::format("<p>{}.</p>\n", Escaped(RowCountText(0)))
                     : TableHtml(statistics) + ChartHtml(statistics);
  output_.Write(html + std::string(kPageBottom) + PageClosing());
}

}  // namespace kodra::console::html
