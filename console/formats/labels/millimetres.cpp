#include "console/formats/labels/millimetres.h"

#include <fmt/format.h>
#include <algorithm>
#include <cstdlib>

namespace kodra::console::labels {
namespace {

constexpr std::size_t kMostDigits = 4, kMostDecimals = 3;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::optional<pages::Length> ParseMillimetres(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  const std::string_view whole = text.substr(0, text.find_first_of(",."));
  const bool hasDecimals = whole.size() < text.size();
  std::string decimals(hasDecimals ? text.substr(whole.size() + 1) : "");
  if (whole.empty() || whole.size() > kMostDigits || hasDecimals == decimals.empty() || decimals.size() > kMostDecimals)
    return std::nullopt;
  decimals.resize(kMostDecimals, '0');
  const std::string digits = std::string(whole) + decimals;
  if (!std::ranges::all_of(digits, IsDigit)) return std::nullopt;
  const pages::Length length = std::stoi(digits);
  return isNegative ? -length : length;
}

std::string MillimetresText(pages::Length length) {
  const int absolute = std::abs(length);
  std::string text = fmt::format("{}{},{:03}", length < 0 ? "-" : "", absolute / 1000, absolute % 1000);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with(',')) text.pop_back();
  return text;
}

std::string MillimetresText(pages::Size size) {
  return MillimetresText(size.width) + " x " + MillimetresText(size.height);
}

}  // namespace kodra::console::labels
