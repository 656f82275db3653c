// The findings for people.
#include <algorithm>
#include <ostream>

#include "console/check/findings.h"
#include "console/command_line/columns.h"
#include "console/command_line/terminal_text.h"
#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

std::string Joined(const std::vector<std::string>& texts, const char* separator) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : separator) + text;
  return joined;
}

std::string Count(std::int64_t count) { return ToUtf8(CountText(static_cast<std::uint64_t>(count))); }

void WriteNames(const std::vector<std::string>& names, std::ostream& out) {
  for (const std::string& name : names) out << "      " << name << "\n";
}

void WriteDatabase(const Findings& findings, std::ostream& out) {
  if (!findings.database.code) {
    out << "Banco de dados: não identificado (" << ForTerminal(findings.database.unknownBecause) << ")\n\n";
    return;
  }
  const bool isKnown = !findings.database.title.empty();
  out << "Banco de dados: " << (isKnown ? findings.database.title : "desconhecido") << " (tipo "
      << *findings.database.code << ")\n";
  if (!isKnown)
    out << "Os relatórios que usam datas ou conversões dão erro neste banco. Confira o provedor na string de "
           "conexão e a versão de KodraConexao.\n";
  out << "\n";
}

// "falta: tabela CD, coluna CAIXA.COORD_X", or nothing.
std::string WithDefect(Defect defect, const char* heading, const ReportFinding& report) {
  std::vector<std::string> names;
  for (const Problem& problem : report.problems)
    if (problem.defect == defect) names.push_back(ToUtf8(problem.what));
  return names.empty() ? std::string() : heading + Joined(names, ", ");
}

std::string StateOf(const ReportFinding& report) {
  std::vector<std::string> parts = {WithDefect(Defect::kMissing, "falta: ", report),
                                    WithDefect(Defect::kForbidden, "sem permissão: ", report),
                                    WithDefect(Defect::kWrongType, "tipo errado: ", report)};
  std::erase(parts, "");
  if (!report.refusals.empty()) parts.emplace_back("o banco recusa uma instrução");
  if (!parts.empty()) return Joined(parts, "; ");
  if (report.AlwaysFails()) return "não funciona neste banco";
  return report.limits.empty() ? "pronto" : "pronto, com ressalva";
}

void WriteReports(const Findings& findings, std::ostream& out) {
  std::size_t width = 0;
  for (const ReportFinding& report : findings.reports) width = std::max(width, Width(report.name));
  std::ptrdiff_t wrong = 0;
  std::ptrdiff_t failing = 0;
  for (const ReportFinding& report : findings.reports) {
    out << Padded(report.name, width + 2) << StateOf(report) << "\n";
    if (report.IsWrong())
      ++wrong;
    else if (report.AlwaysFails())
      ++failing;
  }
  const auto all = std::ssize(findings.reports);
  out << "\n" << all - wrong - failing << " de " << all << " relatórios prontos";
  if (failing > 0) out << ", " << failing << (failing == 1 ? " não funciona" : " não funcionam") << " neste banco";
  if (wrong > 0) out << ", " << wrong << " com problemas";
  out << "\n";
}

void WriteAnswers(const Findings& findings, std::ostream& out) {
  const char* heading = "\nO que o banco respondeu:\n";
  const auto write = [&](const std::string& what, const std::string& words) {
    out << heading << "  " << what << ": " << ForTerminal(words) << "\n";
    heading = "";
  };
  for (const auto& [what, words] : findings.answers) write(what, words);
  for (const ReportFinding& report : findings.reports)
    for (const std::string& words : report.refusals) write(report.name, words);
}

bool HasDefect(const Findings& findings, Defect defect) {
  return std::ranges::any_of(findings.reports, [&](const ReportFinding& report) {
    return std::ranges::find(report.problems, defect, &Problem::defect) != report.problems.end();
  });
}

// What helps against what is wrong.
void WriteRemedies(const Findings& findings, std::ostream& out) {
  const std::string option = " --banco " + (findings.database.name.empty() ? "BANCO" : findings.database.name);
  const char* heading = "\nO que fazer:\n";
  const auto write = [&](const std::string& remedy) {
    out << heading << "  - " << remedy << "\n";
    heading = "";
  };
  if (HasDefect(findings, Defect::kMissing) || HasDefect(findings, Defect::kWrongType))
    write("Se algo falta ou tem outro tipo, compare o banco com o que o relatório lê: kodrarpt esquema RELATÓRIO" +
          option);
  if (HasDefect(findings, Defect::kForbidden))
    write("Se não há permissão, peça-a a quem administra o banco: kodrarpt esquema" + option + " --permissoes USUÁRIO");
  const bool isRefused =
      std::ranges::any_of(findings.reports, [](const ReportFinding& report) { return !report.refusals.empty(); });
  if (isRefused)
    write("Se o banco recusa uma instrução, mostre-a, com a resposta, a quem cuida dele: kodrarpt sql RELATÓRIO" +
          option);
}

void WriteLimits(const Findings& findings, std::ostream& out) {
  const char* heading = "\nParece errado, mas neste banco é assim mesmo:\n";
  for (const schema::Limit& limit : schema::Limits()) {
    std::vector<std::string> names;
    for (const ReportFinding& report : findings.reports)
      if (std::ranges::find(report.limits, &limit) != report.limits.end()) names.push_back(report.name);
    if (names.empty()) continue;
    out << heading << "  - " << limit.text << ":\n";
    WriteNames(names, out);
    heading = "";
  }
}

void WriteAdvice(const Findings& findings, std::ostream& out) {
  if (!findings.longColumns.empty()) out << "\nTextos longos demais dão erro em COperadorRpt.RelatorioOperadores:\n";
  for (const LongColumn& column : findings.longColumns)
    out << "  - " << column.name << " aceita " << Count(column.length) << " caracteres, e o relatório, "
        << Count(column.longest) << ".\n";
  if (!findings.missingIndexes.empty()) out << "\nÍndices que deixariam relatórios mais rápidos:\n";
  for (const MissingIndex& missing : findings.missingIndexes) {
    out << "  - " << schema::Described(*missing.index) << ", com " << Count(missing.rows) << " linhas:\n";
    WriteNames(missing.reports, out);
  }
  if (!findings.missingIndexes.empty())
    out << "Para criá-los, veja: kodrarpt esquema --banco " << findings.database.name << " --indices\n";
  if (!findings.unchecked.empty()) out << "\nNão foi possível conferir:\n";
  for (const std::string& what : findings.unchecked) out << "  - " << ForTerminal(what) << ".\n";
}

}  // namespace

void WriteText(const Findings& findings, std::ostream& out) {
  WriteDatabase(findings, out);
  WriteReports(findings, out);
  WriteAnswers(findings, out);
  WriteRemedies(findings, out);
  WriteLimits(findings, out);
  WriteAdvice(findings, out);
}

}  // namespace kodra::console
