// How to print labels, as people say it: in the options of a command, or elsewhere.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/labels/label_printer.h"

namespace CLI {
class App;
}

namespace kodra::console::labels {

struct NamedCode {
  std::string_view name;  // "code128"
  CodeKind kind;
  std::string_view title;  // for people
};
// All kinds of codes; the first is the usual one.
std::span<const NamedCode> Codes();

struct LabelChoices {
  // The name of stock, or the measures of a roll.
  std::string stock = BuiltInStocks().front().name;
  // The measures of other stock; if not empty, they count instead of the name.
  std::string ownStock = {};
  int firstLabel = 1;
  int copies = 1;
  std::string shift = {};  // "1,-2"; empty for none
  bool outline = false;
  std::string code = std::string(Codes().front().name);
};

// `stocks` is the stock that has a name. Raises UsageError for a choice that does not exist.
PrintOptions PrintOptionsOf(const LabelChoices& choices, const std::vector<Stock>& stocks = BuiltInStocks());

class LabelArguments {
 public:
  // REQUIRES of both: the command outlives the object.
  // Adds --folha, --primeira, --copias and --codigo, the options that `executa` has. `prefix` begins their texts.
  void AddTo(CLI::App& command, const std::string& prefix);
  // Adds the further options of `etiquetas`.
  void AddAllTo(CLI::App& command);

  // Raises UsageError, with the report's name, if an option was given: the report has no labels.
  void RefuseFor(const std::string& report) const;

  // Raises UsageError for a value that an option does not take, and FileError for a file that cannot be read.
  PrintOptions Options() const;

 private:
  bool IsGiven(const std::string& name) const;

  const CLI::App* command_ = nullptr;
  LabelChoices choices_;
  std::string stockFile_;
  std::string logo_;
};

inline constexpr int kMostCopies = 1000;
// The farthest that --ajuste moves the labels.
inline constexpr pages::Length kFarthestShift = 20'000;

// A warning about stock whose labels are so near to the edge of the page that printers may leave something out; empty
// for other stock.
std::string EdgeWarning(const Stock& stock);

}  // namespace kodra::console::labels
