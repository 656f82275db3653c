#include "console/panel/page_writer.h"

#include <nlohmann/json.hpp>

#include "console/formats/cell_text.h"
#include "console/formats/pages/number_text.h"
#include "console/formats/pages/report_words.h"
#include "console/reports/guide.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using Json = nlohmann::ordered_json;
using std::chrono::steady_clock;
using values::ToUtf8;

// A piece that is worth sending, and the time after which a smaller one is sent.
constexpr std::size_t kPiece = std::size_t{32} * 1024;
constexpr std::chrono::milliseconds kPause{200};

// The caption of the guide, or else the name.
std::string CaptionOf(const Column& column, const guide::Report& report) {
  const guide::Column* const known = guide::FindColumn(report, column.name);
  return known == nullptr || known->caption.empty() ? ToUtf8(column.name) : std::string(known->caption);
}

Json SumsOf(const std::vector<double>& sums) {
  Json texts = Json::array();
  for (const double sum : sums) texts.push_back(ToUtf8(pages::NumberForPeople(sum)));
  return texts;
}

Json ObjectOf(const pages::Statistics& statistics) {
  Json measures = Json::array(), blocks = Json::array(), facts = Json::array(), bars = Json::array();
  for (const std::wstring& measure : statistics.measures) measures.push_back(ToUtf8(measure));
  for (const pages::StatisticsBlock& block : statistics.blocks) {
    Json lines = Json::array();
    for (const pages::StatisticsLine& line : block.lines)
      lines.push_back({{"name", ToUtf8(line.name)}, {"sums", SumsOf(line.sums)}});
    blocks.push_back({{"name", ToUtf8(block.name)}, {"lines", lines}, {"sums", SumsOf(block.sums)}});
  }
  for (const pages::Fact& fact : statistics.facts)
    facts.push_back({{"caption", ToUtf8(fact.caption)}, {"text", ToUtf8(fact.text)}});
  const pages::StatisticsChart chart = pages::ChartOf(statistics);
  for (const pages::Bar& bar : chart.bars)
    bars.push_back(
        {{"name", ToUtf8(bar.name)}, {"value", bar.value}, {"text", ToUtf8(pages::NumberForPeople(bar.value))}});
  return {{"title", ToUtf8(statistics.title)},
          {"subtitle", ToUtf8(statistics.subtitle)},
          {"facts", facts},
          {"groupCaption", ToUtf8(statistics.groupCaption)},
          {"measures", measures},
          {"blocks", blocks},
          {"sums", SumsOf(statistics.sums)},
          {"chart", {{"caption", ToUtf8(chart.caption)}, {"bars", bars}}}};
}

std::string LineOf(const Json& json) { return json.dump() + "\n"; }

}  // namespace

void PageWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  heading_ = heading;
  columns_.assign(columns.begin(), columns.end());
  const guide::Report& report = *guide::Find(heading.className, heading.method);
  if (report.page.kind == guide::PageKind::kStatistic) gatherer_.emplace(heading_, columns_);
  Json list = Json::array();
  for (const Column& column : columns_)
    list.push_back({{"name", ToUtf8(column.name)},
                    {"caption", CaptionOf(column, report)},
                    {"isNumber", column.kind == ColumnKind::kNumber}});
  lines_ = LineOf({{"columns", list}});
  Flush();
}

void PageWriter::Row(std::span<const Value> values) {
  ++rows_;
  if (gatherer_) gatherer_->Add(RowReader(columns_, values));
  const bool isShown = rows_ <= mostRows_;
  if (isShown) {
    Json row = Json::array();
    for (std::size_t i = 0; i < values.size(); ++i)
      row.push_back(IsNothing(values[i]) ? Json() : Json(ToUtf8(BrazilianText(values[i], columns_[i].kind))));
    lines_ += LineOf(row);
  }
  const bool isTime = steady_clock::now() - sent_ >= kPause;
  if (!isShown && isTime) lines_ += LineOf({{"count", rows_}});
  if (rows_ == 1 || isTime || lines_.size() >= kPiece) Flush();
}

void PageWriter::End() {
  const guide::Report& report = *guide::Find(heading_.className, heading_.method);
  Json notes = Json::array();
  for (const pages::Fact& note : pages::NotesOf(report, heading_))
    notes.push_back({{"caption", ToUtf8(note.caption)}, {"text", ToUtf8(note.text)}});
  Json end = {{"rows", rows_}, {"filter", ToUtf8(pages::FilterText(report, heading_))}, {"notes", notes}};
  if (const std::vector<std::string> warnings = findWarnings_(rows_); !warnings.empty()) end["warnings"] = warnings;
  if (gatherer_ && rows_ > 0) end["statistics"] = ObjectOf(gatherer_->Result());
  lines_ += LineOf({{"end", end}});
  Flush();
}

void PageWriter::Flush() {
  output_.Write(lines_);
  lines_.clear();
  sent_ = steady_clock::now();
}

}  // namespace kodra::console::panel
