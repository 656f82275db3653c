#include "console/command_line/parameter_value.h"

#include <algorithm>
#include <array>
#include <optional>
#include <regex>
#include <string>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "values/dates.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

// A date as dd/mm/yyyy or yyyy-mm-dd; a time as hh:mm or hh:mm:ss may follow.
std::optional<values::Calendar> ReadDate(const std::string& typed) {
  static const std::regex pattern(
      R"((?:(\d{1,2})/(\d{1,2})/(\d{4})|(\d{4})-(\d{2})-(\d{2}))(?:[ T](\d{1,2}):(\d{2})(?::(\d{2}))?)?)");
  std::smatch match;
  if (!std::regex_match(typed, match, pattern)) return std::nullopt;
  const auto number = [&](int group) { return match[group].matched ? std::stoi(match[group].str()) : 0; };
  const bool brazilian = match[1].matched;
  const values::Calendar read = {
      number(brazilian ? 3 : 4), number(brazilian ? 2 : 5), number(brazilian ? 1 : 6), number(7), number(8), number(9)};
  const bool exists =
      values::IsDay(read.year, read.month, read.day) && read.hour < 24 && read.minute < 60 && read.second < 60;
  return exists ? std::optional(read) : std::nullopt;
}

std::optional<bool> ReadFlag(std::string_view typed) {
  constexpr auto kYes = std::to_array<std::string_view>({"sim", "s", "1", "verdadeiro", "true"});
  constexpr auto kNo = std::to_array<std::string_view>({"nao", "n", "0", "falso", "false"});
  const std::string folded = Folded(typed);
  if (std::ranges::find(kYes, folded) != kYes.end()) return true;
  if (std::ranges::find(kNo, folded) != kNo.end()) return false;
  return std::nullopt;
}

[[noreturn]] void Refuse(const frame::Property& property, std::string_view typed, const char* problem) {
  throw UsageError(values::ToUtf8(property.name) + ": \"" + std::string(typed) + "\" " + problem);
}

}  // namespace

Value ParameterValue(const frame::Property& property, std::string_view typed) {
  if (property.rule == frame::PropertyRule::kDate) {
    const auto date = ReadDate(std::string(typed));
    if (!date) Refuse(property, typed, "não é uma data (escreva 01/02/2024 ou 2024-02-01)");
    return values::FromCalendar(*date);
  }
  if (property.rule == frame::PropertyRule::kFlag) {
    const auto flag = ReadFlag(typed);
    if (!flag) Refuse(property, typed, "não é válido (escreva sim ou não)");
    return *flag;
  }
  return values::FromUtf8(typed);
}

}  // namespace kodra::console
