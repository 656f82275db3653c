#include "console/command_line/parameters.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "console/command_line/help.h"
#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/reports/guide.h"
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

constexpr PeriodNames kPeriods[] = {{L"DataInicial", L"DataFinal"}, {L"DataArmazenamento1", L"DataArmazenamento2"}};

}  // namespace

std::optional<PeriodNames> PeriodOf(const reports::ReportMethod& method) {
  const std::vector<guide::Parameter>& parameters = guide::About(method).parameters;
  for (const PeriodNames& period : kPeriods) {
    if (std::ranges::find(parameters, ToUtf8(period.first), &guide::Parameter::name) != parameters.end()) return period;
  }
  return std::nullopt;
}

std::string WrongWithText(const frame::Property& property, std::string_view text, const reports::ReportMethod& method) {
  if (property.rule == frame::PropertyRule::kDate || property.rule == frame::PropertyRule::kFlag) return {};
  const std::string name = ToUtf8(property.name);
  const std::vector<guide::Parameter>& parameters = guide::About(method).parameters;
  const auto known = std::ranges::find(parameters, name, &guide::Parameter::name);
  if (known == parameters.end() || !known->ChangesSql()) return {};
  for (const char* const piece : {"'", "\"", "\\", ";", "--", "/*"}) {
    if (text.find(piece) != text.npos) return std::string("contém ") + piece;
  }
  if (known->inSql == guide::InSql::kNumber && text.find_first_not_of("0123456789") != text.npos)
    return "não é um número inteiro";
  if (known->inSql == guide::InSql::kNumbers && text.find_first_not_of("0123456789, ") != text.npos)
    return "não é um número inteiro, nem vários separados por vírgula";
  return {};
}

void ReportParameters::AddTo(CLI::App& command) {
  for (const frame::ParameterClass& parameterClass : frame::ParameterClasses()) {
    for (const frame::Property& property : parameterClass.properties) {
      if (std::ranges::any_of(options_, [&](const auto& option) { return option.first == property.name; })) continue;
      CLI::Option* option =
          command.add_option("--" + ToUtf8(property.name))->ignore_case()->group(kParameterGroup)->expected(1);
      options_.emplace_back(property.name, option);
    }
  }
  command.add_flag("--literal", isLiteral_, "Aceita aspas e sinais do SQL nos valores dos parâmetros");
}

frame::ParameterObject ReportParameters::For(const reports::ReportMethod& method) const {
  if (isLiteral_ && Given().empty()) throw UsageError("--literal só vale com um parâmetro do relatório");
  const frame::ParameterClass& parameterClass = frame::ParameterClassNamed(method.parameterClass);
  frame::ParameterObject object(parameterClass);
  for (const auto& [name, option] : options_) {
    if (option->count() == 0) continue;
    const auto property = std::ranges::find(parameterClass.properties, name, &frame::Property::name);
    if (property == parameterClass.properties.end()) RaiseUnknown(name, method, parameterClass);
    const std::string& text = option->results().front();
    if (const std::string wrong = WrongWithText(*property, text, method); !isLiteral_ && !wrong.empty()) {
      throw UsageError("o valor de --" + ToUtf8(name) + " " + wrong +
                       ", e o relatório passa o valor ao SQL como está; se é isso mesmo, acrescente --literal");
    }
    object.Let(name, ParameterValue(*property, text));
  }
  return object;
}

void ReportParameters::RefuseUnread(const reports::ReportMethod& method) const {
  const std::vector<guide::Parameter>& read = guide::About(method).parameters;
  std::string names;
  for (const guide::Parameter& parameter : read) names.append(names.empty() ? "" : ", ").append(parameter.name);
  for (const auto& [name, value] : Given()) {
    if (std::ranges::find(read, ToUtf8(name), &guide::Parameter::name) != read.end()) continue;
    throw UsageError(NameOf(method) + " não lê o parâmetro \"" + ToUtf8(name) + "\"" +
                     (names.empty() ? ", nem nenhum outro" : "; só lê " + names));
  }
}

std::string ReportParameters::PeriodWarning(frame::ParameterObject& object, const reports::ReportMethod& method) {
  const std::optional<PeriodNames> period = PeriodOf(method);
  if (!period) return {};
  const Value begin = object.Get(period->first);
  const Value end = object.Get(period->last);
  if (end.As<Date>().days == 0 || end.As<Date>().days >= begin.As<Date>().days) return {};
  return ToUtf8(period->last) + " é antes de " + ToUtf8(period->first) + ", e nenhuma data cai nesse período";
}

std::vector<std::pair<std::wstring, std::wstring>> ReportParameters::Given() const {
  std::vector<std::pair<std::wstring, std::wstring>> given;
  for (const auto& [name, option] : options_) {
    if (option->count() != 0) given.emplace_back(name, values::FromUtf8(option->results().front()));
  }
  return given;
}

}  // namespace kodra::console
