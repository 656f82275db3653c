#include "console/inventory/scanned_codes.h"

#include <fmt/format.h>
#include <algorithm>
#include <set>

#include "console/command_line/text_lines.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console::inventory {
namespace {

constexpr std::size_t kLongestCode = 100;

// A letter of UTF-8 has no byte below a blank.
bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; }

UsageError NotAList(const std::string& name, std::size_t line, std::string_view reason) {
  return UsageError(fmt::format("{} não é uma lista de códigos: a linha {} {}", name, line, reason));
}

}  // namespace

std::vector<std::wstring> ScannedCodes(std::string_view bytes, const std::string& name) {
  std::vector<std::wstring> codes;
  std::set<std::wstring> known;
  std::size_t number = 0;
  for (const std::string_view line : TrimmedLines(bytes)) {
    ++number;
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
