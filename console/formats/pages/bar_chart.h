// A chart of horizontal bars, as an SVG drawing.
#pragma once

#include <string>
#include <vector>

namespace kodra::console::html {

struct Bar {
  std::wstring name;
  double value;
};

// One bar for each name, in their order, each as long as its value is in proportion to the largest. More than kMostBars
// are drawn as the largest ones, in their order, and one "demais" for the sum of the others. Empty without a bar.
inline constexpr std::size_t kMostBars = 36;
std::string BarChartSvg(std::wstring_view caption, const std::vector<Bar>& bars);

}  // namespace kodra::console::html
