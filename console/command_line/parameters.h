// The options "--NOME VALOR" of a command that calls a report: the properties of the report's parameter object.
//
//   ReportParameters parameters;
//   parameters.AddTo(command);                              // before the command line is read
//   frame::ParameterObject obj = parameters.For(method);    // in the command
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kodra::console {

// The parameters that are the first and the last day of a report's period.
struct PeriodNames {
  std::wstring_view first, last;
};
// Nothing for a report that has no period.
std::optional<PeriodNames> PeriodOf(const reports::ReportMethod& method);

// Why the value of a property would be more than a value in the statements of the report: it ends its quotes, begins a
// comment or another statement, or is not the number that a statement has without quotes: "contém ;". Empty for a value
// that would not.
std::string WrongWithText(const frame::Property& property, std::string_view text, const reports::ReportMethod& method);

class ReportParameters {
 public:
  // Adds an option for each property of any parameter class. The help has one line for all of them, because each report
  // has its own; `descreve` lists them.
  void AddTo(CLI::App& command);

  // The parameter object of a method, with the options that were given. Raises UsageError for a property that its class
  // does not have, for a value that is not a date or a flag as ParameterValue requires, for --literal
  // without any parameter and, without --literal, for a text that would be more than a value in the statements: reports
  // paste their filters as they are.
  frame::ParameterObject For(const reports::ReportMethod& method) const;
  // Raises UsageError for a parameter that was given and that the report does not read: it would change nothing.
  void RefuseUnread(const reports::ReportMethod& method) const;
  // A warning about a period that ends before it begins; empty for none.
  static std::string PeriodWarning(frame::ParameterObject& object, const reports::ReportMethod& method);

  // The name and the typed value of each option that was given, in the order of the parameter classes.
  std::vector<std::pair<std::wstring, std::wstring>> Given() const;

 private:
  std::vector<std::pair<std::wstring_view, const CLI::Option*>> options_;
  bool isLiteral_ = false;
};

}  // namespace kodra::console
