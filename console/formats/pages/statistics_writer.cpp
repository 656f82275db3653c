#include "console/formats/pages/statistics_writer.h"

#include <algorithm>

#include "console/formats/pages/chart.h"
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

// Where the month and the year begin in "31/12/2023".
constexpr std::size_t kMonthPlace = 3, kYearPlace = 6;

// Days, in order, added up by month or year.
std::vector<Bar> AddedUp(const std::vector<Bar>& days, std::size_t place) {
  std::vector<Bar> sums;
  for (const Bar& day : days) {
    const std::wstring name = day.name.substr(std::min(place, day.name.size()));
    if (sums.empty() || sums.back().name != name) sums.push_back({name, 0});
    sums.back().value += day.value;
  }
  return sums;
}

// A bar for the last measure of every line, which is the subject of the statistic.
void PrintChart(const Statistics& statistics, Printout& printout) {
  std::vector<Bar> bars;
  for (const StatisticsBlock& block : statistics.blocks) {
    for (const StatisticsLine& line : block.lines) bars.push_back({line.name, line.sums.back()});
  }
  std::wstring lines = statistics.groupCaption;
  if (lines == L"Dia" && bars.size() > kMostBars) {
    const std::vector<Bar> months = AddedUp(bars, kMonthPlace);
    const bool areFew = months.size() <= kMostBars;
    lines = areFew ? L"mês" : L"ano";
    bars = areFew ? months : AddedUp(bars, kYearPlace);
  }
  printout.Chart(statistics.measures.back() + L" por " + lines, bars);
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
    PrintChart(statistics, printout_);
  }
  printout_.End();
}

}  // namespace kodra::console::pages
