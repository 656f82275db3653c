// A canvas that records what is drawn on it, page by page.
#pragma once

#include <string>
#include <vector>

#include "console/formats/pages/canvas.h"

namespace kodra::console::pages {

class RecordingCanvas final : public Canvas {
 public:
  struct Drawn {
    std::wstring text;
    Point start;
    TextStyle style;
    Length Right() const { return start.x + TextWidth(text, style.face, style.size); }
  };
  struct Page {
    Size size;
    std::vector<Drawn> texts;
    std::vector<Rectangle> areas;
    std::vector<std::pair<Point, Point>> lines;
    std::vector<Rectangle> pictures;

    // All texts with one blank between them, in the order in which they were drawn.
    std::wstring Words() const {
      std::wstring words;
      for (const Drawn& drawn : texts) words += (words.empty() ? L"" : L" ") + drawn.text;
      return words;
    }
    // The first text that is equal to this one; null if there is none.
    const Drawn* Find(const std::wstring& text) const {
      for (const Drawn& drawn : texts)
        if (drawn.text == text) return &drawn;
      return nullptr;
    }
  };

  void BeginPage(Size size) override { pages_.push_back({size, {}, {}, {}, {}}); }
  void Text(Point start, std::wstring_view text, const TextStyle& style) override {
    pages_.back().texts.push_back({std::wstring(text), start, style});
  }
  void Line(Point from, Point to, const LineStyle&) override { pages_.back().lines.emplace_back(from, to); }
  void Fill(std::span<const Rectangle> areas, Colour) override {
    pages_.back().areas.insert(pages_.back().areas.end(), areas.begin(), areas.end());
  }
  void Draw(const Picture&, Rectangle place) override { pages_.back().pictures.push_back(place); }
  void Finish() override { isFinished_ = true; }

  const std::vector<Page>& Pages() const { return pages_; }
  bool IsFinished() const { return isFinished_; }

 private:
  std::vector<Page> pages_;
  bool isFinished_ = false;
};

}  // namespace kodra::console::pages
