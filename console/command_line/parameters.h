// The options "--NOME VALOR" of a command that calls a report: the properties of its parameter object.
//
//   ReportParameters parameters;
//   parameters.AddTo(command);                              // before the command line is read
//   frame::ParameterObject obj = parameters.For(method);    // in the command
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"

namespace kodra::console {

class ReportParameters {
 public:
  // Adds an option for each property that any parameter class has. The help has one line for all: which of them count
  // depends on the report, and `descreve` tells.
  void AddTo(CLI::App& command);

  // The parameter object of a method with the options that were given. Raises UsageError for a property that its class
  // does not have, a date that is none ("01/02/2024", "2024-02-01", either with a time of day) and a flag that is
  // neither sim nor não.
  frame::ParameterObject For(const reports::ReportMethod& method) const;

  // The options that were given, name and value as it was typed, in the order of the parameter classes.
  std::vector<std::pair<std::wstring, std::wstring>> Given() const;

 private:
  std::vector<std::pair<std::wstring_view, const CLI::Option*>> options_;
};

}  // namespace kodra::console
