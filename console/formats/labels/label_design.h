// Where everything is on the labels of one stock, and how large the letters are. It is decided once, so that all labels
// of a print look the same.
#pragma once

#include "console/formats/labels/fitted_text.h"
#include "console/formats/pages/picture.h"

namespace kodra::console::labels {

enum class CodeKind { kCode128, kQr, kNone };

// What all labels of a print have.
struct LabelParts {
  CodeKind code = CodeKind::kCode128;
  bool place = false;
  const pages::Picture* logo = nullptr;
};

// Rectangles are relative to the label's upper left corner. A box that is not needed has no width.
struct LabelDesign {
  pages::Size label;
  pages::Rectangle texts;  // all texts but the one below the bars
  pages::Rectangle logo;   // in the corner of the texts
  pages::Rectangle code;   // the bars, or the square of a QR code, with the quiet zone
  pages::Length rest;      // the size of most letters
  bool kindIsAbove;        // the kind of label is above the number, where it does not fit beside it

  pages::Length Number() const { return rest * 9 / 4; }
  pages::Length Description() const { return rest * 6 / 5; }
  // Between two texts.
  pages::Length Gap() const { return rest / 4; }
};

// The white edge of a label, because printers are not exact to the millimetre; narrower on labels that have no room.
constexpr pages::Length PaddingOf(pages::Size label) { return label.height < 30'000 ? 1'500 : 2'000; }
// No letters are smaller: 5 points.
inline constexpr pages::Length kSmallestLetters = 1'764;
// The least width of a module at which office printers and scanners are reliable.
inline constexpr pages::Length kLeastBar = 190, kLeastSquare = 330;

// Raises UsageError, with the least size, for labels that are too small.
LabelDesign DesignOf(pages::Size label, const LabelParts& parts);

}  // namespace kodra::console::labels
