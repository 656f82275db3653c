#include "console/formats/labels/label_printer.h"

#include <fmt/format.h>

#include "values/utf8.h"

namespace kodra::console::labels {

using namespace pages;

LabelPrinter::LabelPrinter(Canvas& canvas, PrintOptions options)
    : canvas_(canvas),
      options_(std::move(options)),
      parts_{options_.code, options_.place, options_.logo.get()},
      design_(DesignOf(options_.stock.label, parts_)),
      next_(options_.firstLabel - 1) {}

void LabelPrinter::Print(const Label& label) {
  std::vector<std::string> cut;
  for (int copy = 0; copy < options_.copies; ++copy) {
    if (!pageIsOpen_) BeginPage();
    const Rectangle cell = CellOf(options_.stock, next_);
    cut = DrawLabel(canvas_, label, design_, parts_, {cell.left + options_.shift.x, cell.top + options_.shift.y});
    if (++next_ == options_.stock.Labels()) {
      next_ = 0;
      pageIsOpen_ = false;
    }
  }
  if (!cut.empty() && options_.warn)
    options_.warn(
        fmt::format("na etiqueta {}, não cabe por inteiro: {}", values::ToUtf8(label.number), fmt::join(cut, ", ")));
}

void LabelPrinter::Finish() {
  if (isEmpty_) {
    canvas_.BeginPage(options_.stock.page);
    canvas_.Text({5_mm, 5_mm + Ascent(9_pt)}, L"Nenhuma etiqueta.", {});
  }
  canvas_.Finish();
}

void LabelPrinter::BeginPage() {
  canvas_.BeginPage(options_.stock.page);
  pageIsOpen_ = true;
  isEmpty_ = false;
  if (!options_.outline) return;
  constexpr LineStyle kOutline = {.width = 0.1_mm, .colour = 0x808080};
  for (int label = 0; label < options_.stock.Labels(); ++label) {
    const Rectangle cell = CellOf(options_.stock, label);
    const Length left = cell.left + options_.shift.x, right = left + cell.width;
    const Length top = cell.top + options_.shift.y, bottom = top + cell.height;
    canvas_.Line({left, top}, {right, top}, kOutline);
    canvas_.Line({right, top}, {right, bottom}, kOutline);
    canvas_.Line({right, bottom}, {left, bottom}, kOutline);
    canvas_.Line({left, bottom}, {left, top}, kOutline);
  }
}

}  // namespace kodra::console::labels
