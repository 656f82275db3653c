#include "console/formats/pages/bar_chart.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <numeric>

#include "console/formats/html/html.h"
#include "console/formats/html/text_fit.h"
#include "console/formats/pages/number_text.h"

namespace kodra::console::html {
namespace {

// Lengths in millimetres.
constexpr double kWidth = 186, kRow = 6, kBarHeight = 4.2, kTop = 8;
constexpr double kNameWidth = 56, kValueWidth = 24, kLetter = 2.8;
constexpr double kBarWidth = kWidth - kNameWidth - kValueWidth;

// The largest bars in their order, and the others as one.
std::vector<Bar> LargestBars(const std::vector<Bar>& bars) {
  if (bars.size() <= kMostBars) return bars;
  std::vector<std::size_t> places(bars.size());
  std::iota(places.begin(), places.end(), 0);
  std::ranges::stable_sort(places, std::greater(), [&](std::size_t place) { return bars[place].value; });
  const auto others = places.begin() + kMostBars - 1;
  double rest = 0;
  for (auto place = others; place != places.end(); ++place) rest += bars[*place].value;
  places.erase(others, places.end());
  std::ranges::sort(places);
  std::vector<Bar> kept;
  kept.reserve(kMostBars);
  for (const std::size_t place : places) kept.push_back(bars[place]);
  kept.push_back({L"demais", rest});
  return kept;
}

std::string BarSvg(const Bar& bar, double top, double largest) {
  const double length = largest > 0 ? std::max(bar.value, 0.0) / largest * kBarWidth : 0;
  const double base = top + kBarHeight / 2 + kLetter * 0.36;
  const FittedText name = FitText(bar.name, {kNameWidth - 3, kLetter * kLineHeight}, kLetter, kLetter);
  return fmt::format(R"(<text x="{:.2f}" y="{:.2f}" text-anchor="end">{}</text>)"
                     R"(<rect x="{:.2f}" y="{:.2f}" width="{:.2f}" height="{:.2f}"/>)"
                     R"(<text x="{:.2f}" y="{:.2f}">{}</text>)",
                     kNameWidth - 2, base, Escaped(name.text), kNameWidth, top, length, kBarHeight,
                     kNameWidth + length + 1.5, base, Escaped(NumberForPeople(bar.value)));
}

}  // namespace

std::string BarChartSvg(std::wstring_view caption, const std::vector<Bar>& all) {
  const std::vector<Bar> bars = LargestBars(all);
  if (bars.empty()) return {};
  double largest = 0;
  for (const Bar& bar : bars) largest = std::max(largest, bar.value);
  const double height = kTop + kRow * static_cast<double>(bars.size());
  std::string svg = fmt::format(
      R"(<svg class="grafico" viewBox="0 0 {0} {1}" width="{0}mm" height="{1}mm" role="img" aria-label="{2}" )"
      R"(font-size="{3}"><text x="0" y="4.5" font-weight="bold" font-size="3.4">{2}</text>)",
      kWidth, height, Escaped(caption), kLetter);
  double top = kTop;
  for (const Bar& bar : bars) {
    svg += BarSvg(bar, top, largest);
    top += kRow;
  }
  return svg + "</svg>\n";
}

}  // namespace kodra::console::html
