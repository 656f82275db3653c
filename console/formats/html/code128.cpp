// Code 128: choice of code sets, check symbol and drawing.
#include "console/formats/html/code128.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace kodra::console::html {
namespace {

constexpr int kCodeC = 99;
constexpr int kCodeB = 100;
constexpr int kStartB = 104;
constexpr int kStartC = 105;
constexpr int kStop = 106;
constexpr int kQuietZone = 10;

// The widths of each symbol's three bars and three spaces; the stop has a bar more.
constexpr auto kPatterns = std::to_array<std::string_view>({
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312",  "132212", "221213", "221312",
    "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211",  "221132", "221231", "213212",
    "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",  "212123", "212321", "232121",
    "111323", "131123", "131321", "112313", "132113", "132311", "211313", "231113",  "231311", "112133", "112331",
    "132131", "113123", "113321", "133121", "313121", "211331", "231131", "213113",  "213311", "213131", "311123",
    "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111",  "111224", "111422", "121124",
    "121421", "141122", "141221", "112214", "112412", "122114", "122411", "142112",  "142211", "241211", "221114",
    "413111", "241112", "134111", "111242", "121142", "121241", "114212", "124112",  "124211", "411212", "421112",
    "421211", "212141", "214121", "412121", "111143", "111341", "131141", "114113",  "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232", "2331112",
});

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool CanBeEncoded(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

// How many characters from a place on go in pairs of digits: an even number of four or more, else none.
template <class Iterator>
std::size_t PairedDigits(Iterator begin, Iterator end) {
  const auto digits = static_cast<std::size_t>(std::find_if_not(begin, end, IsDigit) - begin);
  return digits >= 4 ? digits / 2 * 2 : 0;
}

void AppendPairs(std::string_view digits, std::vector<int>& symbols) {
  for (std::size_t i = 0; i < digits.size(); i += 2) symbols.push_back((digits[i] - '0') * 10 + (digits[i + 1] - '0'));
}

// The check symbol: the start symbol plus each symbol by its place, modulo 103.
int CheckSymbol(const std::vector<int>& symbols) {
  int sum = symbols.front();
  for (std::size_t place = 1; place < symbols.size(); ++place) sum += static_cast<int>(place) * symbols[place];
  return sum % 103;
}

}  // namespace

std::vector<int> Code128Symbols(std::string_view text) {
  if (!CanBeEncoded(text)) return {};
  const std::string_view leading = text.substr(0, PairedDigits(text.begin(), text.end()));
  const std::string_view rest = text.substr(leading.size());
  const std::size_t trailing = PairedDigits(rest.rbegin(), rest.rend());

  std::vector<int> symbols = {leading.empty() ? kStartB : kStartC};
  AppendPairs(leading, symbols);
  if (!leading.empty() && !rest.empty()) symbols.push_back(kCodeB);
  for (const char c : rest.substr(0, rest.size() - trailing)) symbols.push_back(c - ' ');
  if (trailing > 0) {
    symbols.push_back(kCodeC);
    AppendPairs(rest.substr(rest.size() - trailing), symbols);
  }
  symbols.push_back(CheckSymbol(symbols));
  return symbols;
}

std::vector<int> Code128Widths(std::string_view text) {
  std::vector<int> symbols = Code128Symbols(text);
  if (symbols.empty()) return {};
  symbols.push_back(kStop);
  std::vector<int> widths;
  for (const int symbol : symbols) {
    for (const char width : kPatterns[static_cast<std::size_t>(symbol)]) widths.push_back(width - '0');
  }
  return widths;
}

int Code128Modules(std::string_view text) {
  const std::vector<int> widths = Code128Widths(text);
  return widths.empty() ? 0 : std::accumulate(widths.begin(), widths.end(), 2 * kQuietZone);
}

std::string Code128Svg(std::string_view text) {
  const std::vector<int> widths = Code128Widths(text);
  if (widths.empty()) return {};
  std::string bars;
  int x = kQuietZone;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (i % 2 == 0) bars += fmt::format("M{} 0h{}v1h-{}z", x, widths[i], widths[i]);
    x += widths[i];
  }
  return fmt::format(
      R"(<svg class="barras" viewBox="0 0 {} 1" preserveAspectRatio="none" shape-rendering="crispEdges" role="img" )"
      R"(aria-label="código de barras"><path d="{}"/></svg>)",
      Code128Modules(text), bars);
}

}  // namespace kodra::console::html
