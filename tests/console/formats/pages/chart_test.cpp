// Charts: how long each bar is, and which are drawn.
#include "console/formats/pages/chart.h"

#include <gtest/gtest.h>

#include "tests/console/formats/pages/recording_canvas.h"

namespace kodra::console::pages {
namespace {

RecordingCanvas::Page Drawn(const std::vector<Bar>& bars) {
  RecordingCanvas canvas;
  canvas.BeginPage(kA4);
  DrawChart(canvas, {10_mm, 20_mm}, L"Documentos por Dia", bars);
  return canvas.Pages().front();
}

TEST(Chart, DrawsEachBarAsLongAsItsValueIsToTheLargest) {
  const RecordingCanvas::Page page = Drawn({{L"Contratos", 600}, {L"Atas", 1200}});
  EXPECT_EQ(page.Words(), L"Documentos por Dia Contratos 600 Atas 1.200");
  ASSERT_EQ(page.areas.size(), 2U);
  EXPECT_EQ(page.areas[0].left, 66_mm);
  EXPECT_EQ(page.areas[0].top, 28_mm);
  EXPECT_EQ(page.areas[0].width, 53_mm);
  EXPECT_EQ(page.areas[1].width, 106_mm);
  EXPECT_EQ(page.areas[1].top, 34_mm);
  EXPECT_EQ(page.Find(L"600")->start.x, 66_mm + 53_mm + 1.5_mm);
  EXPECT_EQ(page.Find(L"Atas")->Right(), 66_mm - 1.5_mm);
}

// Forty bars of values 1 to 40: the 35 largest keep their order, the other five add up to 1 + 2 + 3 + 4 + 5.
TEST(Chart, AddsTheSmallestOfTooManyTogether) {
  std::vector<Bar> bars;
  for (int i = 1; i <= 40; ++i) bars.push_back({L"n" + std::to_wstring(i), static_cast<double>(i)});
  const RecordingCanvas::Page page = Drawn(bars);
  EXPECT_EQ(page.areas.size(), kMostBars);
  EXPECT_EQ(page.Find(L"n5"), nullptr);
  EXPECT_NE(page.Find(L"n6"), nullptr);
  EXPECT_EQ(page.texts[page.texts.size() - 3].text, L"40");
  EXPECT_EQ(page.texts[page.texts.size() - 2].text, L"demais");
  EXPECT_EQ(page.texts.back().text, L"15");
  EXPECT_EQ(page.areas.back().Bottom(), 20_mm + ChartHeight(40) - 1.8_mm);
}

TEST(Chart, DrawsNoLengthForNothing) {
  EXPECT_EQ(Drawn({{L"a", 0}}).areas.front().width, 0);
  EXPECT_EQ(Drawn({{L"a", -5}, {L"b", 5}}).areas.front().width, 0);
}

TEST(Chart, ShortensANameThatIsWiderThanItsPlace) {
  const RecordingCanvas::Page page = Drawn({{std::wstring(60, L'W'), 1}});
  const RecordingCanvas::Drawn& name = page.texts[1];
  EXPECT_EQ(name.text.back(), L'…');
  EXPECT_GE(name.start.x, 10_mm);
  EXPECT_EQ(name.Right(), 66_mm - 1.5_mm);
}

}  // namespace
}  // namespace kodra::console::pages
