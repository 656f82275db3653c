// The options of a command that say how to print labels.
#pragma once

#include <memory>
#include <string>

#include "console/formats/labels/label_printer.h"

namespace CLI {
class App;
}

namespace kodra::console::labels {

class LabelArguments {
 public:
  // REQUIRES of both: the command outlives the object.
  // Adds --folha, --primeira, --copias and --codigo, the options that `executa` has. `prefix` begins their texts.
  void AddTo(CLI::App& command, const std::string& prefix);
  // Adds the further options of `etiquetas`.
  void AddAllTo(CLI::App& command);

  // Raises UsageError, with the report's name, if an option was given: the report has no labels.
  void RefuseFor(const std::string& report) const;

  // Raises UsageError for a value that an option does not take, and for a file that cannot be read.
  PrintOptions Options() const;

 private:
  Stock ChosenStock() const;
  bool IsGiven(const std::string& name) const;

  const CLI::App* command_ = nullptr;
  std::string stock_ = BuiltInStocks().front().name;
  std::string ownStock_, stockFile_;
  int firstLabel_ = 1;
  int copies_ = 1;
  std::string shift_;
  bool outline_ = false;
  std::string code_ = "code128";
  std::string logo_;
};

inline constexpr int kMostCopies = 1000;
// The farthest that --ajuste moves the labels.
inline constexpr pages::Length kFarthestShift = 20'000;

// A warning about stock whose labels are so near to the edge of the page that printers may leave something out; empty
// for other stock.
std::string EdgeWarning(const Stock& stock);

}  // namespace kodra::console::labels
