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
  bool asJson = false;
};

ExitCode Verifica(std::ostream& out, const Options& options) {
  const std::wstring connection = options.connection.Text();
  if (connection.empty()) throw UsageError("a string de conexão está vazia: informe-a em --conexao");
  const Findings findings = CheckDatabase(connection, *NewMachine());
  if (options.asJson) {
    std::ostringstream json;
    WriteJson(findings, json);
    out << (IsTerminal(out) ? JsonForTerminal(json.str()) : json.str());
  } else {
    WriteText(findings, out);
  }
  return findings.IsWrong() ? ExitCode::kMismatch : ExitCode::kOk;
}

}  // namespace

void AddVerifica(Program& program) {
  const auto options = std::make_shared<Options>();
  CLI::App& command =
      program.Add({"verifica", "Confere se um banco de dados tem tudo de que os relatórios precisam", kFooter},
                  [&program, options] { return Verifica(program.Out(), *options); });
  options->connection.AddTo(command);
  command.add_flag("--json", options->asJson, "Um objeto JSON, para outros programas");
}

}  // namespace kodra::console
