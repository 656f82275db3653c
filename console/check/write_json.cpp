// The findings for programs.
#include <nlohmann/json.hpp>
#include <ostream>

#include "console/check/findings.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using Json = nlohmann::ordered_json;

const char* WordOf(Defect defect) {
  if (defect == Defect::kMissing) return "falta";
  return defect == Defect::kForbidden ? "sem permissão" : "tipo errado";
}

const char* StateOf(const ReportFinding& report) {
  if (report.IsWrong()) return "com problemas";
  if (report.AlwaysFails()) return "não funciona neste banco";
  return report.limits.empty() ? "pronto" : "pronto, com ressalva";
}

Json ObjectOf(const ReportFinding& report) {
  Json problems = Json::array();
  for (const Problem& problem : report.problems)
    problems.push_back({{"defeito", WordOf(problem.defect)}, {"item", values::ToUtf8(problem.what)}});
  Json limits = Json::array();
  for (const schema::Limit* limit : report.limits) limits.push_back(limit->text);
  return {{"nome", report.name},
          {"situacao", StateOf(report)},
          {"problemas", problems},
          {"recusas", report.refusals},
          {"ressalvas", limits}};
}

}  // namespace

void WriteJson(const Findings& findings, std::ostream& out) {
  Json reports = Json::array();
  for (const ReportFinding& report : findings.reports) reports.push_back(ObjectOf(report));
  Json longColumns = Json::array();
  for (const LongColumn& column : findings.longColumns)
    longColumns.push_back({{"coluna", column.name}, {"aceita", column.length}, {"limite", column.longest}});
  Json indexes = Json::array();
  for (const MissingIndex& missing : findings.missingIndexes)
    indexes.push_back({{"indice", schema::Described(*missing.index)},
                       {"linhas", missing.rows},
                       {"relatorios", missing.reports},
                       {"instrucao", schema::CreateStatement(*missing.index)}});
  const Json all = {{"banco", findings.database.name},
                    {"tipo", findings.database.code ? Json(*findings.database.code) : Json()},
                    {"pronto", !findings.IsWrong()},
                    {"relatorios", reports},
                    {"respostas", findings.answers},
                    {"textos_longos", longColumns},
                    {"indices", indexes},
                    {"nao_conferido", findings.unchecked}};
  out << all.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n";
}

}  // namespace kodra::console
