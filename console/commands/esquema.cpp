// kodrarpt esquema: the tables that the reports read, and the statements for their indexes and permissions.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>

#include "console/command_line/columns.h"
#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/schema/grants.h"
#include "console/schema/indexes.h"
#include "console/schema/tables.h"
#include "console/statements/needs.h"
#include "sql/tipo_banco.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

constexpr const char* kFooter =
    "Os tipos são os que os relatórios esperam. Os comprimentos são exemplos: um texto pode ser mais curto ou mais\n"
    "longo.\n"
    "\n"
    "Se um dos índices já existe, alguns bancos recusam a instrução dele; verifica mostra só os que faltam.\n"
    "\n"
    "--permissoes deixa o usuário ler as tabelas, e nada mais. O nome vai entre aspas, exatamente como escrito:\n"
    "no Oracle e no DB2 ele costuma ser em maiúsculas. No MySQL pode levar o endereço (ana@localhost); sem ele,\n"
    "vale para todos.\n"
    "\n"
    "Exemplos:\n"
    "  kodrarpt esquema CDeptoRpt --banco oracle\n"
    "  kodrarpt esquema --banco sqlserver --indices > indices.sql\n"
    "  kodrarpt esquema --banco mysql --permissoes ana@localhost > permissoes.sql";

struct Options {
  std::string report;
  std::string database;
  bool indexes = false;
  std::optional<std::string> user;
};

void PrintTable(std::ostream& out, const TableNeed& need, std::int32_t code) {
  std::size_t width = 0;
  for (const std::wstring& column : need.columns) width = std::max(width, column.size());
  out << "  " << ToUtf8(need.table) << "\n";
  for (const std::wstring& column : need.columns)
    out << "    " << Padded(ToUtf8(column), width + 2) << schema::TypeName(schema::ColumnOf(need.table, column), code)
        << "\n";
}

void PrintReport(std::ostream& out, const reports::ReportMethod& method, std::int32_t code) {
  const Needs needs = NeedsOf(method);
  out << NameOf(method) << "\n";
  for (const TableNeed& need : needs.tables) PrintTable(out, need, code);
  if (!needs.siblingTables.empty()) out << "  Pelos outros componentes do sistema:\n";
  for (const TableNeed& need : needs.siblingTables) PrintTable(out, need, code);
}

void PrintTables(std::ostream& out, const std::string& report, std::int32_t code) {
  if (!report.empty()) {
    PrintReport(out, FindReport(report), code);
    return;
  }
  const char* separator = "";
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    out << separator;
    PrintReport(out, method, code);
    separator = "\n";
  }
}

void PrintIndexes(std::ostream& out, std::int32_t code) {
  for (const schema::Index& index : schema::Indexes()) {
    if (!schema::IsUseful(index, code)) continue;
    out << "-- Acelera:";
    const char* separator = " ";
    for (const std::string_view report : index.reports) {
      out << separator << report;
      separator = ", ";
    }
    out << "\n" << schema::CreateStatement(index) << ";\n";
  }
}

void PrintGrants(std::ostream& out, const std::string& user, std::int32_t code) {
  for (const std::string& statement : schema::Grants(user, code)) out << statement << ";\n";
  if (code == sql::tbSQLite)
    out << "-- O SQLite não tem usuários: quem pode ler o arquivo do banco pode ler todas as tabelas.\n";
}

ExitCode Esquema(std::ostream& out, const Options& options) {
  if (int{!options.report.empty()} + int{options.indexes} + int{options.user.has_value()} > 1)
    throw UsageError("informe só um: RELATÓRIO, --indices ou --permissoes");
  const std::vector<Database> databases = DatabasesNamed(options.database);
  const char* separator = "";
  for (const Database& database : databases) {
    if (databases.size() > 1) out << separator << "-- " << database.title << "\n";
    if (options.user)
      PrintGrants(out, *options.user, database.code);
    else if (options.indexes)
      PrintIndexes(out, database.code);
    else
      PrintTables(out, options.report, database.code);
    separator = "\n";
  }
  return ExitCode::kOk;
}

}  // namespace

void AddEsquema(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command = program.Add(
      {"esquema", "Mostra as tabelas que os relatórios leem, e os índices e as permissões para elas", kFooter},
      [&program, options] { return Esquema(program.Out(), *options); });
  command.add_option("RELATÓRIO", options->report, "Classe.Metodo; sem ele, todos os relatórios")->option_text(" ");
  command.add_option("--banco", options->database, DatabaseChoices())->option_text("BANCO (obrigatório)")->required();
  command.add_flag("--indices", options->indexes, "As instruções que criam os índices de tabelas grandes");
  command.add_option("--permissoes", options->user, "As instruções que permitem a um usuário ler as tabelas")
      ->option_text("USUÁRIO");
}

}  // namespace kodra::console
