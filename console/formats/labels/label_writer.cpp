// The sheets' style and the parts of a label.
#include "console/formats/labels/label_writer.h"

#include <fmt/format.h>

#include "console/formats/html/code128.h"
#include "console/formats/html/html.h"
#include "console/formats/html/text_fit.h"
#include "values/utf8.h"

namespace kodra::console::labels {
namespace {

using namespace html;

// The margin along a label's edge, because printers are not exact to the millimetre.
constexpr double kPadding = 2.0;
constexpr double kSmallestLetter = 1.3;
// The greatest width of a module of a barcode.
constexpr double kWidestBar = 0.5;

// The shares of a label's inner height.
constexpr double kHeadPart = 0.10;
constexpr double kNumberPart = 0.24;
constexpr double kDescriptionPart = 0.26;
constexpr double kFactsPart = 0.13;
constexpr double kBarcodePart = 0.27;

std::string SheetStyle(const LabelSheet& sheet) {
  return fmt::format(
      "@page{{size:{0}mm {1}mm;margin:0}}"
      ".folha{{position:relative;width:{0}mm;height:{1}mm;overflow:hidden;break-after:page;break-inside:avoid}}"
      ".folha:last-child{{break-after:auto}}"
      ".etiqueta{{position:absolute;width:{2}mm;height:{3}mm;padding:{4}mm;overflow:hidden}}"
      ".etiqueta div{{overflow:hidden;line-height:{5};overflow-wrap:anywhere}}"
      ".cabeca{{display:flex;justify-content:space-between;gap:2mm;white-space:nowrap}}"
      ".numero{{font-weight:bold;white-space:nowrap}}"
      ".barras{{display:block;height:100%;max-width:100%}}"
      "@media screen{{body{{background:#d8dce0}}.folha{{background:#fff;margin:4mm auto;box-shadow:0 1px 4px #0005}}"
      ".etiqueta{{outline:.2mm dashed #b6bdc4}}}}",
      sheet.pageWidth, sheet.pageHeight, sheet.labelWidth, sheet.labelHeight, kPadding, kLineHeight);
}

std::string Part(std::string_view style, double height, const FittedText& fitted) {
  return fmt::format(R"(<div class="{}" style="height:{:.2f}mm;font-size:{:.2f}mm">{}</div>)", style, height,
                     fitted.size, Escaped(fitted.text));
}

// The kind to the left and the company, which is longer, to the right.
std::string HeadHtml(const Label& label, Box box) {
  constexpr double kKindShare = 0.4, kCompanyShare = 0.57;
  const double largest = box.height / kLineHeight;
  const FittedText kind = FitLine(label.kind, box.width * kKindShare, largest, kSmallestLetter, true);
  const FittedText company = FitLine(label.company, box.width * kCompanyShare, largest, kSmallestLetter);
  return fmt::format(R"(<div class="cabeca" style="height:{:.2f}mm"><b style="font-size:{:.2f}mm">{}</b>)"
                     R"(<span style="font-size:{:.2f}mm">{}</span></div>)",
                     box.height, kind.size, Escaped(kind.text), company.size, Escaped(company.text));
}

std::string BarcodeHtml(const std::wstring& text, Box box) {
  const std::string code = values::ToUtf8(text);
  const std::string svg = Code128Svg(code);
  if (svg.empty()) return {};
  return fmt::format(R"(<div class="codigo" style="height:{:.2f}mm;width:{:.2f}mm">{}</div>)", box.height,
                     std::min(box.width, Code128Modules(code) * kWidestBar), svg);
}

}  // namespace

std::string LabelHtml(const Label& label, const LabelSheet& sheet) {
  const double width = sheet.labelWidth - 2 * kPadding;
  const double height = sheet.labelHeight - 2 * kPadding;
  // The largest letters with which that many lines fit into a part.
  const auto letters = [&](double part, int lines) { return height * part / kLineHeight / lines; };
  const FittedText number = FitLine(label.number, width, letters(kNumberPart, 1), kSmallestLetter, true);
  const FittedText description =
      FitText(label.description, {width, height * kDescriptionPart}, letters(kDescriptionPart, 2), kSmallestLetter);
  const FittedText facts = FitText(label.facts, {width, height * kFactsPart}, letters(kFactsPart, 1), kSmallestLetter);
  return HeadHtml(label, {width, height * kHeadPart}) + Part("numero", height * kNumberPart, number) +
         Part("descricao", height * kDescriptionPart, description) + Part("dados", height * kFactsPart, facts) +
         BarcodeHtml(label.barcode, {width, height * kBarcodePart});
}

void LabelWriter::Begin(const Heading& heading, std::span<const Column> columns) {
  maker_ = LabelMakerOf(heading, options_.containerModules);
  columns_.assign(columns.begin(), columns.end());
  place_ = options_.firstLabel - 1;
  output_.Write(PageOpening(heading.title, SheetStyle(*options_.sheet)));
}

void LabelWriter::Row(std::span<const Value> values) {
  const std::string label = LabelHtml(maker_(RowReader(columns_, values)), *options_.sheet);
  for (int copy = 0; copy < options_.copies; ++copy) Place(label);
}

void LabelWriter::Place(const std::string& label) {
  const LabelPlace place = PlaceOf(*options_.sheet, place_);
  if (!sheetIsOpen_) output_.Write("<section class=\"folha\">\n");
  sheetIsOpen_ = true;
  output_.Write(fmt::format(R"(<div class="etiqueta" style="left:{:.2f}mm;top:{:.2f}mm">{}</div>)", place.left,
                            place.top, label) +
                "\n");
  if (++place_ % options_.sheet->Labels() == 0) {
    output_.Write("</section>\n");
    sheetIsOpen_ = false;
  }
}

void LabelWriter::End() {
  if (sheetIsOpen_) output_.Write("</section>\n");
  if (place_ == options_.firstLabel - 1) output_.Write("<p class=\"vazio\">Nenhuma etiqueta.</p>\n");
  output_.Write(PageClosing());
}

}  // namespace kodra::console::labels
