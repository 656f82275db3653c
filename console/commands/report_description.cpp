#include "console/commands/report_description.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "console/command_line/columns.h"
#include "console/command_line/report_name.h"
#include "console/reports/guide.h"
#include "console/reports/words.h"
#include "frame/parameter_object.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using Json = nlohmann::ordered_json;
using Rows = std::vector<std::vector<std::string>>;

std::span<const frame::Property> PropertiesOf(const reports::ReportMethod& method) {
  return frame::ParameterClassNamed(method.parameterClass).properties;
}

// Prints the rows in indented columns; the last column is not padded.
void Print(std::ostream& out, const Rows& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t at = 0; at < row.size(); ++at) widths[at] = std::max(widths[at], Width(row[at]));
  }
  for (const auto& row : rows) {
    out << "  ";
    for (std::size_t at = 0; at + 1 < row.size(); ++at) out << Padded(row[at], widths[at] + 2);
    out << row.back() << "\n";
  }
}

void PrintParameters(std::ostream& out, const reports::ReportMethod& method) {
  Rows rows;
  std::string others;
  for (const frame::Property& property : PropertiesOf(method)) {
    const std::string option = "--" + values::ToUtf8(property.name);
    const std::string effect = guide::EffectWords(method, property);
    if (effect.empty())
      others.append(others.empty() ? "" : ", ").append(option);
    else
      rows.push_back({option, std::string(guide::RuleWords(property.rule)), effect});
  }
  out << "\nParâmetros (" << values::ToUtf8(method.parameterClass) << "):\n";
  Print(out, rows);
  if (!others.empty()) out << "  Sem efeito neste relatório: " << others << "\n";
}

void PrintColumns(std::ostream& out, const guide::Report& report) {
  Rows rows;
  for (const guide::Column& column : report.columns)
    rows.push_back({std::string(column.name), std::string(guide::TypeWord(column.type)), guide::MeaningWords(column)});
  out << "\nColunas:\n";
  Print(out, rows);
}

std::string ExampleOf(const reports::ReportMethod& method) {
  return "kodrarpt executa " + NameOf(method) + " --conexao \"DSN=Acervo\"" +
         guide::SampleArguments(guide::About(method));
}

Json ParametersOf(const reports::ReportMethod& method) {
  Json parameters = Json::array();
  for (const guide::Parameter& parameter : guide::About(method).parameters) {
    const auto property =
        std::ranges::find(PropertiesOf(method), values::FromUtf8(parameter.name), &frame::Property::name);
    parameters.push_back({{"nome", parameter.name},
                          {"tipo", guide::RuleWords(property->rule)},
                          {"efeito", parameter.effect},
                          {"exemplo", parameter.sample}});
  }
  return parameters;
}

Json ColumnsOf(const guide::Report& report) {
  Json columns = Json::array();
  for (const guide::Column& column : report.columns)
    columns.push_back({{"nome", column.name},
                       {"tipo", guide::TypeWord(column.type)},
                       {"significado", guide::MeaningWords(column)},
                       {"titulo", column.caption}});
  return columns;
}

}  // namespace

void PrintDescription(std::ostream& out, const reports::ReportMethod& method) {
  const guide::Report& report = guide::About(method);
  out << NameOf(method) << "\n" << report.purpose << ".\n";
  PrintParameters(out, method);
  PrintColumns(out, report);
  if (!report.oddities.empty()) out << "\nParece errado, mas é assim mesmo:\n";
  for (const guide::Oddity& oddity : report.oddities) out << "  - " << oddity.text << ".\n";
  if (!report.failures.empty()) out << "\nErros próprios:\n";
  for (const guide::Failure& failure : report.failures)
    out << "  - " << failure.cause << "\n    O que houve: " << failure.whatHappened
        << ".\n    O que fazer: " << guide::Continued(failure.remedy) << ".\n";
  out << "\nExemplo:\n  " << ExampleOf(method) << "\n";
}

std::string DescriptionAsJson(const reports::ReportMethod& method) {
  const guide::Report& report = guide::About(method);
  Json oddities = Json::array();
  for (const guide::Oddity& oddity : report.oddities) oddities.push_back(oddity.text);
  Json failures = Json::array();
  for (const guide::Failure& failure : report.failures)
    failures.push_back(
        {{"causa", failure.cause}, {"o_que_houve", failure.whatHappened}, {"o_que_fazer", failure.remedy}});
  const Json description = {
      {"nome", NameOf(method)},       {"finalidade", report.purpose}, {"parametros", ParametersOf(method)},
      {"colunas", ColumnsOf(report)}, {"particularidades", oddities}, {"erros", failures},
      {"exemplo", ExampleOf(method)}};
  return description.dump() + "\n";
}

std::string ReportsAsJson() {
  Json reports = Json::array();
  for (const reports::ReportMethod& method : reports::ReportMethods())
    reports.push_back({{"nome", NameOf(method)}, {"finalidade", guide::About(method).purpose}});
  return reports.dump() + "\n";
}

}  // namespace kodra::console
