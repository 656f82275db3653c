#include "console/command_line/text_lines.h"

namespace kodra::console {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

std::vector<std::string_view> TrimmedLines(std::string_view text) {
  text = WithoutByteOrderMark(text);
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    lines.push_back(Trimmed(text.substr(0, end)));
    if (end == text.npos) break;
    text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
  }
  return lines;
}

}  // namespace kodra::console
