#include "console/formats/table_writer.h"

#include <algorithm>

#include "console/command_line/file_error.h"
#include "console/command_line/terminal_text.h"
#include "console/formats/cell_text.h"
#include "console/formats/display_width.h"
#include "values/surrogates.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr std::wstring_view kBetween = L"  ";

bool IsBlankControl(wchar_t c) { return c == L'\t' || c == L'\n' || c == L'\r' || c == L'\v' || c == L'\f'; }

std::wstring OnOneLine(std::wstring_view text) {
  std::wstring shown;
  shown.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsBlankControl(text[i])) {
      // CR LF is one line end.
      if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
      shown += L' ';
    } else {
      shown += IsControl(text[i]) ? L'\xFFFD' : text[i];
    }
  }
  return shown;
}

}  // namespace

void TableWriter::Begin(const Heading& /*heading*/, std::span<const Column> columns) {
  for (const Column& column : columns) {
    names_.push_back(OnOneLine(column.name));
    kinds_.push_back(column.kind);
  }
  widths_.resize(columns.size());
  Measure(names_);
}

void TableWriter::Row(std::span<const Value> values) {
  Line cells;
  cells.reserve(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) cells.push_back(OnOneLine(BrazilianText(values[i], kinds_[i])));
  const std::lock_guard turn(mutex_);
  ++count_;
  if (!measuring_) {
    WriteLine(cells);
    return;
  }
  Measure(cells);
  kept_.push_back(std::move(cells));
  if (kept_.size() == kMeasured) WriteKept();
  if (count_ == 1 && terminalWidth_) WriteSoon();
}

void TableWriter::WriteSoon() {
  late_ = std::jthread([this](const std::stop_token& end) {
    std::unique_lock turn(mutex_);
    ends_.wait_for(turn, end, kPatience, [this] { return !measuring_; });
    if (!measuring_ || end.stop_requested()) return;
    try {
      WriteKept();
    } catch (const FileError&) {  // NOLINT(bugprone-empty-catch): the caller's next line raises it again
    }
  });
}

void TableWriter::End() {
  const std::lock_guard turn(mutex_);
  if (measuring_) WriteKept();
  output_.Write(values::ToUtf8(L"(" + CountText(count_) + (count_ == 1 ? L" linha)\n" : L" linhas)\n")));
  if (!leftOut_.empty()) WriteLeftOut();
}

void TableWriter::Measure(const Line& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) widths_[i] = std::max(widths_[i], DisplayWidth(cells[i]));
}

void TableWriter::WriteKept() {
  measuring_ = false;
  Fit();
  WriteLine(names_);
  Line rule;
  for (const std::size_t width : widths_) rule.emplace_back(width, L'─');
  WriteLine(rule);
  for (const Line& cells : kept_) WriteLine(cells);
  kept_ = {};
}

void TableWriter::Fit() {
  std::size_t used = 0;
  for (std::size_t i = 0; i < names_.size(); ++i) {
    const std::size_t end = shown_.empty() ? widths_[i] : used + kBetween.size() + widths_[i];
    if (terminalWidth_ && end > *terminalWidth_ && !shown_.empty()) {
      leftOut_.push_back(names_[i]);
    } else {
      shown_.push_back(i);
      used = end;
    }
  }
}

void TableWriter::WriteLeftOut() {
  std::wstring names;
  for (const std::wstring& name : leftOut_) names += (names.empty() ? L"" : L", ") + name;
  output_.Write(values::ToUtf8(L"mais " + CountText(leftOut_.size()) +
                               (leftOut_.size() == 1 ? L" coluna não cabe aqui (" : L" colunas não cabem aqui (") +
                               names + L"): use --colunas, ou --saida ARQUIVO.csv\n"));
}

std::wstring TableWriter::Fitted(const std::wstring& cell, std::size_t column) const {
  const std::size_t width = std::max<std::size_t>(widths_[column], 1);
  if (!terminalWidth_ || kinds_[column] == ColumnKind::kNumber || DisplayWidth(cell) <= width) return cell;
  std::wstring text = cell.substr(0, width - 1);
  while (DisplayWidth(text) > width - 1) text.pop_back();
  // Half of a character of two units.
  if (!text.empty() && values::IsHighSurrogate(static_cast<char32_t>(text.back()))) text.pop_back();
  return text + L'…';
}

void TableWriter::WriteLine(const Line& cells) {
  std::wstring line;
  for (const std::size_t i : shown_) {
    if (i != shown_.front()) line += kBetween;
    const std::wstring cell = Fitted(cells[i], i);
    const std::size_t width = DisplayWidth(cell);
    const std::size_t missing = widths_[i] > width ? widths_[i] - width : 0;
    const bool toTheRight = kinds_[i] == ColumnKind::kNumber;
    if (toTheRight) line.append(missing, L' ');
    line += cell;
    if (!toTheRight) line.append(missing, L' ');
  }
  line.erase(line.find_last_not_of(L' ') + 1);
  output_.Write(values::ToUtf8(line) + "\n");
}

}  // namespace kodra::console
