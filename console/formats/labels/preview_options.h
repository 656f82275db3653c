// The options of a command that say how to print labels: on which sheet, from which label on, and how many copies.
#pragma once

#include <string>

#include "console/formats/html/html_writer.h"

namespace CLI {
class App;
}

namespace kodra::console::labels {

class PreviewOptions {
 public:
  void AddTo(CLI::App& command);

  // Raises UsageError for a sheet that does not exist, a first label that is not on the sheet, and a number of copies
  // below one or above kMostCopies.
  html::HtmlOptions Options() const;

 private:
  std::string sheet_{LabelSheets().front().name};
  int firstLabel_ = 1;
  int copies_ = 1;
};

inline constexpr int kMostCopies = 1000;

}  // namespace kodra::console::labels
