// What is drawn on the pages of a file: texts, lines, filled areas and pictures, each at its place. One implementation
// writes PDF, the other HTML; both draw the same.
//
//   canvas.BeginPage(kA4);
//   canvas.Text({20_mm, 30_mm}, L"Módulo AA001", {.face = Face::kBold, .size = 12_pt});
//   canvas.Finish();
#pragma once

#include <span>
#include <string_view>

#include "console/formats/pages/picture.h"
#include "console/formats/pages/typeface.h"

namespace kodra::console::pages {

// 0xRRGGBB.
using Colour = unsigned;
inline constexpr Colour kBlack = 0x000000;

struct TextStyle {
  Face face = Face::kRegular;
  Length size = 9_pt;
  Colour colour = kBlack;
};

struct LineStyle {
  Length width = 0.2_mm;
  Colour colour = kBlack;
  bool dashed = false;
};

class Canvas {
 public:
  virtual ~Canvas() = default;

  // REQUIRES: before anything is drawn. What follows is on this page.
  virtual void BeginPage(Size size) = 0;

  // A printable text on one line, from the left end of its base line; as wide as TextWidth says.
  virtual void Text(Point start, std::wstring_view text, const TextStyle& style) = 0;
  virtual void Line(Point from, Point to, const LineStyle& style) = 0;
  // Fills rectangles, such as the bars of a barcode.
  virtual void Fill(std::span<const Rectangle> areas, Colour colour) = 0;
  // REQUIRES: the picture outlives the canvas.
  virtual void Draw(const Picture& picture, Rectangle place) = 0;

  // Called once, after all pages, of which there is at least one.
  virtual void Finish() = 0;
};

}  // namespace kodra::console::pages
