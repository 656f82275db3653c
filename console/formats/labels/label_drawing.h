// Draws one label.
#pragma once

#include <string>
#include <vector>

#include "console/formats/labels/label_content.h"
#include "console/formats/labels/label_design.h"
#include "console/formats/pages/canvas.h"

namespace kodra::console::labels {

// Draws a label whose upper left corner is there. Returns the names of the texts that did not fit and are cut: "a
// descrição". Raises UsageError if the number has no such code, or the label is too narrow for it.
std::vector<std::string> DrawLabel(pages::Canvas& canvas, const Label& label, const LabelDesign& design,
                                   const LabelParts& parts, pages::Point corner);

}  // namespace kodra::console::labels
