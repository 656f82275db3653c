// Pages as a PDF file: text that can be selected and searched, with the used part of the font embedded; lines and bars
// as vectors. The same pages are the same bytes.
#pragma once

#include <memory>

#include "console/formats/output.h"
#include "console/formats/pages/canvas.h"

namespace kodra::console::pages {

class PdfCanvas final : public Canvas {
 public:
  // `title` is the document's title. The pages are kept in memory until Finish. REQUIRES: `output` outlives the canvas.
  PdfCanvas(Output& output, std::wstring_view title);
  ~PdfCanvas() override;

  void BeginPage(Size size) override;
  void Text(Point start, std::wstring_view text, const TextStyle& style) override;
  void Line(Point from, Point to, const LineStyle& style) override;
  void Fill(std::span<const Rectangle> areas, Colour colour) override;
  void Draw(const Picture& picture, Rectangle place) override;
  // Raises FileError when the memory does not suffice.
  void Finish() override;

 private:
  class Document;

  Output& output_;
  std::unique_ptr<Document> document_;
};

}  // namespace kodra::console::pages
