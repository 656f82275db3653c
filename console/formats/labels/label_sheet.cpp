// The sheets: common cuts of A4 and letter paper.
#include "console/formats/labels/label_sheet.h"

#include <algorithm>
#include <array>

namespace kodra::console::labels {
namespace {

constexpr double kA4Width = 210, kA4Height = 297;
constexpr double kLetterWidth = 215.9, kLetterHeight = 279.4;

// A sheet whose labels are centred on the page, with the same gap between all columns and none between rows.
constexpr LabelSheet Centred(std::string_view name, double pageWidth, double pageHeight, int columns, int rows,
                             double width, double height, double gap) {
  const double used = columns * width + (columns - 1) * gap;
  return {name,
          pageWidth,
          pageHeight,
          columns,
          rows,
          width,
          height,
          (pageWidth - used) / 2,
          (pageHeight - rows * height) / 2,
          width + gap,
          height};
}

constexpr auto kSheets = std::to_array<LabelSheet>({
    Centred("a4-2x4", kA4Width, kA4Height, 2, 4, 99.1, 67.7, 2.5),
    Centred("a4-2x7", kA4Width, kA4Height, 2, 7, 99.1, 38.1, 2.5),
    Centred("a4-3x7", kA4Width, kA4Height, 3, 7, 63.5, 38.1, 2.5),
    Centred("a4-3x8", kA4Width, kA4Height, 3, 8, 70.0, 37.0, 0.0),
    Centred("a4-1x2", kA4Width, kA4Height, 1, 2, 199.6, 143.5, 0.0),
    Centred("carta-2x5", kLetterWidth, kLetterHeight, 2, 5, 101.6, 50.8, 4.8),
    Centred("carta-3x10", kLetterWidth, kLetterHeight, 3, 10, 66.7, 25.4, 3.1),
});

}  // namespace

std::span<const LabelSheet> LabelSheets() { return kSheets; }

const LabelSheet* FindLabelSheet(std::string_view name) {
  const auto found = std::ranges::find(kSheets, name, &LabelSheet::name);
  return found == kSheets.end() ? nullptr : &*found;
}

LabelPlace PlaceOf(const LabelSheet& sheet, int index) {
  const int onPage = index % sheet.Labels();
  const int column = onPage % sheet.columns;
  const int row = onPage / sheet.columns;
  return {index / sheet.Labels(), sheet.left + column * sheet.columnPitch, sheet.top + row * sheet.rowPitch};
}

}  // namespace kodra::console::labels
