// kodrarpt verifica: whether a database has what the reports need.
#include <CLI/CLI.hpp>
#include <memory>
#include <sstream>

#include "console/check/findings.h"
#include "console/command_line/console.h"
#include "console/command_line/terminal_text.h"
#include "console/command_line/usage_error.h"
#include "console/commands/commands.h"
#include "console/run/connection_options.h"
#include "console/run/stopping.h"
#include "console/run/time_limit.h"

namespace kodra::console {
namespace {

constexpr const char* kFooter =
    "Confere as tabelas, as colunas e os seus tipos, prepara cada instrução dos relatórios no banco, sem executá-la,\n"
    "e procura os índices que faltam nas tabelas grandes. Nada é gravado, e das linhas só se faz a contagem.\n"
    "O código de saída é 4 se há um problema; sem problemas é 0, mesmo com ressalvas ou conselhos.\n"
    "\n"
    "Com --json sai um objeto em uma linha: banco, tipo, pronto, relatorios (nome, situacao, problemas, recusas,\n"
    "ressalvas), respostas (o que o banco respondeu sobre cada tabela ou coluna), textos_longos, indices (indice,\n"
    "linhas, relatorios, instrucao) e nao_conferido.\n"
    "\n"
    "Exemplo:\n"
    "  KODRARPT_SENHA=… kodrarpt verifica --conexao \"DSN=Acervo;UID=ana\"";

struct Options {
  ConnectionOptions connection;
  TimeLimit timeLimit;
  bool asJson = false;
};

ExitCode Verifica(Program& program, const Options& options) {
  const StopRules rules = {.limit = options.timeLimit.Get(), .message = "a verificação foi interrompida"};
  const std::wstring connection = options.connection.Text();
  if (connection.empty()) throw UsageError("a string de conexão está vazia: informe-a em --conexao");
  const std::unique_ptr<Machine> machine = NewMachine();
  const Stopping stopping(*machine, rules, program.Err());
  Findings findings;
  if (!stopping.Completes([&] { findings = CheckDatabase(connection, *machine); })) return stopping.Outcome();
  if (options.asJson) {
    std::ostringstream json;
    WriteJson(findings, json);
    program.Out() << (IsTerminal(program.Out()) ? JsonForTerminal(json.str()) : json.str());
  } else {
    WriteText(findings, program.Out());
  }
  return findings.IsWrong() ? ExitCode::kMismatch : ExitCode::kOk;
}

}  // namespace

void AddVerifica(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"verifica", "Confere se um banco de dados tem tudo de que os relatórios precisam", kFooter},
                  [&program, options] { return Verifica(program, *options); });
  options->connection.AddTo(command);
  options->timeLimit.AddTo(command, "a verificação");
  command.add_flag("--json", options->asJson, "Um objeto JSON, para outros programas");
}

}  // namespace kodra::console
