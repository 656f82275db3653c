#include "console/formats/pages/statistics_writer.h"

#include "console/formats/pages/number_text.h"
#include "console/formats/pages/report_words.h"

namespace kodra::console::pages {
namespace {

TableRow RowOf(RowStyle style, const std::wstring& name, const std::vector<double>& sums) {
  TableRow row = {.cells = {{name}}, .style = style};
  for (const double sum : sums) row.cells.push_back({.text = NumberForPeople(sum), .isNumber = true});
  return row;
}

void PrintTable(const Statistics& statistics, Printout& printout) {
  std::vector<TableColumn> columns = {{statistics.groupCaption}};
  for (const std::wstring& measure : statistics.measures) columns.push_back({measure, true});
  printout.OpenTable(columns);
  for (const StatisticsBlock& block : statistics.blocks) {
    if (!block.name.empty()) printout.Row({.cells = {{block.name}}, .style = RowStyle::kBlock});
    for (const StatisticsLine& line : block.lines) printout.Row(RowOf(RowStyle::kPlain, line.name, line.sums));
    if (!block.name.empty()) printout.Row(RowOf(RowStyle::kSum, L"Total de " + block.name, block.sums));
  }
  printout.Row(RowOf(RowStyle::kTotal, L"Total geral", statistics.sums));
  printout.CloseTable();
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
  const guide::Report& report = *guide::Find(heading_.className, heading_.method);
  printout_.Begin(statistics.title, false);
  PageHead head = {statistics.title, {}, statistics.facts};
  // The rows say in words what was counted; without rows, the parameters do.
  const std::wstring line = rows_ == 0 ? FilterText(report, heading_) : statistics.subtitle;
  if (!line.empty()) head.lines.push_back(line);
  printout_.Head(head);
  if (rows_ == 0) {
    printout_.Paragraph(RowCountText(0) + L".");
  } else {
    for (const Fact& note : NotesOf(report, heading_)) printout_.Note(note);
    PrintTable(statistics, printout_);
    const StatisticsChart chart = ChartOf(statistics);
    printout_.Chart(chart.caption, chart.bars);
  }
  printout_.End();
}

}  // namespace kodra::console::pages
