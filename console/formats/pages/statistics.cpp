#include "console/formats/pages/statistics.h"

#include <algorithm>
#include <cmath>

#include "console/command_line/suggest.h"
#include "console/formats/pages/chart.h"
#include "values/format_date.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console::pages {

namespace {

using guide::Place;

// What a report says of a period that was not given: from the zero date to the zero date.
constexpr std::wstring_view kNoPeriod = L"Período: 30/12/1899 a 30/12/1899";

double NumberOf(const Value& value) {
  if (const std::optional<double> number = NumberIn(value)) return *number;
  return value.Is<std::wstring>() ? values::LeadingNumber(value.As<std::wstring>()) : 0;
}

void AddTo(std::vector<double>& sums, const std::vector<double>& more) {
  sums.resize(more.size());
  for (std::size_t i = 0; i < more.size(); ++i) sums[i] += more[i];
}

std::wstring JoinedTexts(const RowReader& row, const std::vector<const guide::Column*>& columns) {
  std::wstring text;
  for (const guide::Column* column : columns) {
    const std::wstring part = row.Text(column->name);
    if (!part.empty() && part != kNoPeriod) text += (text.empty() ? L"" : L" · ") + part;
  }
  return text;
}

// The only column in a place, or null.
const guide::Column* ColumnIn(Place place, const guide::Report& report) {
  const auto columns = guide::ColumnsIn(place, report);
  return columns.empty() ? nullptr : columns.front();
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

}  // namespace

StatisticsGatherer::StatisticsGatherer(const Heading& heading, std::span<const Column> columns)
    : report_(*guide::Find(heading.className, heading.method)),
      block_(ColumnIn(Place::kBlock, report_)),
      line_(ColumnIn(Place::kLine, report_)),
      total_(ColumnIn(Place::kTotal, report_)),
      counts_(guide::ColumnsIn(Place::kCount, report_)) {
  const RowReader row(columns, {});
  hasFrente_ = row.Has("FRENTE");
  hasVerso_ = row.Has("VERSO");
  heading_.title = values::FromUtf8(report_.page.title);
  heading_.groupCaption = values::FromUtf8(line_ != nullptr ? line_->caption : report_.page.lineCaption);
  if (total_ != nullptr)
    heading_.measures = {values::FromUtf8(total_->caption)};
  else if (hasVerso_)
    heading_.measures = {L"Documentos", L"Frente", L"Verso", L"Páginas"};
  else if (hasFrente_)
    heading_.measures = {L"Documentos", L"Folhas"};
  else
    heading_.measures = {L"Documentos"};
  heading_.sums.assign(heading_.measures.size(), 0);
}

std::vector<double> StatisticsGatherer::MeasuresOf(const RowReader& row) const {
  if (total_ != nullptr) return {NumberOf(row.Get(total_->name))};
  std::vector<double> sums = {1};
  if (hasFrente_) sums.push_back(NumberOf(row.Get("FRENTE")));
  if (hasVerso_) {
    sums.push_back(NumberOf(row.Get("VERSO")));
    sums.push_back(sums[1] + sums[2]);
  }
  return sums;
}

StatisticsGatherer::Key StatisticsGatherer::KeyOf(const RowReader& row, const guide::Column* column) {
  if (column == nullptr) return {};
  const Value& value = row.Get(column->name);
  if (value.Is<Date>()) {
    // A day before 30 December 1899 is negative, and its time of day makes the number smaller still.
    const Date day{std::trunc(value.As<Date>().days)};
    if (!IsInCalendar(day)) {
      const std::wstring name = BrazilianText(day, ColumnKind::kDay);
      return {values::ToUtf8(name), name};
    }
    return {values::ToUtf8(values::FormatDate(day, L"yyyymmdd")), values::FormatDate(day, L"dd/mm/yyyy")};
  }
  std::wstring name = row.Text(column->name);
  return {Folded(values::ToUtf8(name)), name};
}

void StatisticsGatherer::Add(const RowReader& row) {
  if (std::exchange(first_, false)) TakeHeading(row);
  if (line_ != nullptr) {
    AddTo(groups_[KeyOf(row, block_)][KeyOf(row, line_)], MeasuresOf(row));
    return;
  }
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    const Key key = {std::to_string(i), values::FromUtf8(counts_[i]->caption)};
    AddTo(groups_[{}][key], {NumberOf(row.Get(counts_[i]->name))});
  }
}

void StatisticsGatherer::TakeHeading(const RowReader& first) {
  if (const guide::Column* title = ColumnIn(Place::kTitle, report_); title != nullptr) {
    if (std::wstring text = first.Text(title->name); !text.empty()) heading_.title = std::move(text);
  }
  heading_.subtitle = JoinedTexts(first, guide::ColumnsIn(Place::kSubtitle, report_));
  for (const guide::Column* fact : guide::ColumnsIn(Place::kFact, report_)) {
    if (std::wstring text = first.Text(fact->name); !text.empty())
      heading_.facts.push_back({values::FromUtf8(fact->caption), std::move(text)});
  }
}

Statistics StatisticsGatherer::Result() const {
  Statistics result = heading_;
  for (const auto& [outer, lines] : groups_) {
    StatisticsBlock block = {outer.name, {}, {}};
    for (const auto& [key, sums] : lines) {
      block.lines.push_back({key.name, sums});
      AddTo(block.sums, sums);
    }
    AddTo(result.sums, block.sums);
    result.blocks.push_back(std::move(block));
  }
  return result;
}

StatisticsChart ChartOf(const Statistics& statistics) {
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
  return {statistics.measures.back() + L" por " + lines, bars};
}

}  // namespace kodra::console::pages
