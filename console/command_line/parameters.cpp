#include "console/command_line/parameters.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "console/command_line/help.h"
#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

std::vector<std::string> NamesOf(const frame::ParameterClass& parameterClass) {
  std::vector<std::string> names;
  for (const frame::Property& property : parameterClass.properties) names.push_back(ToUtf8(property.name));
  return names;
}

[[noreturn]] void RaiseUnknown(std::wstring_view property, const reports::ReportMethod& method,
                               const frame::ParameterClass& parameterClass) {
  const std::string name = ToUtf8(property);
  const std::vector<std::string> known = NamesOf(parameterClass);
  std::string message =
      NameOf(method) + " não tem o parâmetro \"" + name + "\"" + DidYouMean(name, known) + "; os parâmetros são";
  for (const std::string& other : known) message += (other == known.front() ? " " : ", ") + other;
  throw UsageError(message);
}

}  // namespace

void ReportParameters::AddTo(CLI::App& command) {
  for (const frame::ParameterClass& parameterClass : frame::ParameterClasses()) {
    for (const frame::Property& property : parameterClass.properties) {
      if (std::ranges::any_of(options_, [&](const auto& option) { return option.first == property.name; })) continue;
      CLI::Option* option =
          command.add_option("--" + ToUtf8(property.name))->ignore_case()->group(kParameterGroup)->expected(1);
      options_.emplace_back(property.name, option);
    }
  }
}

frame::ParameterObject ReportParameters::For(const reports::ReportMethod& method) const {
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  frame::ParameterObject object(parameterClass);
  for (const auto& [name, option] : options_) {
    if (option->count() == 0) continue;
    const auto property = std::ranges::find(parameterClass.properties, name, &frame::Property::name);
    if (property == parameterClass.properties.end()) RaiseUnknown(name, method, parameterClass);
    object.Let(name, ParameterValue(*property, option->results().front()));
  }
  return object;
}

std::vector<std::pair<std::wstring, std::wstring>> ReportParameters::Given() const {
  std::vector<std::pair<std::wstring, std::wstring>> given;
  for (const auto& [name, option] : options_) {
    if (option->count() != 0) given.emplace_back(name, values::FromUtf8(option->results().front()));
  }
  return given;
}

}  // namespace kodra::console
