// Prints labels on their stock: each in its cell, with the requested number of copies.
#pragma once

#include <functional>
#include <memory>

#include "console/formats/labels/label_drawing.h"
#include "console/formats/labels/stock.h"

namespace kodra::console::labels {

struct PrintOptions {
  Stock stock = BuiltInStocks().front();
  int firstLabel = 1;       // the first free label of the first page, counted from 1, row by row
  int copies = 1;           // of every label, one after the other
  pages::Point shift = {};  // of everything on the page, for printers that are not exact
  bool outline = false;     // draws the edges of the labels, for a test print
  CodeKind code = CodeKind::kCode128;
  std::shared_ptr<const pages::Picture> logo = {};
  bool place = false;  // whether labels have a place
  // Called with a sentence about a label whose text is cut; may be empty.
  std::function<void(const std::string&)> warn = {};
};

class LabelPrinter {
 public:
  // REQUIRES: the canvas outlives the printer; the first label is on the page and there is at least one copy. Raises
  // UsageError for stock that is too small.
  LabelPrinter(pages::Canvas& canvas, PrintOptions options);

  // Raises UsageError, as DrawLabel does.
  void Print(const Label& label);
  // Completes the pages. Without a label, one page says so.
  void Finish();

 private:
  void BeginPage();

  pages::Canvas& canvas_;
  PrintOptions options_;
  LabelParts parts_;
  LabelDesign design_;
  int next_;  // the next free label of the page, from 0
  bool pageIsOpen_ = false;
  bool isEmpty_ = true;
};

}  // namespace kodra::console::labels
