#include "console/run/waiting.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "console/command_line/file_error.h"
#include "values/utf8.h"

namespace kodra::console {

Waiting::Waiting(Output& errors, Progress::Style style) : errors_(errors), style_(style) {
  if (style_ == Progress::Style::kNone) return;
  thread_ = std::jthread([this](const std::stop_token& end) {
    try {
      Show(end);
    } catch (const FileError&) {  // NOLINT(bugprone-empty-catch): the report goes on without it
    }
  });
}

void Waiting::Show(const std::stop_token& end) {
  using std::chrono::seconds;
  std::mutex mutex;
  std::unique_lock lock(mutex);
  std::condition_variable_any ended;
  const bool oneLine = style_ == Progress::Style::kOneLine;
  std::wstring text;
  for (seconds waited{1}; !ended.wait_for(lock, end, seconds(1), [&end] { return end.stop_requested(); }); ++waited) {
    text = L"esperando o banco de dados há " + std::to_wstring(waited.count()) + L" s";
    // A message that must be written at once, as that about the time limit, begins on the line of the text.
    errors_.Write(values::ToUtf8(text) + (oneLine ? '\r' : '\n'));
  }
  if (oneLine && !text.empty()) errors_.Write(std::string(text.size(), ' ') + '\r');
}

void Waiting::End() {
  if (!thread_.joinable()) return;
  thread_.request_stop();
  thread_.join();
}

}  // namespace kodra::console
