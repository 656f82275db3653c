// A canvas that remembers where things are drawn.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "console/formats/labels/fitted_text.h"
#include "console/formats/pages/canvas.h"

namespace kodra::console::labels {

struct Drawn {
  enum Kind { kText, kFill, kPicture, kLine } kind;
  std::wstring text;
  pages::Length letters;
  pages::Rectangle box;     // of a fill, around all its areas
  pages::Length narrowest;  // of the areas of a fill
};

class RecordingCanvas final : public pages::Canvas {
 public:
  struct Page {
    pages::Size size;
    std::vector<Drawn> drawn;
  };

  void BeginPage(pages::Size size) override { pages_.push_back({size, {}}); }
  void Text(pages::Point start, std::wstring_view text, const pages::TextStyle& style) override {
    const pages::Rectangle box = {start.x, start.y - pages::Ascent(style.size),
                                  pages::TextWidth(text, style.face, style.size), LineHeight(style.size)};
    Add({Drawn::kText, std::wstring(text), style.size, box, 0});
  }
  void Line(pages::Point from, pages::Point to, const pages::LineStyle&) override {
    const auto [left, right] = std::minmax(from.x, to.x);
    const auto [top, bottom] = std::minmax(from.y, to.y);
    Add({Drawn::kLine, {}, 0, {left, top, right - left, bottom - top}, 0});
  }
  void Fill(std::span<const pages::Rectangle> areas, pages::Colour) override {
    pages::Length left = areas[0].left, top = areas[0].top, right = 0, bottom = 0, narrowest = areas[0].width;
    for (const pages::Rectangle& area : areas) {
      left = std::min(left, area.left);
      top = std::min(top, area.top);
      right = std::max(right, area.Right());
      bottom = std::max(bottom, area.Bottom());
      narrowest = std::min(narrowest, area.width);
    }
    Add({Drawn::kFill, {}, 0, {left, top, right - left, bottom - top}, narrowest});
  }
  void Draw(const pages::Picture&, pages::Rectangle place) override { Add({Drawn::kPicture, {}, 0, place, 0}); }
  void Finish() override { isFinished_ = true; }

  const std::vector<Page>& Pages() const { return pages_; }
  bool IsFinished() const { return isFinished_; }

  // The texts of a page, in the order in which they were drawn.
  std::vector<std::wstring> Texts(std::size_t page) const {
    std::vector<std::wstring> texts;
    for (const Drawn& drawn : pages_.at(page).drawn) {
      if (drawn.kind == Drawn::kText) texts.push_back(drawn.text);
    }
    return texts;
  }

 private:
  void Add(Drawn drawn) { pages_.back().drawn.push_back(std::move(drawn)); }

  std::vector<Page> pages_;
  bool isFinished_ = false;
};

}  // namespace kodra::console::labels
