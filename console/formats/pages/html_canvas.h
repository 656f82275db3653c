// Pages as one HTML file to print: each page is a drawing in millimetres, the same as in the PDF file, of text that can
// be selected.
#pragma once

#include "console/formats/output.h"
#include "console/formats/pages/canvas.h"

namespace kodra::console::pages {

// A drawing within an HTML page.
class SvgCanvas : public Canvas {
 public:
  // REQUIRES: `output` outlives the canvas.
  explicit SvgCanvas(Output& output) : output_(output) {}

  void BeginPage(Size size) override;
  void Text(Point start, std::wstring_view text, const TextStyle& style) override;
  void Line(Point from, Point to, const LineStyle& style) override;
  void Fill(std::span<const Rectangle> areas, Colour colour) override;
  void Draw(const Picture& picture, Rectangle place) override;
  void Finish() override;

 protected:
  Output& output_;
};

class HtmlCanvas final : public SvgCanvas {
 public:
  // `title` is the document's title. Each page is written when it is complete. REQUIRES: `output` outlives the canvas.
  HtmlCanvas(Output& output, std::wstring_view title) : SvgCanvas(output), title_(title) {}

  // REQUIRES: all pages have the same size.
  void BeginPage(Size size) override;
  void Finish() override;

 private:
  std::wstring title_;
  bool pageIsOpen_ = false;
};

}  // namespace kodra::console::pages
