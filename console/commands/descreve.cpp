// kodrarpt descreve: the guide to one report.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "console/command_line/columns.h"
#include "console/command_line/report_name.h"
#include "console/commands/commands.h"
#include "console/reports/guide.h"
#include "console/reports/words.h"
#include "frame/parameter_object.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Exemplo:\n"
    "  kodrarpt descreve CDocumentoRpt.RelatorioSintetico     o que ele pede e o que devolve";

using Rows = std::vector<std::vector<std::string>>;

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
  for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
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

ExitCode Descreve(std::ostream& out, const reports::ReportMethod& method) {
  const guide::Report& report = guide::About(method);
  out << NameOf(method) << "\n" << report.purpose << ".\n";
  PrintParameters(out, method);
  PrintColumns(out, report);
  if (!report.oddities.empty()) out << "\nParece errado, mas é assim mesmo:\n";
  for (const guide::Oddity& oddity : report.oddities) out << "  - " << oddity.text << ".\n";
  if (!report.failures.empty()) out << "\nErros próprios:\n";
  for (const guide::Failure& failure : report.failures)
    out << "  - " << failure.cause << "\n    " << failure.remedy << ".\n";
  out << "\nExemplo:\n  kodrarpt executa " << NameOf(method) << " --conexao \"DSN=Acervo\""
      << guide::SampleArguments(report) << "\n";
  return ExitCode::kOk;
}

}  // namespace

void AddDescreve(Program& program) {
  const auto name = std::make_shared<std::string>();
  CLI::App& command =
      program.Add({"descreve", "Descreve um relatório: parâmetros, colunas e particularidades", kFooter},
                  [&program, name] { return Descreve(program.Out(), FindReport(*name)); });
  command.add_option("RELATÓRIO", *name, "Classe.Metodo, ou só a classe ou o método")->option_text(" ")->required();
}

}  // namespace kodra::console
