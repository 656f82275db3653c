#include "console/run/progress.h"

#include <chrono>
#include <cmath>

#include "console/command_line/file_error.h"
#include "console/formats/cell_text.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr double kFirstAfter = 1.0;
constexpr double kThenEvery = 0.5;

}  // namespace

double SteadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Progress::Progress(Output& errors, Style style, Clock clock)
    : errors_(errors), style_(style), clock_(std::move(clock)), start_(clock_()), next_(start_ + kFirstAfter) {}

Progress::~Progress() { EndLine(); }

void Progress::Row() {
  ++rows_;
  if (style_ == Style::kNone) return;
  const double now = clock_();
  if (now < next_) return;
  next_ = now + kThenEvery;
  Show(CountText(rows_) + (rows_ == 1 ? L" linha, " : L" linhas, ") + PerSecond(now - start_));
}

void Progress::End() {
  const double seconds = clock_() - start_;
  if (style_ == Style::kNone || seconds < kFirstAfter) return;
  const std::wstring tenths = values::NumberToText(std::round(seconds * 10) / 10);
  Show(CountText(rows_) + (rows_ == 1 ? L" linha em " : L" linhas em ") + tenths + L" s (" + PerSecond(seconds) + L")");
  EndLine();
}

void Progress::EndLine() {
  if (shown_ > 0) Write("\n");
  shown_ = 0;
}

void Progress::Show(const std::wstring& text) {
  if (style_ == Style::kOwnLines) {
    Write(values::ToUtf8(text) + "\n");
    return;
  }
  const std::size_t rest = shown_ > text.size() ? shown_ - text.size() : 0;
  Write(values::ToUtf8(L'\r' + text + std::wstring(rest, L' ')));
  shown_ = text.size();
}

void Progress::Write(const std::string& bytes) {
  if (style_ == Style::kNone) return;
  try {
    errors_.Write(bytes);
  } catch (const FileError&) {
    style_ = Style::kNone;
  }
}

std::wstring Progress::PerSecond(double seconds) const {
  return CountText(static_cast<std::uint64_t>(static_cast<double>(rows_) / seconds)) + L" por segundo";
}

}  // namespace kodra::console
