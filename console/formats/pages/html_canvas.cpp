#include "console/formats/pages/html_canvas.h"

#include <fmt/format.h>

#include "console/formats/html/html.h"
#include "console/formats/pages/base64.h"
#include "console/formats/pages/page_style.h"

namespace kodra::console::pages {
namespace {

using html::ColourText;
using html::Escaped;

}  // namespace

void HtmlCanvas::BeginPage(Size size) {
  if (pageIsOpen_) {
    output_.Write("</svg>\n");
  } else {
    output_.Write(html::PageOpening(
        title_, fmt::format("@page{{size:{0}mm {1}mm;margin:0}}"
                            "svg{{display:block;width:{0}mm;height:{1}mm;background:#fff;break-after:page;"
                            "font-family:'Liberation Sans',Arial,Helvetica,sans-serif;white-space:pre}}"
                            "svg:last-child{{break-after:auto}}"
                            "@media screen{{body{{background:{2}}}"
                            "svg{{margin:4mm auto;box-shadow:0 1px 4px #0005}}}}",
                            Millimetres(size.width), Millimetres(size.height), ColourText(style::kDesk))));
  }
  pageIsOpen_ = true;
  SvgCanvas::BeginPage(size);
}

void HtmlCanvas::Finish() {
  SvgCanvas::Finish();
  output_.Write(html::PageClosing());
}

void SvgCanvas::BeginPage(Size size) {
  output_.Write(fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {} {}\">\n",
                            Millimetres(size.width), Millimetres(size.height)));
}

void SvgCanvas::Text(Point start, std::wstring_view text, const TextStyle& style) {
  // The width is stated for browsers that do not have the font.
  output_.Write(
      fmt::format("<text x=\"{}\" y=\"{}\" font-size=\"{}\"{}{} textLength=\"{}\" "
                  "lengthAdjust=\"spacingAndGlyphs\">{}</text>\n",
                  Millimetres(start.x), Millimetres(start.y), Millimetres(style.size),
                  style.face == Face::kBold ? " font-weight=\"bold\"" : "",
                  style.colour == kBlack ? "" : fmt::format(" fill=\"{}\"", ColourText(style.colour)),
                  Millimetres(TextWidth(text, style.face, style.size)), Escaped(text)));
}

void SvgCanvas::Line(Point from, Point to, const LineStyle& style) {
  output_.Write(fmt::format("<path d=\"M{} {}L{} {}\" stroke=\"{}\" stroke-width=\"{}\"{}/>\n", Millimetres(from.x),
                            Millimetres(from.y), Millimetres(to.x), Millimetres(to.y), ColourText(style.colour),
                            Millimetres(style.width), style.dashed ? " stroke-dasharray=\"1.058\"" : ""));
}

void SvgCanvas::Fill(std::span<const Rectangle> areas, Colour colour) {
  if (areas.empty()) return;
  std::string path;
  for (const Rectangle& area : areas) {
    path += fmt::format("M{} {}h{}v{}h-{}z", Millimetres(area.left), Millimetres(area.top), Millimetres(area.width),
                        Millimetres(area.height), Millimetres(area.width));
  }
  output_.Write(fmt::format("<path fill=\"{}\" d=\"{}\"/>\n", ColourText(colour), path));
}

void SvgCanvas::Draw(const Picture& picture, Rectangle place) {
  output_.Write(
      fmt::format("<image x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" preserveAspectRatio=\"none\" "
                  "href=\"data:image/png;base64,{}\"/>\n",
                  Millimetres(place.left), Millimetres(place.top), Millimetres(place.width), Millimetres(place.height),
                  Base64(picture.png)));
}

void SvgCanvas::Finish() { output_.Write("</svg>\n"); }

}  // namespace kodra::console::pages
