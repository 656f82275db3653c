// A chart of horizontal bars.
#pragma once

#include <vector>

#include "console/formats/pages/canvas.h"
#include "console/formats/pages/printout.h"

namespace kodra::console::pages {

// More bars than these are drawn as the largest ones, in their order, and one "demais" for the sum of the others.
inline constexpr std::size_t kMostBars = 36;

inline constexpr Length kChartWidth = 186_mm;
// How high the chart of so many bars is.
Length ChartHeight(std::size_t bars);

// Draws a bar for each name, in their order, each as long as its value is in proportion to the largest.
void DrawChart(Canvas& canvas, Point corner, std::wstring_view caption, const std::vector<Bar>& bars);

}  // namespace kodra::console::pages
