// Sheets of labels: how many labels a sheet has, and where they are. All lengths are in millimetres.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kodra::console::labels {

struct LabelSheet {
  std::string_view name;  // as people choose it: "a4-2x7" has two columns and seven rows
  double pageWidth, pageHeight;
  int columns, rows;
  double labelWidth, labelHeight;
  double left, top;              // of the first label
  double columnPitch, rowPitch;  // from one label to the next
  int Labels() const { return columns * rows; }
};

// Every sheet that can be chosen; the first is the usual one.
std::span<const LabelSheet> LabelSheets();
// Returns the sheet of that name, or null.
const LabelSheet* FindLabelSheet(std::string_view name);

// Where a label is on its sheet. Labels are counted from 0, row by row.
struct LabelPlace {
  int page;
  double left, top;
};
LabelPlace PlaceOf(const LabelSheet& sheet, int index);

}  // namespace kodra::console::labels
