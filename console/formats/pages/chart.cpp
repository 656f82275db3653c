#include "console/formats/pages/chart.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include "console/formats/pages/number_text.h"
#include "console/formats/pages/page_style.h"
#include "console/formats/pages/text_lines.h"

namespace kodra::console::pages {
namespace {

constexpr Length kTop = 8_mm, kStep = 6_mm, kBarHeight = 4.2_mm;
constexpr Length kNameWidth = 56_mm, kValueWidth = 24_mm, kGap = 1.5_mm;
constexpr Length kBarWidth = kChartWidth - kNameWidth - kValueWidth;

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

}  // namespace

Length ChartHeight(std::size_t bars) { return kTop + kStep * static_cast<Length>(std::min(bars, kMostBars)); }

void DrawChart(Canvas& canvas, Point corner, std::wstring_view caption, const std::vector<Bar>& all) {
  canvas.Text({corner.x, corner.y + Ascent(style::kBlockSize)}, Printable(caption),
              {.face = Face::kBold, .size = style::kBlockSize, .colour = style::kInk});
  const std::vector<Bar> bars = LargestBars(all);
  double largest = 0;
  for (const Bar& bar : bars) largest = std::max(largest, bar.value);
  const TextStyle letters = {.size = style::kSmallSize, .colour = style::kInk};
  const Length left = corner.x + kNameWidth;
  Length top = corner.y + kTop;
  for (const Bar& bar : bars) {
    const double part = largest > 0 ? std::max(bar.value, 0.0) / largest : 0;
    const auto length = static_cast<Length>(part * kBarWidth);
    const Length base = top + kBarHeight / 2 + letters.size * 36 / 100;
    const std::wstring name = Shortened(Printable(bar.name), letters.face, letters.size, kNameWidth - 2 * kGap);
    canvas.Text({left - kGap - TextWidth(name, letters.face, letters.size), base}, name, letters);
    const Rectangle area = {left, top, length, kBarHeight};
    canvas.Fill({&area, 1}, style::kBar);
    canvas.Text({left + length + kGap, base}, NumberForPeople(bar.value), letters);
    top += kStep;
  }
}

}  // namespace kodra::console::pages
