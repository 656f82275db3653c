#include "console/inventory/scanned_codes.h"

#include <fmt/format.h>
#include <algorithm>
#include <set>

#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console::inventory {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestCode = 100;

// A letter of UTF-8 has no byte below a blank.
bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; }

std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = line.find_first_not_of(kBlanks);
  return first == line.npos ? std::string_view() : line.substr(first, line.find_last_not_of(kBlanks) + 1 - first);
}

UsageError NotAList(const std::string& name, std::size_t line, std::string_view reason) {
  return UsageError(fmt::format("{} não é uma lista de códigos: a linha {} {}", name, line, reason));
}

// Removes the first line from the bytes and returns it without its end.
std::string_view TakeLine(std::string_view& bytes) {
  const std::size_t end = bytes.find_first_of("\r\n");
  const std::string_view line = bytes.substr(0, end);
  if (end == bytes.npos)
    bytes = {};
  else
    bytes.remove_prefix(end + (bytes.substr(end).starts_with("\r\n") ? 2 : 1));
  return line;
}

}  // namespace

std::vector<std::wstring> ScannedCodes(std::string_view bytes, const std::string& name) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  std::vector<std::wstring> codes;
  std::set<std::wstring> known;
  for (std::size_t number = 1; !bytes.empty(); ++number) {
    const std::string_view line = Trimmed(TakeLine(bytes));
    if (std::ranges::any_of(line, IsControl))
      throw NotAList(name, number, "não é texto; grave a lista como texto, em UTF-8, com um código por linha");
    const std::wstring code = values::FromUtf8(line);
    if (code.size() > kLongestCode)
      throw NotAList(name, number, fmt::format("tem mais de {} caracteres", kLongestCode));
    if (!code.empty() && known.insert(code).second) codes.push_back(code);
  }
  if (codes.empty()) throw UsageError(name + " não tem nenhum código");
  return codes;
}

}  // namespace kodra::console::inventory
