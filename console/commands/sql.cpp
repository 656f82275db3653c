// kodrarpt sql: the statements of a report, without a database.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "console/command_line/databases.h"
#include "console/command_line/parameters.h"
#include "console/command_line/report_name.h"
#include "console/commands/commands.h"
#include "console/statements/capture.h"
#include "console/statements/layout.h"
#include "console/statements/notes.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Sem --bonito, cada instrução sai em uma linha, byte por byte como o relatório a envia, e as notas vão para a\n"
    "saída de erros. Com --bonito, as notas saem como comentários e cada quebra de linha substitui um espaço.\n"
    "O ponto e vírgula do fim não faz parte da instrução: separa uma da outra para o programa que as executa.\n"
    "\n"
    "Exemplo:\n"
    "  kodrarpt sql CDocumentoRpt.RelatorioSintetico --banco oracle --bonito \\\n"
    "    --DataArmazenamento1 01/02/2024 --DataArmazenamento2 29/02/2024 --CodDepto 7";

struct Options {
  std::string report;
  std::string database;
  bool isLaidOut = false;
  bool details = false;  // which Program reads
  ReportParameters parameters;
};

struct DatabaseStatements {
  Database database;
  Captured captured;
};

std::vector<std::string> DistinctNotes(const reports::ReportMethod& method,
                                       const std::vector<DatabaseStatements>& all) {
  std::vector<std::string> notes;
  for (const DatabaseStatements& one : all)
    for (const std::string& note : NotesOn(method, one.captured))
      if (std::ranges::find(notes, note) == notes.end()) notes.push_back(note);
  return notes;
}

void Print(std::ostream& out, const std::vector<Statement>& statements, bool isLaidOut) {
  const char* separator = "";
  for (const Statement& statement : statements) {
    const std::string text = values::ToUtf8(statement.text);
    out << separator << (isLaidOut ? LaidOut(text) : text) << ";\n";
    separator = isLaidOut ? "\n" : "";
  }
}

ExitCode Sql(const Program& program, const Options& options) {
  const std::vector<Database> databases = DatabasesNamed(options.database);
  const reports::ReportMethod& method = FindReport(options.report);
  frame::ParameterObject parameters = options.parameters.For(method);
  options.parameters.RefuseUnread(method);
  if (const std::string warning = ReportParameters::PeriodWarning(parameters, method); !warning.empty())
    program.Say("aviso: " + warning);
  std::vector<DatabaseStatements> all;
  all.reserve(databases.size());
  for (const Database& database : databases) all.push_back({database, Capture(method, database.code, parameters)});

  for (const std::string& note : DistinctNotes(method, all))
    (options.isLaidOut ? program.Out() << "-- nota: " : program.Err() << "kodrarpt: nota: ") << note << "\n";
  const char* separator = "";
  for (const DatabaseStatements& one : all) {
    if (one.captured.statements.empty()) continue;
    if (all.size() > 1) program.Out() << separator << "-- " << one.database.title << "\n";
    Print(program.Out(), one.captured.statements, options.isLaidOut);
    separator = "\n";
  }
  return ExitCode::kOk;
}

}  // namespace

void AddSql(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"sql", "Mostra as instruções SQL de um relatório, sem precisar de um banco de dados", kFooter},
                  [&program, options] { return Sql(program, *options); });
  command.add_option("RELATÓRIO", options->report, "Classe.Metodo, ou só a classe ou o método")
      ->option_text(" ")
      ->required();
  command.add_option("--banco", options->database, DatabaseChoices())->option_text("BANCO (obrigatório)")->required();
  command.add_flag("--bonito", options->isLaidOut, "Uma cláusula por linha, para facilitar a leitura");
  command.add_flag(kDetailsOption, options->details, "Em um erro, mostra também a mensagem completa do componente");
  options->parameters.AddTo(command);
}

}  // namespace kodra::console
